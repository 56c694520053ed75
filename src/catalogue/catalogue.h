#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sorvane {

// The groups by which a person picks parameters.
enum class Group {
  kGeneral,
  kPrices,
  kItems,
  kDiscounts,
  kClock,
  kBands,
  kPayment,
  kCoins,
  kBanknotes,
  kMdb,
  kTubes,
  kTokens,
  kKeys,
  kProducts,
  kOptions,
  kPassword,
  kIdentity,
  kAudit,
  kAlarms,
};
inline constexpr int kGroups = static_cast<int>(Group::kAlarms) + 1;

// How the raw value of a parameter is to be read.
enum class Form {
  kCount,
  kMoney,   // whole numbers of the smallest unit; the board's decimals say where the point stands
  kTenths,  // of a second
  kText,    // up to 16 bytes of the board's single-byte character set
  kBits,    // one byte, each bit a fact of its own
};

enum class Role {
  kSetting,   // a person sets it, and a copy of a machine brings it along
  kReadOnly,  // the machine records it, or never changes it
  kClock,     // a person sets it, but a copy is old by the time it is put back
  kIdentity,  // tells this machine from all others
  kSecret,    // a setting whose value isn't written down unless asked for
};

// What one parameter of the board is. Values are raw: as they go over the line.
struct CatalogueEntry {
  int32_t number;     // of its record
  std::string name;   // in lower case, "price.3"
  std::string title;  // in words, as the tables of the index files name the record
  Group group;
  Form form;
  Role role;
  uint32_t lowest;  // of a value that may be written; a text has neither
  uint32_t highest;
  int32_t mirror;  // the number of the board's second copy; 0 for none
};

// One bit of a parameter of the form kBits.
struct CatalogueBit {
  std::string name;  // "option.free-vend"
  std::string title;
  Group group;
  int32_t number;  // of the byte's parameter
  uint8_t mask;
};

// What the board keeps under which number, for programs that read and write it by name. Records
// that no page shows, and second copies, have no entry of their own.
class Catalogue {
 public:
  Catalogue();

  // In rising order of their numbers.
  std::span<const CatalogueEntry> Entries() const { return entries_; }
  std::span<const CatalogueBit> Bits() const { return bits_; }

  // Null where there is none.
  const CatalogueEntry* Find(int32_t number) const;
  const CatalogueEntry* Find(std::string_view name) const;
  const CatalogueBit* FindBit(std::string_view name) const;
  // The entry whose second copy has this number.
  const CatalogueEntry* FindByMirror(int32_t mirror) const;

 private:
  std::vector<CatalogueEntry> entries_;
  std::vector<CatalogueBit> bits_;
};

// The group's name as it is typed: "general".
std::string_view GroupName(Group group);
std::optional<Group> FindGroup(std::string_view name);

}  // namespace sorvane
