#include "command_line/command_line.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <utility>

namespace sorvane {
namespace {

CLI::Validator InRange(const CommandLine::Range& range) {
  CLI::Validator in_range = CLI::Range(range.least, range.most);
  return range.also.empty() ? in_range : in_range | CLI::IsMember(range.also);
}

}  // namespace

// The whole line's is an object of its own, a command's belongs to the line's.
struct CommandLine::Parser {
  std::unique_ptr<CLI::App> own;
  CLI::App& app;
};

CommandLine::CommandLine(const std::string& description, const std::string& name) {
  auto app = std::make_unique<CLI::App>(description, name);
  app->allow_windows_style_options(false);  // a slash begins a path on every system
  CLI::App& line = *app;
  parser_ = std::make_unique<Parser>(Parser{std::move(app), line});
}

CommandLine::CommandLine(std::unique_ptr<Parser> parser) : parser_(std::move(parser)) {}

CommandLine::~CommandLine() = default;

void CommandLine::SetFooter(const std::string& words) { parser_->app.footer(words); }

void CommandLine::SetVersion(const std::string& words) {
  parser_->app.set_version_flag("--version", words);
}

std::string CommandLine::VersionOf(const std::string& program) {
  return program + " " SORVANE_VERSION;
}

void CommandLine::AddArgument(const std::string& name, std::string& value,
                              const std::string& help) {
  parser_->app.add_option(name, value, help)->required();
}

void CommandLine::AddArguments(const std::string& name, std::vector<std::string>& values,
                               const std::string& help) {
  parser_->app.add_option(name, values, help)->required();
}

void CommandLine::AddArguments(const std::string& name, std::vector<std::string>& values, int count,
                               const std::string& help) {
  parser_->app.add_option(name, values, help)->required()->expected(count);
}

void CommandLine::AddOptionalArguments(const std::string& name, std::vector<std::string>& values,
                                       int most, const std::string& help) {
  parser_->app.add_option(name, values, help)->expected(0, most);
}

void CommandLine::AddOption(const std::string& name, std::string& value, const std::string& help) {
  parser_->app.add_option(name, value, help)->capture_default_str();
}

void CommandLine::AddOption(const std::string& name, std::string& value, const std::string& kind,
                            const Check& check, const std::string& help) {
  parser_->app.add_option(name, value, help)->capture_default_str()->check(check, kind);
}

void CommandLine::AddList(const std::string& name, std::vector<std::string>& values,
                          const std::string& kind, const Check& check, const std::string& help) {
  parser_->app.add_option(name, values, help)
      ->delimiter(',')
      ->allow_extra_args(false)
      ->check(check, kind);
}

void CommandLine::AddNumber(const std::string& name, int& value, const Range& range,
                            const std::string& help) {
  parser_->app.add_option(name, value, help)->capture_default_str()->check(InRange(range));
}

void CommandLine::AddRequiredNumber(const std::string& name, int& value, const Range& range,
                                    const std::string& help) {
  parser_->app.add_option(name, value, help)->required()->check(InRange(range));
}

void CommandLine::AddFlag(const std::string& name, bool& value, const std::string& help) {
  parser_->app.add_flag(name, value, help);
}

void CommandLine::Exclude(const std::string& one, const std::string& other) {
  parser_->app.get_option(one)->excludes(parser_->app.get_option(other));
}

CommandLine& CommandLine::AddCommand(const std::string& name, const std::string& help) {
  parser_->app.require_subcommand(1);
  CLI::App& app = *parser_->app.add_subcommand(name, help);
  app.fallthrough();
  auto parser = std::make_unique<Parser>(Parser{nullptr, app});
  commands_.push_back(std::unique_ptr<CommandLine>(new CommandLine(std::move(parser))));
  return *commands_.back();
}

bool CommandLine::IsChosen() const { return parser_->app.parsed(); }

bool CommandLine::Read(int argc, const char* const* argv, int& exit_code) {
  try {
    parser_->app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    exit_code = parser_->app.exit(error) == 0 ? 0 : kUsageError;
    return false;
  }
  return true;
}

}  // namespace sorvane
