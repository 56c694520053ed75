#pragma once

#include <span>
#include <string>
#include <string_view>

#include "simulator/serial_line.h"
#include "simulator/simulated_board.h"

namespace sorvane::simulator {

// The lines by which a person, or a test, works the board while it runs.
class Console {
 public:
  // board and line must outlive the console.
  Console(SimulatedBoard& board, SerialLine& line) : board_(board), line_(line) {}

  // Obeys one line and returns the answer: one or more lines with no line feed behind the last. A
  // line that can't be obeyed changes nothing and is answered by one line that begins with
  // "error: "; an empty one by nothing.
  std::string Obey(std::string_view line);

  // Whether the board is to end.
  bool Quit() const { return quit_; }

 private:
  struct Command;
  static std::span<const Command> Commands();

  std::string Set(std::string_view rest);
  std::string Get(std::string_view rest);
  std::string SetFault(std::string_view rest);
  std::string RaiseAlarm(std::string_view rest);
  std::string VendSelection(std::string_view rest);
  std::string InsertCoin(std::string_view rest);
  std::string InsertBanknote(std::string_view rest);
  std::string SetRevision(std::string_view rest);
  std::string SetSoftware(std::string_view rest);
  std::string SetNumber(std::string_view rest);
  std::string SetType(std::string_view rest);
  std::string System(std::string_view rest);
  std::string SetBaud(std::string_view rest);
  std::string Clock(std::string_view rest);
  std::string List(std::string_view rest);
  std::string Help(std::string_view rest);
  std::string End(std::string_view rest);

  ParameterName TakeName(std::string_view& rest, bool system) const;
  std::string SetValue(const ParameterName& name, std::string_view words);
  std::string SetIdentityByte(const std::string& word, uint8_t Identity::*which,
                              std::string_view rest);
  std::string Show(const ParameterName& name) const;
  std::string Counted(const std::string& word, int which, int parameter) const;

  SimulatedBoard& board_;
  SerialLine& line_;
  bool quit_ = false;
};

}  // namespace sorvane::simulator
