#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace sorvane {

// Reads the command line of a companion program into the program's variables, by CLI11. Its headers
// take seconds to compile, so that they are included in the source of this class alone.
//
// Names of options begin with two hyphens; "-p,--port" has a short one, too. A variable's value at
// its announcement is the default, which the help tells. Variables must outlive the call of Read.
class CommandLine {
 public:
  // Whole numbers from least to most, and those of also.
  struct Range {
    int least;
    int most;
    std::vector<int> also = {};
  };
  // Tells what is wrong with a value; an empty text if nothing is.
  using Check = std::function<std::string(const std::string&)>;

  // The name is that of the program as the help tells it; none: as it was called.
  explicit CommandLine(const std::string& description, const std::string& name = {});
  ~CommandLine();

  // What the help ends with.
  void SetFooter(const std::string& words);
  // What --version prints.
  void SetVersion(const std::string& words);
  // What it prints of a program that has the version of the project: its name and that.
  static std::string VersionOf(const std::string& program);

  // Arguments that stand on the line by their place and can't be missing: one, or one and more.
  void AddArgument(const std::string& name, std::string& value, const std::string& help);
  void AddArguments(const std::string& name, std::vector<std::string>& values,
                    const std::string& help);
  // As many as count, no fewer.
  void AddArguments(const std::string& name, std::vector<std::string>& values, int count,
                    const std::string& help);
  // As many as most, or fewer, or none.
  void AddOptionalArguments(const std::string& name, std::vector<std::string>& values, int most,
                            const std::string& help);

  void AddOption(const std::string& name, std::string& value, const std::string& help);
  // The help calls the value by kind.
  void AddOption(const std::string& name, std::string& value, const std::string& kind,
                 const Check& check, const std::string& help);
  // Values between commas; each is checked.
  void AddList(const std::string& name, std::vector<std::string>& values, const std::string& kind,
               const Check& check, const std::string& help);
  void AddNumber(const std::string& name, int& value, const Range& range, const std::string& help);
  // A number that can't be missing.
  void AddRequiredNumber(const std::string& name, int& value, const Range& range,
                         const std::string& help);
  // An option without a value.
  void AddFlag(const std::string& name, bool& value, const std::string& help);
  // Two options, announced before, that can't stand beside each other.
  void Exclude(const std::string& one, const std::string& other);

  // A command with arguments and options of its own. One of the commands must stand on the line.
  // The line's own options may stand behind it, too.
  CommandLine& AddCommand(const std::string& name, const std::string& help);
  // Whether this command stood on the line.
  bool IsChosen() const;

  // What a program ends with whose line can't be read.
  static constexpr int kUsageError = 2;

  // Sets the variables. Where the program has nothing to do, gives false and sets exit_code: to 0
  // where help or the version was asked for, which it prints, and to kUsageError where the line
  // can't be read, which it says on standard error.
  bool Read(int argc, const char* const* argv, int& exit_code);

 private:
  struct Parser;

  explicit CommandLine(std::unique_ptr<Parser> parser);

  std::unique_ptr<Parser> parser_;
  std::vector<std::unique_ptr<CommandLine>> commands_;
};

}  // namespace sorvane
