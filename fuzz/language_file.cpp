// Language files: loading one, comparing two and choosing between them. An input is the length of
// the first file and the content of both.

#include <iconv.h>

#include <array>
#include <cstddef>
#include <optional>

#include "board/errors.h"
#include "input.h"
#include "plain_lines.h"
#include "support/index_files.h"
#include "texts/choices.h"
#include "texts/language_files.h"
#include "texts/western_text.h"

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
  Require(PathToWestern(WesternToPath(line)) == line, "a text goes back to its bytes");
}

// What the table holds: the lines, and behind them what it held before.
void CheckTable(const MessageTable& messages, const Texts& lines, const std::string& before) {
  for (int n = 0; n < MessageTable::kElements; ++n) {
    const bool loaded = n > 0 && static_cast<std::size_t>(n) <= lines.size();
    const std::string& expected = loaded ? lines[static_cast<std::size_t>(n) - 1] : before;
    Require(messages[n] == expected, "message n is line n of the file");
  }
}

// How a load ends: with line 1001, with a line that is too long, or well.
using Failure = std::optional<ErrorCode>;

template <typename Load>
Failure FailureOf(const Load& load) {
  try {
    load();
    return std::nullopt;
  } catch (const RuntimeError& error) {
    return error.Code();
  }
}

bool IsMark(const std::string& line) { return line.compare(0, 3, ";--") == 0; }

// What loading a file, or comparing two, puts into the table, and how it ends.
struct Outcome {
  Texts loaded;
  bool fits = true;
  Failure failure;
};

Outcome Load(const Texts& lines) {
  Outcome outcome;
  for (const std::string& line : lines) {
    if (IsTooLong(line)) {
      outcome.failure = ErrorCode::kOverflow;
    } else if (outcome.loaded.size() == kMostLines) {
      outcome.failure = ErrorCode::kSubscriptOutOfRange;
    }
    if (outcome.failure) return outcome;
    outcome.loaded.push_back(line);
  }
  return outcome;
}

// Line by line of both files; nothing behind the first difference counts.
Outcome Compare(const Texts& in_use, const Texts& chosen) {
  Outcome outcome;
  for (std::size_t i = 0; i < in_use.size(); ++i) {
    const bool there = i < chosen.size();
    if (IsTooLong(in_use[i]) || (there && IsTooLong(chosen[i]))) {
      outcome.failure = ErrorCode::kOverflow;
    } else if (!there || (IsMark(in_use[i]) && !IsMark(chosen[i]))) {
      outcome.fits = false;
    } else if (i == kMostLines) {
      outcome.failure = ErrorCode::kSubscriptOutOfRange;
    }
    if (outcome.failure || !outcome.fits) return outcome;
    outcome.loaded.push_back(chosen[i]);
  }
  return outcome;
}

void CheckLoading(const std::filesystem::path& folder, const Texts& lines) {
  MessageTable messages;
  const Outcome expected = Load(lines);
  const Failure failure = FailureOf([&] { LoadLanguageFile(folder, "A.lng", messages); });
  Require(failure == expected.failure, "1000 lines of 10000 characters load, and no more");
  CheckTable(messages, expected.loaded, "");
  for (const std::string& line : lines) CheckCharacters(line);
}

void CheckComparing(const std::filesystem::path& folder, const Outcome& expected) {
  MessageTable messages;
  for (int n = 0; n < MessageTable::kElements; ++n) messages[n] = "before";
  bool fits = false;
  const Failure failure =
      FailureOf([&] { fits = CompareLanguageFiles(folder, "A.lng", "B.lng", messages); });
  Require(failure == expected.failure, "a comparison fails by a long file only");
  Require(failure || fits == expected.fits, "a file fits by its marks and its length");
  CheckTable(messages, expected.loaded, "before");
}

void CheckChoosing(const std::filesystem::path& folder, const Texts& in_use,
                   const Outcome& compared) {
  Choices choices(folder / "Sorvane.ini");
  MenuMarks& menu = choices.marks;
  Require(FindLanguages(folder, menu).size() == 2, "both files are listed");
  menu.smnuLingue[0].checked = true;
  bool fits = false;
  const Failure failure = FailureOf([&] { fits = choices.ChooseLanguage(1); });
  // After a refusal the old file is loaded again.
  const Outcome expected = compared.fits ? compared : Load(in_use);
  Require(failure == expected.failure, "a choice fails by a long file only");
  if (failure) return;
  Require(fits == compared.fits, "a choice fits as the comparison does");
  Require(choices.LanguageName == (fits ? "B" : "A"), "a file that doesn't fit isn't taken");
  Require(menu.smnuLingue[fits ? 1 : 0].checked && !menu.smnuLingue[fits ? 0 : 1].checked,
          "the language in use is checked");
  CheckTable(choices.messages, expected.loaded, "");
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
  const Outcome comparison = Compare(in_use, LinesOf(second));
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
