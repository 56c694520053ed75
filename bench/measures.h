#pragma once

#include <vector>

#include "bench/ratio.h"

namespace sorvane::bench {

// Each measure runs both sides itself, and throws if a side didn't do its work.

// One pass of the sweep over a table of idle records, against a plain loop that reads their flag
// bytes; pass after pass, and with the table out of the processor's caches. Processor time.
std::vector<Result> MeasureSweep();

// One exchange by engine and serial port over a pseudo-terminal, without the tick, against one
// register read by libmodbus over another. Processor time of the side that asks.
std::vector<Result> MeasureExchange();

// One exchange of the connection in use, one with each tick of 40 ms, against one register read by
// libmodbus every 40 ms. Processor time of the side that asks.
std::vector<Result> MeasurePaced();

// The notice of a changed value to all thirteen pages, with one page of each kind in front in turn,
// and what is painted for it, against the tick. Processor time.
std::vector<Result> MeasureNotice();

// From the choice of the alarm page until it has all replies, against 40 ms an exchange. Wall time.
std::vector<Result> MeasureAlarms();

// From the choice of Connect until the connection stands, on a line of 19200 baud, against the time
// that its bytes take on the wire. Wall time.
std::vector<Result> MeasureConnecting();

// A backup of all settings at 19200 baud, and a restore in which nothing differs, against the time
// that their bytes take on the wire; and the most memory of a backup against an empty program of Qt
// Core. Wall time, of the shipped program from its start to its end.
std::vector<Result> MeasureBackup();

// Wall time until a window is painted and answers, the most memory until then and the memory of the
// program's own then, each against a bare window of Qt with menu bar, status bar and MDI area.
std::vector<Result> MeasureStart();

// Processor time of the connected program with the clock page open, against wall time.
std::vector<Result> MeasureIdle();

}  // namespace sorvane::bench
