#include "language_check/language_check.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <iterator>
#include <ostream>
#include <string_view>
#include <utility>

#include "board/message.h"
#include "language_check/characters.h"
#include "language_check/language_file.h"
#include "language_check/line_rules.h"
#include "language_check/same_words.h"

namespace sorvane {
namespace {

bool HasWords(std::string_view text) {
  return text.find_first_not_of(' ') != std::string_view::npos;
}

std::string Hex(unsigned char byte) {
  std::array<char, 5> text{};
  std::snprintf(text.data(), text.size(), "0x%02X", byte);
  return text.data();
}

// Collects what is found in one file.
class FileCheck {
 public:
  FileCheck(std::string language, const LanguageLines& lines)
      : language_(std::move(language)), lines_(lines) {}

  // What can be said of a file alone.
  void CheckLines() {
    for (int line = 1; line <= Count(lines_); ++line) {
      const LanguageLine& entry = Line(lines_, line);
      if (!entry.ended) Add(line, "doesn't end in carriage return and line feed");
      CheckCharacters(line, entry.text);
      CheckRule(line, entry.text);
    }
  }

  // A reference has to have words wherever the program shows some.
  void CheckShownLines() {
    for (const LineRule& rule : LineRules()) {
      for (int line = rule.first; line <= rule.last; ++line) {
        const bool words = line <= Count(lines_) && HasWords(Line(lines_, line).text);
        if (!words || IsMark(Line(lines_, line).text)) {
          Add(line, "the program shows this line, and it has no words");
        }
      }
    }
  }

  void Compare(const LanguageLines& reference, const SameWords& same_words) {
    for (int line = 1; line <= std::max(Count(lines_), Count(reference)); ++line) {
      if (line > Count(lines_)) {
        Add(line, "missing line");
      } else if (line > Count(reference)) {
        Add(line, "extra line");
      } else {
        CompareLine(line, Line(lines_, line).text, Line(reference, line).text, same_words);
      }
    }
  }

  // In the order of the lines, which are gone through more than once.
  void MoveTo(std::vector<Finding>& all) {
    std::stable_sort(findings_.begin(), findings_.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
    std::move(findings_.begin(), findings_.end(), std::back_inserter(all));
    findings_.clear();
  }

 private:
  static int Count(const LanguageLines& lines) { return static_cast<int>(lines.size()); }
  static const LanguageLine& Line(const LanguageLines& lines, int line) {
    return lines[static_cast<std::size_t>(line - 1)];
  }

  void CheckCharacters(int line, std::string_view text) {
    if (const auto byte = FirstWrongByte(text)) {
      const bool control = *byte < 0x80;
      Add(line, control ? "control character " + Hex(*byte)
                        : "byte " + Hex(*byte) + ", which code page 1252 doesn't define");
    }
    if (LooksLikeUtf8(text)) Add(line, "saved as UTF-8 instead of code page 1252");
  }

  void CheckRule(int line, std::string_view text) {
    // Captions of menu entries, and some of them titles too: in the menu an ampersand would vanish
    // and underline a letter, in the title it would stand as it is.
    if (line <= message::kLanguages && text.find('&') != std::string_view::npos) {
      Add(line, "ampersand in a menu caption");
    }
    // The two become the positions of a slider, parted by a comma.
    if ((line == message::kYes || line == message::kNo) &&
        text.find(',') != std::string_view::npos) {
      Add(line, "comma in the position of a slider");
    }
    const LineRule* rule = RuleOfLine(line);
    if (rule != nullptr && !IsMark(text) && text.size() > rule->most_characters) {
      Add(line, std::to_string(text.size()) + " characters, at most " +
                    std::to_string(rule->most_characters) + " fit");
    }
  }

  void CompareLine(int line, std::string_view text, std::string_view reference,
                   const SameWords& same_words) {
    if (IsMark(reference) != IsMark(text)) {
      Add(line, IsMark(text) ? "mark where the reference has none"
                             : "no mark where the reference has one");
    } else if (!HasWords(reference) || IsMark(reference)) {
      return;
    } else if (!HasWords(text)) {
      Add(line, "empty where the reference has words");
    } else if (text == reference && !same_words.Allow(line, language_, text)) {
      Add(line, "not translated");
    } else if (text.ends_with(' ') && !reference.ends_with(' ')) {
      Add(line, "trailing blank where the reference has none");
    }
  }

  void Add(int line, std::string words) {
    findings_.push_back({language_ + ".lng", line, std::move(words)});
  }

  std::string language_;
  const LanguageLines& lines_;
  std::vector<Finding> findings_;
};

}  // namespace

std::vector<Finding> CheckLanguages(const std::filesystem::path& folder,
                                    const std::string& reference) {
  const SameWords same_words(folder / "same-words.txt");
  const LanguageLines reference_lines = ReadLanguageFile(folder / (reference + ".lng"));
  std::vector<Finding> findings;
  FileCheck reference_check(reference, reference_lines);
  reference_check.CheckLines();
  reference_check.CheckShownLines();
  reference_check.MoveTo(findings);
  for (const std::string& name : LanguageNames(folder)) {
    if (name == reference) continue;
    const LanguageLines lines = ReadLanguageFile(folder / (name + ".lng"));
    FileCheck check(name, lines);
    check.CheckLines();
    check.Compare(reference_lines, same_words);
    check.MoveTo(findings);
  }
  return findings;
}

int ReportLanguages(const std::filesystem::path& folder, const std::string& reference,
                    std::ostream& out, std::ostream& errors) {
  try {
    const std::vector<Finding> findings = CheckLanguages(folder, reference);
    for (const Finding& finding : findings) {
      out << finding.file << ':' << finding.line << ": " << finding.words << '\n';
    }
    return findings.empty() ? 0 : 1;
  } catch (const std::exception& failure) {
    errors << failure.what() << '\n';
    return 2;
  }
}

}  // namespace sorvane
