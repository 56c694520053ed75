#pragma once

#include <array>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "board/index_file.h"
#include "simulator/bytes.h"

namespace sorvane::simulator {

// A parameter by its number: a record of the first-level file (system) or of the second-level one.
// Numbers count from 1.
struct ParameterName {
  bool system = false;
  int number = 0;

  bool operator==(const ParameterName&) const = default;
};

inline ParameterName Parameter(int number) { return {false, number}; }
inline ParameterName SystemParameter(int number) { return {true, number}; }

// "25", or "system 17".
std::string ShowName(const ParameterName& name);

// Where a value lies: what a request must say to reach it.
struct Place {
  std::array<uint8_t, 3> address{};  // in the order of the wire
  int size = 1;                      // bytes, 1 to 16

  bool operator<(const Place& other) const {
    return std::tie(address, size) < std::tie(other.address, other.size);
  }
};

// What the board holds. Each place that an index file names is a cell of its own; two names of one
// place share a cell.
class Memory {
 public:
  Memory() = default;

  // Cells for the records of the two files, each holding the default of its record, blanks beyond
  // the default's four bytes, and 0 where the first-level file alone names it.
  Memory(std::vector<IndexRecord> system, std::vector<IndexRecord> parameters);

  int SystemCount() const { return static_cast<int>(system_.size()); }
  int ParameterCount() const { return static_cast<int>(parameters_.size()); }

  bool Has(const ParameterName& name) const;

  // The name of a place: of several, a system parameter, then the lowest number. Null for a place
  // that no index file names.
  const ParameterName* NameOf(const Place& place) const;

  // The bytes of a value, least significant first, or those of a text. The name is one that Has
  // knows; bytes are as many as it holds.
  const Bytes& Value(const ParameterName& name) const;
  void SetValue(const ParameterName& name, const Bytes& bytes);

  // A value of up to 4 bytes as a number; 0 for a text and for a name that Has doesn't know.
  uint32_t Number(const ParameterName& name) const;

  // Stores a number. Returns false, and changes nothing, where Number would not give it back.
  bool SetNumber(const ParameterName& name, uint32_t number);

  // Stores a text, cut to its size or padded with blanks. Does nothing where no text lies.
  void SetText(const ParameterName& name, const std::string& text);

  // Takes over the values that other holds under the same names in the same sizes.
  void TakeOver(const Memory& other);

 private:
  struct Cell {
    ParameterName name;
    Bytes value;
  };

  Place PlaceOf(const ParameterName& name) const;
  void AddCell(const ParameterName& name, const IndexRecord& record);
  bool IsNumber(const ParameterName& name) const;

  std::vector<IndexRecord> system_;
  std::vector<IndexRecord> parameters_;
  std::map<Place, Cell> cells_;
};

}  // namespace sorvane::simulator
