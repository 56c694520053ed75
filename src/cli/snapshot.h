#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "board/reply.h"
#include "catalogue/catalogue.h"
#include "cli/value_text.h"

namespace sorvane::cli {

// One parameter as a board held it.
struct HeldValue {
  int32_t number = 0;
  std::string name;
  Bytes raw;  // as long as the board's parameter, least significant byte first
  std::string shown;

  bool operator==(const HeldValue&) const = default;
};

// What a board held at a time. Sorvane's own format for keeping it is that of snapshot_file.h.
struct Snapshot {
  std::string time;     // "2026-11-22T12:30:00Z"
  std::string program;  // that wrote it, with its version
  int type = 0;
  int software = 0;
  int revision = 0;
  std::string index_file;  // "W0309AA00.inx"
  std::string index_sum;   // SHA-256, in hexadecimal digits
  uint32_t machine = 0;
  uint32_t location = 0;
  int decimals = 0;
  bool complete = false;          // the board has answered whatever was asked for
  std::vector<HeldValue> values;  // in rising order of their numbers

  bool operator==(const Snapshot&) const = default;

  // Null where the parameter isn't held.
  const HeldValue* Find(int32_t number) const;
  const HeldValue* Find(const std::string& name) const;

  NumberStyle Style(char mark) const { return {.decimals = decimals, .mark = mark}; }
};

// The name under which the board's second copy of a parameter is kept.
inline std::string MirrorName(const CatalogueEntry& entry) { return entry.name + ".mirror"; }

}  // namespace sorvane::cli
