#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <csignal>
#include <cstdio>

#include "platform/standard_streams.h"

namespace sorvane {
namespace {

volatile std::sig_atomic_t end_wanted = 0;

BOOL WINAPI WantEnd(DWORD) {
  end_wanted = 1;
  return TRUE;
}

bool IsTerminal(FILE* stream) { return _isatty(_fileno(stream)) != 0; }

}  // namespace

bool CanAsk() { return IsTerminal(stdin) && IsTerminal(stderr); }

bool IsErrorWatched() { return IsTerminal(stderr); }

void SetStreamsPlain() {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
}

bool IsEndWanted() {
  static const bool watched = SetConsoleCtrlHandler(WantEnd, TRUE) != 0;
  return watched && end_wanted != 0;
}

}  // namespace sorvane
