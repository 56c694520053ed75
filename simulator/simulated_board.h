#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "simulator/board_clock.h"
#include "simulator/faults.h"
#include "simulator/memory.h"
#include "simulator/reply.h"
#include "simulator/request_reader.h"

namespace sorvane::simulator {

// What the board says that it is.
struct Identity {
  uint16_t type = 309;
  uint8_t number = 18;
  uint8_t software = 0;
  uint8_t revision = 0;
};

// The board behind the line: its memory, its clock and its faults.
class SimulatedBoard {
 public:
  // Reads the index files of folder: W0309.inx, and W0309AA and the two digits of the revision.
  // Throws std::runtime_error that names the file which can't be read.
  SimulatedBoard(std::filesystem::path folder, const Identity& identity, const DateTime& now);

  const Identity& Is() const { return identity_; }

  // Changes what the board says that it is. The parameters are those of the revision's index file,
  // or of revision 0's where the revision has none, whatever type and software the board claims. A
  // parameter that both the old and the new file list in the same size keeps its value. Throws as
  // the constructor does, and changes nothing then.
  void Become(const Identity& identity);

  // Gives every parameter the default of the index files. Throws as the constructor does, and
  // changes nothing then.
  void Forget();

  // The name of the second-level file in use.
  const std::string& IndexName() const { return index_name_; }

  Memory& Contents() { return memory_; }
  const Memory& Contents() const { return memory_; }
  Faults& FaultState() { return faults_; }
  const Faults& FaultState() const { return faults_; }

  // A request's reply, and the exchange in words.
  struct Answer {
    Reply reply;
    std::string words;
  };

  // Obeys and answers a request, with the fault that is in force. A place that no index file names
  // is not answered.
  Answer Serve(const Request& request);

  // Lets the clock run on. seconds is 0 or more.
  void PassSeconds(int64_t seconds);

 private:
  Memory FreshMemory(const std::string& index_name) const;
  void LayDownIdentity();

  std::filesystem::path folder_;
  Identity identity_;
  DateTime start_;
  std::string index_name_;
  Memory memory_;
  Faults faults_;
  int64_t seconds_into_minute_ = 0;
};

}  // namespace sorvane::simulator
