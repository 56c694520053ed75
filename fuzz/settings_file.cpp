// The settings file, as start-up reads it and the program writes it. An input is the number of
// language files, what the user chooses, and the content of the file.

#include <algorithm>
#include <cstddef>
#include <optional>

#include "board/errors.h"
#include "input.h"
#include "plain_lines.h"
#include "support/index_files.h"
#include "texts/choices.h"
#include "texts/language_files.h"

namespace sorvane::fuzz {
namespace {

// A program folder with the languages A, B, C and so on.
class Program {
 public:
  explicit Program(int languages) : languages_(languages) {
    for (int i = 0; i < languages; ++i) Fill(folder_.Path() / (NameOf(i) + ".lng"), NameOf(i));
  }

  static std::string NameOf(int i) { return {static_cast<char>('A' + i)}; }

  int Languages() const { return languages_; }
  const std::filesystem::path& Folder() const { return folder_.Path(); }
  std::filesystem::path File() const { return SettingsFile(Folder() / "Sorvane.exe"); }

 private:
  test::TempFolder folder_;
  int languages_;
};

// One run of the program, as far as its settings go.
struct Start {
  Choices choices;

  explicit Start(const Program& program) : choices(program.File()) {
    Require(choices.ReadSettings(), "languages are found");
  }
  void ChooseFirstLanguage() { Require(choices.CeckLingue(), "languages are found again"); }
};

// What the rules make of a file.
struct Expected {
  uint8_t port = 1;
  std::optional<int> marked;  // the port's entry in the menu
  std::string language;
};

Expected Read(const std::string& text) {
  constexpr std::size_t kKey = 7;
  Expected expected;
  std::vector<std::string> lines = LinesOf(text);
  // A line that is too long is an error, and none counts from there on.
  const auto long_one = std::find_if(lines.begin(), lines.end(), IsTooLong);
  lines.erase(long_one, lines.end());
  const char last = lines.empty() || lines[0].empty() ? '?' : lines[0].back();
  if (last < '0' || last > '9') {
    expected.marked = 1;
    return expected;
  }
  if (last < '1' || last > '4') return expected;
  expected.marked = last - '0';
  if (lines.size() < 2 || lines[1].size() < kKey) return expected;
  expected.port = static_cast<uint8_t>(last - '0');
  expected.language = lines[1].substr(kKey);
  return expected;
}

// Of a start with fewer than ten languages: a name in the file is dropped, and the file written so.
bool Drops(const Program& program, const Expected& expected) {
  return program.Languages() < MenuMarks::kLanguages && !expected.language.empty();
}

std::string Written(uint8_t port, const std::string& language) {
  return "Com=" + std::to_string(port) + "\r\nLingua=" + language + "\r\n";
}

void CheckReading(const Program& program, const Start& start, const std::string& text) {
  const Expected expected = Read(text);
  const bool drops = Drops(program, expected);
  Require(start.choices.PortNumber == expected.port, "the port is line 1's last character");
  for (int port = 1; port <= MenuMarks::kPorts; ++port) {
    Require(start.choices.marks.mnuCox(port) == (port == expected.marked),
            "one port at most is marked");
  }
  Require(start.choices.LanguageName == (drops ? "" : expected.language),
          "a language is kept while ten are there");
  Require(ContentOf(program.File()) == (drops ? Written(expected.port, "") : text),
          "the file is written where a language is dropped, only");
}

// The language that start-up loads: one of the first nine that the settings name, or the first.
std::string Loaded(const Program& program, const std::string& named) {
  for (int i = 0; i < std::min(program.Languages(), MenuMarks::kLanguages - 1); ++i) {
    if (named == Program::NameOf(i)) return named;
  }
  return Program::NameOf(0);
}

// What the user does before he leaves the program. Returns the port that is saved then.
uint8_t Choose(Start& start, uint8_t choice) {
  const uint8_t port = choice / 4;
  if (choice % 4 == 1 && port > 0) {
    start.choices.ChooseCox(port);
    Require(start.choices.marks.mnuUSB == (port > MenuMarks::kPorts),
            "a high port is the adapter's");
    return port;
  }
  if (choice % 4 == 2) {
    const auto find = [port] { return "COM" + std::to_string(port); };
    const bool found = start.choices.ChooseUsb(find);
    Require(found && start.choices.marks.mnuUSB, "the adapter is marked");
    return port;
  }
  return start.choices.PortNumber;
}

void Run(Input input) {
  static const Program kFew(3);
  static const Program kTen(10);
  static const Program kMore(11);
  const uint8_t which = input.Byte();
  const Program& program = which % 4 == 0 ? kFew : which % 4 == 1 ? kMore : kTen;
  const uint8_t choice = input.Byte();
  const std::string text = input.Rest();
  Fill(program.File(), text);

  Start first(program);
  CheckReading(program, first, text);
  const std::string loaded = Loaded(program, first.choices.LanguageName);
  first.ChooseFirstLanguage();
  Require(first.choices.LanguageName == loaded, "a language that is listed is loaded");
  const uint8_t port = Choose(first, choice);
  first.choices.SaveSettings();
  // The mark of a dropped language stands on an unused entry, behind that of the language loaded.
  const std::string saved = Written(port, loaded);
  Require(ContentOf(program.File()) == saved, "two lines are written");

  Start second(program);
  CheckReading(program, second, saved);
  second.ChooseFirstLanguage();
  second.choices.SaveSettings();
  const std::string again = ContentOf(program.File());
  if (again == saved) return;
  Require(port < 1 || port > MenuMarks::kPorts, "what was saved comes back");

  Start third(program);
  third.ChooseFirstLanguage();
  third.choices.SaveSettings();
  Require(ContentOf(program.File()) == again, "reading and writing comes to rest");
}

}  // namespace
}  // namespace sorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  sorvane::fuzz::Run({data, size});
  return 0;
}
