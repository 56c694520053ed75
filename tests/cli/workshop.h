#pragma once

#include <QDateTime>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/commands.h"
#include "cli/snapshot.h"
#include "session/session_rig.h"
#include "support/index_files.h"
#include "support/memory_port.h"
#include "support/scripted_board.h"
#include "support/virtual_clock.h"

namespace sorvane::test {

// A technician's desk on virtual time: a machine whose 419 parameters all hold 0 but for its
// numbers (machine 7, location 3, two decimals, ten selections) at the other end of the line, and
// command lines that are run against it. Parameter k lies at address 0, k / 256, k modulo 256.
//
//   EXPECT_EQ(Type({"set", "price.3=1.50", "--yes"}), 0);
//   EXPECT_EQ(Board("price.3"), 150);
//   EXPECT_EQ(out, "price.3: 0.00 -> 1.50\nconfirmed price.3\n");
class Workshop {
 public:
  Workshop();

  // Runs a command line and gives its exit status; out and err hold what it said. The board answers
  // at once.
  int Type(const std::vector<std::string>& arguments);

  // The number that the board holds.
  std::uint32_t Board(const std::string& name) const { return BoardAt(NumberOf(name)); }
  std::uint32_t BoardAt(int number) const;
  void SetBoard(const std::string& name, std::uint32_t value) { SetBoardAt(NumberOf(name), value); }
  void SetBoardAt(int number, std::uint32_t value);
  void SetSystem(int number, uint8_t value);

  // A file of the scratch folder, as a command line names it.
  std::string File(const std::string& name) const { return (scratch.Path() / name).string(); }
  std::string TextOf(const std::string& name) const;
  void WriteFile(const std::string& name, const std::string& text) const;

  // What a person types when asked; by itself nobody can be asked.
  void Answer(const std::string& typed) {
    typed_ = typed;
    asks_ = true;
  }

  // Called with each frame that goes out, before the board takes it; the first since the last
  // command line is 1.
  std::function<void(int frame, const Bytes& bytes)> on_frame;
  bool watched = false;  // a person looks at the errors
  std::function<bool()> interrupted = [] { return false; };

  int NumberOf(const std::string& name) const { return catalogue.Find(name)->number; }

  const Catalogue catalogue;
  TempFolder scratch;
  TempFolder index;
  TempFolder data;
  VirtualClock clock;
  MemoryPort wire;
  ScriptedBoard board{wire, clock};
  QDateTime now{QDate(2026, 11, 22), QTime(14, 30, 5), Qt::UTC};
  std::vector<cli::ListedPort> ports;
  std::string trouble;          // of the port
  std::size_t room = SIZE_MAX;  // characters that the standard output takes
  std::string out;
  std::string err;
  int frames = 0;  // of the last command line

 private:
  std::string typed_;
  bool asks_ = false;
};

}  // namespace sorvane::test
