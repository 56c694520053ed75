#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "board/board_tables.h"

namespace sorvane {

// What a page writes: a whole number, or the bytes of a text for a parameter of more than 4 bytes.
using ParameterValue = std::variant<int64_t, std::string>;

// All that a page may do to the parameter table. Nothing here sends: the marks that these
// operations leave in a record are found by the sweep of the link.
//
// An index of 33001 or more, one below 0, or a board other than 0 throws RuntimeError
// kSubscriptOutOfRange. WriteParameter and WatchParameter throw InternalFault for an index of 0.
class ParameterAccess {
 public:
  explicit ParameterAccess(BoardTables& tables) : tables_(tables) {}

  // Lays value into the record and marks it for writing and reading back; it isn't fresh until a
  // reply has landed. A number that is negative or takes more than 32 bits throws RuntimeError
  // kOverflow and leaves the record as it was. A text shorter than the parameter leaves the bytes
  // behind it as they were; one that is longer than 16 bytes is cut.
  void WriteParameter(int32_t index, const ParameterValue& value);

  // Writes value to a setting that the board keeps in two places. A second index of 0 means none.
  void WriteParameterPair(int32_t first, int32_t second, const ParameterValue& value);

  // The bytes of the record as one number without sign, least significant first: the default of the
  // index file until the board has answered. Index 0 is allowed.
  double ReadParameter(int32_t index, int board) const;

  // Whether the value came from the board since it was last written or left by all pages.
  bool IsParameterFresh(int32_t index, int board) const;

  // Holds a parameter for a page, so that the sweep asks for it; does nothing while no board is
  // present. Every call needs one UnwatchParameter.
  void WatchParameter(int32_t index);

  // Gives a parameter back. With the last watcher it is neither fresh nor polled any more; a
  // pending write stays pending. Does nothing while no board is present.
  void UnwatchParameter(int32_t index);

 private:
  BoardTables& tables_;
};

}  // namespace sorvane
