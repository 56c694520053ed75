#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "board/identification.h"
#include "board/index_file.h"
#include "board/reply.h"
#include "session/exchange.h"

namespace sorvane {

// How an identification ended.
enum class Identified {
  kServed,       // the board's index file is loaded
  kNoAnswer,     // to one of the questions
  kRefused,      // a board of another kind; Session::Refusal() says which
  kNoIndexFile,  // Session::IndexName() can't be read
};

// What is known of a value that was written.
enum class Proof {
  kConfirmed,     // read back equal, and the second copy, if there is one, acknowledged
  kMirrorUnsure,  // read back equal, but the second copy wasn't acknowledged in three tries
  kDiffers,       // read back, and something else stood there
  kUnsure,        // the board didn't answer: it may hold the old value or the new one
};

struct WriteOutcome {
  Proof proof;
  Bytes read_back;  // empty where the board didn't answer
};

// A conversation with the board, parameter by parameter, over an open port.
class Session {
 public:
  // folder holds the index files.
  Session(Exchange& exchange, std::filesystem::path folder);

  // Asks the board who it is and loads the index file that fits. Nothing else of this class may be
  // called before this gave kServed.
  Identified Identify();

  // Why the board isn't served, in the words of the window program; lines end in a line feed.
  const std::string& Refusal() const { return refusal_; }
  // The second-level file of the board, "W0309AA00.inx"; the first-level one while that is missing.
  const std::string& IndexName() const { return index_name_; }

  int Type() const { return numbers_.IndexType; }
  int Software() const { return numbers_.IndexSoftware; }
  int Revision() const { return numbers_.IndexRevision; }

  // Bytes of a parameter's value, 1 to 16; 0 where the index file has no such record.
  int SizeOf(int32_t number) const;

  // The board's values, in the order asked, up to the first that it doesn't answer rightly; the
  // index file has all of them. They count only once the line was silent behind them, for 20 ms.
  // All settings of a machine with their second copies are one such piece, of less than a second.
  static constexpr std::size_t kAtOnce = 192;
  std::vector<Bytes> Read(std::span<const int32_t> numbers);

  // The same of one.
  std::optional<Bytes> Read(int32_t number);

  // Writes a value as long as the parameter, then its second copy (number 0: none), then reads the
  // first back. A parameter whose write wasn't acknowledged is read back first: only if it took the
  // value, the copy is written.
  WriteOutcome Write(int32_t number, int32_t mirror, const Bytes& value);

  bool IsLost() const { return exchange_.IsLost(); }

  // The number of the parameter or system parameter that is read at an address; 0 for none.
  int32_t ParameterAt(const Address& address) const;
  int SystemParameterAt(const Address& address) const;

 private:
  Address AddressOf(int32_t number) const;
  Address SystemAddressOf(int number) const;
  // Has the board answer the questions of identification; false where it doesn't.
  bool AskWhoItIs();

  Exchange& exchange_;
  std::filesystem::path folder_;
  std::vector<IndexRecord> system_parameters_;  // number 1 first
  std::vector<IndexRecord> parameters_;
  IndexNumbers numbers_;
  Identification board_;
  std::string refusal_;
  std::string index_name_;
};

}  // namespace sorvane
