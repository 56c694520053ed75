#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace sorvane {

// What the entries of the language and port menus show. Any number of entries may be checked; the
// menu draws this model and adds no rule of its own.
struct MenuMarks {
  static constexpr int kLanguages = 10;
  static constexpr int kPorts = 4;

  struct Language {
    std::string caption;
    bool visible = false;
    bool checked = false;
  };

  MenuMarks() { smnuLingue[0].visible = true; }

  // Whether the entry of port i, 1 to 4, is checked. Throws RuntimeError kNoSuchElement for others.
  bool& mnuCox(int i) { return cox_[Place(i)]; }
  bool mnuCox(int i) const { return cox_[Place(i)]; }

  std::array<Language, kLanguages> smnuLingue;
  bool mnuUSB = false;

 private:
  static std::size_t Place(int i);

  std::array<bool, kPorts> cox_{};
};

}  // namespace sorvane
