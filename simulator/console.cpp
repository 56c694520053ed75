#include "simulator/console.h"

#include <algorithm>
#include <array>
#include <exception>

#include "simulator/board_clock.h"
#include "simulator/command_error.h"
#include "simulator/parameter_numbers.h"
#include "simulator/recorder.h"
#include "simulator/words.h"

namespace sorvane::simulator {
namespace {

constexpr int kHighestByte = 255;
constexpr int kHighestType = 65535;
constexpr std::string_view kUnlimitedWord = "unlimited";

int ParseInt(std::string_view text, int lowest, int highest, const std::string& what) {
  return static_cast<int>(
      ParseNumber(text, static_cast<uint32_t>(lowest), static_cast<uint32_t>(highest), what));
}

}  // namespace

struct Console::Command {
  std::string_view word;
  std::string_view arguments;  // as help shows them; empty: the command takes none
  std::string_view help;
  std::string (Console::*obey)(std::string_view rest);
};

std::span<const Console::Command> Console::Commands() {
  static constexpr std::array<Command, 17> kCommands = {{
      {"set", "25 150", "give parameter 25 the value 150; a text stands in quotes", &Console::Set},
      {"get", "25", "show parameter 25", &Console::Get},
      {"system", "12 17", "give system parameter 12 the value 17; without a value, show it",
       &Console::System},
      {"list", "", "show all parameters", &Console::List},
      {"clock", "", "show the board's clock", &Console::Clock},
      {"alarm", "17", "log an alarm of code 17", &Console::RaiseAlarm},
      {"vend", "3", "vend selection 3", &Console::VendSelection},
      {"coin", "2", "take a coin of channel 2", &Console::InsertCoin},
      {"banknote", "1", "take a banknote of channel 1", &Console::InsertBanknote},
      {"type", "308", "be a board of type 308", &Console::SetType},
      {"number", "17", "be a board of number 17", &Console::SetNumber},
      {"software", "1", "have software 1", &Console::SetSoftware},
      {"revision", "7", "have revision 7, with the parameters of its index file",
       &Console::SetRevision},
      {"baud", "19200", "let bytes take their time on the wire; baud unlimited lifts it",
       &Console::SetBaud},
      {"fault", "silent 3", "have a fault for 3 requests; without a number, until fault none",
       &Console::SetFault},
      {"help", "", "show this list and the faults", &Console::Help},
      {"quit", "", "end", &Console::End},
  }};
  return kCommands;
}

std::string Console::Obey(std::string_view line) {
  const std::string word{TakeWord(line)};
  if (word.empty()) return {};
  const auto commands = Commands();
  const auto command = std::find_if(commands.begin(), commands.end(),
                                    [&](const Command& known) { return known.word == word; });
  if (command == commands.end()) return "error: no such command; help shows them all";
  if (command->arguments.empty() && !line.empty()) return "error: " + word + " stands alone";
  if (!command->arguments.empty() && line.empty()) {
    return "error: " + word + " wants more, such as " + word + ' ' +
           std::string(command->arguments);
  }
  try {
    return (this->*command->obey)(line);
  } catch (const std::exception& error) {
    return std::string("error: ") + error.what();
  }
}

ParameterName Console::TakeName(std::string_view& rest, bool system) const {
  const int count = system ? board_.Contents().SystemCount() : board_.Contents().ParameterCount();
  const std::string what = system ? "a system parameter" : "a parameter";
  return {system, ParseInt(TakeWord(rest), 1, count, what)};
}

std::string Console::Show(const ParameterName& name) const {
  return ShowName(name) + " = " + ShowValue(board_.Contents().Value(name));
}

std::string Console::SetValue(const ParameterName& name, std::string_view words) {
  Memory& memory = board_.Contents();
  memory.SetValue(name, ParseValue(words, memory.Value(name).size()));
  return Show(name);
}

std::string Console::Set(std::string_view rest) {
  const ParameterName name = TakeName(rest, false);
  return SetValue(name, rest);
}

std::string Console::Get(std::string_view rest) {
  const ParameterName name = TakeName(rest, false);
  if (!rest.empty()) throw CommandError("get wants one number");
  return Show(name);
}

std::string Console::System(std::string_view rest) {
  const ParameterName name = TakeName(rest, true);
  return rest.empty() ? Show(name) : SetValue(name, rest);
}

std::string Console::List(std::string_view) {
  std::string text;
  const Memory& memory = board_.Contents();
  for (int i = 1; i <= memory.SystemCount(); ++i) text += Show(SystemParameter(i)) + '\n';
  for (int i = 1; i <= memory.ParameterCount(); ++i) text += Show(Parameter(i)) + '\n';
  if (!text.empty()) text.pop_back();
  return text;
}

std::string Console::Clock(std::string_view) { return "clock " + ShowClock(board_.Contents()); }

std::string Console::RaiseAlarm(std::string_view rest) {
  const int code = ParseInt(rest, 0, kHighestByte, "an alarm code");
  return Counted("alarm", code, LogAlarm(board_.Contents(), code));
}

std::string Console::VendSelection(std::string_view rest) {
  const auto fitted = static_cast<int>(board_.Contents().Number(Parameter(number::kSelections)));
  const int selection =
      ParseInt(rest, 1, std::clamp(fitted, 1, number::kRows), "a selection of this machine");
  return Counted("vend", selection, Vend(board_.Contents(), selection));
}

std::string Console::InsertCoin(std::string_view rest) {
  const int channel = ParseInt(rest, 1, number::kChannels, "a coin channel");
  return Counted("coin", channel, TakeCoin(board_.Contents(), channel));
}

std::string Console::InsertBanknote(std::string_view rest) {
  const int channel = ParseInt(rest, 1, number::kChannels, "a banknote channel");
  return Counted("banknote", channel, TakeBanknote(board_.Contents(), channel));
}

std::string Console::Counted(const std::string& word, int which, int parameter) const {
  const ParameterName name = Parameter(parameter);
  const std::string said = word + ' ' + std::to_string(which);
  return board_.Contents().Has(name) ? said + ": " + Show(name) : said;
}

std::string Console::SetType(std::string_view rest) {
  Identity identity = board_.Is();
  identity.type = static_cast<uint16_t>(ParseInt(rest, 0, kHighestType, "a type"));
  board_.Become(identity);
  return "type " + std::to_string(identity.type);
}

std::string Console::SetNumber(std::string_view rest) {
  return SetIdentityByte("number", &Identity::number, rest);
}

std::string Console::SetSoftware(std::string_view rest) {
  return SetIdentityByte("software", &Identity::software, rest);
}

std::string Console::SetRevision(std::string_view rest) {
  return SetIdentityByte("revision", &Identity::revision, rest) + ", parameters of " +
         board_.IndexName();
}

std::string Console::SetIdentityByte(const std::string& word, uint8_t Identity::*which,
                                     std::string_view rest) {
  Identity identity = board_.Is();
  identity.*which = static_cast<uint8_t>(ParseInt(rest, 0, kHighestByte, "a " + word));
  board_.Become(identity);
  return word + ' ' + std::to_string(identity.*which);
}

std::string Console::SetBaud(std::string_view rest) {
  if (rest == kUnlimitedWord) {
    line_.SetBaud(SerialLine::kUnlimited);
    return "baud unlimited";
  }
  const int baud =
      ParseInt(rest, SerialLine::kLowestBaud, SerialLine::kHighestBaud, "a wire speed");
  line_.SetBaud(baud);
  return "baud " + std::to_string(baud);
}

std::string Console::SetFault(std::string_view rest) {
  const FaultOrder order = ParseFault(rest);
  board_.FaultState().Set(order);
  return "fault " + FaultWords(order);
}

std::string Console::Help(std::string_view) {
  constexpr std::size_t kColumn = 18;
  std::string text;
  for (const Command& command : Commands()) {
    std::string example = std::string(command.word) + ' ' + std::string(command.arguments);
    example.resize(std::max(kColumn, example.size() + 1), ' ');
    text += example + std::string(command.help) + '\n';
  }
  return text + "faults: " + FaultNames();
}

std::string Console::End(std::string_view) {
  quit_ = true;
  return "quit";
}

}  // namespace sorvane::simulator
