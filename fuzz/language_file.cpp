// Language files: loading one, comparing two and choosing between them. An input is the length of
// the first file and the content of both.

#include <iconv.h>

#include <array>
#include <cstddef>
#include <optional>

#include "board/errors.h"
#include "input.h"
#include "plain_lines.h"
#include "shell/language_files.h"
#include "shell/western_text.h"
#include "support/index_files.h"

namespace sorvane::fuzz {
namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t kMostLines = 1000;

// The characters of the western set as the C library knows them; the five bytes that it doesn't
// know are control characters.
std::array<char16_t, 256> WesternCharacters() {
  std::array<char16_t, 256> characters{};
  const iconv_t converter = iconv_open("UTF-16LE", "CP1252");
  for (std::size_t i = 0; i < characters.size(); ++i) {
    auto byte = static_cast<char>(i);
    char* in = &byte;
    std::size_t in_left = 1;
    std::array<char, 2> two{};
    char* out = two.data();
    std::size_t out_left = two.size();
    const bool known = iconv(converter, &in, &in_left, &out, &out_left) == 0;
    const auto low = static_cast<unsigned char>(two[0]);
    const auto high = static_cast<unsigned char>(two[1]);
    characters[i] = known ? static_cast<char16_t>(low + 256 * high) : static_cast<char16_t>(i);
  }
  iconv_close(converter);
  Require(characters[0x80] == 0x20AC, "the C library knows the western set");
  return characters;
}

void CheckCharacters(const std::string& line) {
  static const std::array<char16_t, 256> kCharacters = WesternCharacters();
  const QString text = FromWestern(line);
  Require(text.size() == static_cast<qsizetype>(line.size()), "each byte is one character");
  for (std::size_t i = 0; i < line.size(); ++i) {
    Require(text[static_cast<qsizetype>(i)] == kCharacters[static_cast<unsigned char>(line[i])],
            "a byte is its character in the western set");
  }
  Require(ToWestern(text) == line, "a text goes back to its bytes");
}

// What the table holds: the lines, and behind them what it held before.
void CheckTable(const MessageTable& messages, const Texts& lines, const std::string& before) {
  for (int n = 0; n < MessageTable::kElements; ++n) {
    const bool loaded = n > 0 && static_cast<std::size_t>(n) <= lines.size();
    const std::string& expected = loaded ? lines[static_cast<std::size_t>(n) - 1] : before;
    Require(messages[n] == expected, "message n is line n of the file");
  }
}

// Whether f came to its end, rather than to line 1001.
template <typename Load>
bool Loads(const Load& load) {
  try {
    load();
    return true;
  } catch (const RuntimeError& error) {
    Require(error.Code() == ErrorCode::kSubscriptOutOfRange, "a file fails by its length only");
    return false;
  }
}

bool IsMark(const std::string& line) { return line.compare(0, 3, ";--") == 0; }

// What a comparison loads, and its result; none where line 1001 would be loaded.
struct Comparison {
  Texts loaded;
  std::optional<bool> fits;
};

Comparison Compare(const Texts& in_use, const Texts& chosen) {
  Comparison comparison;
  for (std::size_t i = 0; i < in_use.size(); ++i) {
    if (i >= chosen.size() || (IsMark(in_use[i]) && !IsMark(chosen[i]))) {
      comparison.fits = false;
      return comparison;
    }
    if (i == kMostLines) return comparison;
    comparison.loaded.push_back(chosen[i]);
  }
  comparison.fits = true;
  return comparison;
}

Texts Loadable(Texts lines) {
  if (lines.size() > kMostLines) lines.resize(kMostLines);
  return lines;
}

void CheckLoading(const std::filesystem::path& folder, const Texts& lines) {
  MessageTable messages;
  const bool loads = Loads([&] { LoadLanguageFile(folder, "A.lng", messages); });
  Require(loads == (lines.size() <= kMostLines), "1000 lines load, and no more");
  CheckTable(messages, Loadable(lines), "");
  for (const std::string& line : lines) CheckCharacters(line);
}

void CheckComparing(const std::filesystem::path& folder, const Comparison& expected) {
  MessageTable messages;
  for (int n = 0; n < MessageTable::kElements; ++n) messages[n] = "before";
  std::optional<bool> fits;
  Loads([&] { fits = CompareLanguageFiles(folder, "A.lng", "B.lng", messages); });
  Require(fits == expected.fits, "a file fits by its marks and its length");
  CheckTable(messages, expected.loaded, "before");
}

void CheckChoosing(const std::filesystem::path& folder, const Texts& in_use,
                   const Comparison& expected) {
  MessageTable messages;
  MenuMarks menu;
  Settings settings;
  Require(FindLanguages(folder, menu).size() == 2, "both files are listed");
  menu.smnuLingue[0].checked = true;
  std::optional<bool> fits;
  const bool done = Loads([&] { fits = ChooseLanguage(1, folder, settings, menu, messages); });
  const bool reloads = expected.fits == false && in_use.size() > kMostLines;
  Require(done == (expected.fits.has_value() && !reloads), "a choice fails by a long file only");
  if (!done) return;
  Require(fits == expected.fits, "a choice fits as the comparison does");
  Require(settings.LanguageName == (*fits ? "B" : "A"), "a file that doesn't fit isn't taken");
  Require(menu.smnuLingue[*fits ? 1 : 0].checked && !menu.smnuLingue[*fits ? 0 : 1].checked,
          "the language in use is checked");
  // After a refusal the old file stands in the table again, whole.
  CheckTable(messages, *fits ? expected.loaded : in_use, "");
}

void Run(Input input) {
  static const test::TempFolder kFolder;
  const std::filesystem::path& folder = kFolder.Path();
  const std::size_t length = input.Word();
  const std::string first = input.TakeText(length);
  const std::string second = input.Rest();
  Fill(folder / "A.lng", first);
  Fill(folder / "B.lng", second);
  const Texts in_use = LinesOf(first);
  const Comparison comparison = Compare(in_use, LinesOf(second));
  CheckLoading(folder, in_use);
  CheckComparing(folder, comparison);
  CheckChoosing(folder, in_use, comparison);
}

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Run({data, size});
  return 0;
}
