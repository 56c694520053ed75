#include "cli/workshop.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <utility>

#include "cli/value_text.h"

namespace sorvane::test {
namespace {

std::uint32_t Place(int number) {
  return ScriptedBoard::Address(0, static_cast<uint8_t>(number / 256),
                                static_cast<uint8_t>(number % 256));
}

int SizeOf(int number) {
  return MachineRows().at(static_cast<std::size_t>(number - 1)).command % 16 + 1;
}

}  // namespace

Workshop::Workshop() {
  index.WriteFile("W0309.inx", FirstLevelBytes(SystemRows()));
  index.WriteFile("W0309AA00.inx", SecondLevelBytes(MachineRows()));
  SetSystem(12, 18);
  SetSystem(13, 53);
  SetSystem(14, 1);
  board.SetDelay(0);
  for (int number = 1; number <= 419; ++number)
    board.Set(Place(number), Bytes(static_cast<std::size_t>(SizeOf(number)), 0));
  SetBoard("machine.number", 7);
  SetBoard("location.number", 3);
  SetBoard("selections", 10);
  SetBoardAt(22, 2);
  SetBoard("decimals", 2);
  wire.SetCommPort(1);
  wire.on_output = [this, obey = wire.on_output](const Bytes& frame) {
    ++frames;
    if (on_frame) on_frame(frames, frame);
    obey(frame);
  };
}

namespace {

// A standard output that ends after so many characters.
class Paper : public std::stringbuf {
 public:
  explicit Paper(std::size_t room) : room_(room) {}

 protected:
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    const auto taken = std::min(static_cast<std::size_t>(count), room_ - str().size());
    return std::stringbuf::xsputn(text, static_cast<std::streamsize>(taken));
  }

 private:
  const std::size_t room_;
};

}  // namespace

int Workshop::Type(const std::vector<std::string>& arguments) {
  std::vector<const char*> argv = {"sorvane-cli"};
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  int exit_code = 0;
  const auto request =
      cli::ReadRequest(static_cast<int>(argv.size()), argv.data(), "test", exit_code);
  if (!request) return exit_code;
  frames = 0;
  const cli::Surroundings around{
      .port = wire,
      .wait = WaitOn(clock),
      .now = [this] { return now; },
      .utc_now =
          [this] { return std::chrono::sys_seconds(std::chrono::seconds(now.toSecsSinceEpoch())); },
      .interrupted = [this] { return interrupted(); },
      .list_ports = [this] { return ports; },
      .port_trouble = [this] { return trouble; },
      .port_name = "COM1",
      .index_folder = index.Path(),
      .copies_folder = data.Path() / "copies",
      .program = "sorvane-cli test"};
  std::istringstream in(typed_);
  Paper paper(room);
  std::ostream out_stream(&paper);
  std::ostringstream err_stream;
  cli::Console console(
      {.in = in, .out = out_stream, .err = err_stream, .asks = asks_, .watched = watched},
      request->quiet);
  const auto code = cli::RunCommand({*request, around, catalogue, console});
  out = paper.str();
  err = err_stream.str();
  EXPECT_FALSE(wire.PortOpen());
  return static_cast<int>(code);
}

std::uint32_t Workshop::BoardAt(int number) const {
  return cli::NumberOf(board.Get(Place(number)));
}

void Workshop::SetBoardAt(int number, std::uint32_t value) {
  board.Set(Place(number), cli::BytesOf(value, SizeOf(number)));
}

void Workshop::SetSystem(int number, uint8_t value) {
  board.Set(ScriptedBoard::Address(240, 0, static_cast<uint8_t>(number)), {value});
}

std::string Workshop::TextOf(const std::string& name) const {
  std::ifstream in(scratch.Path() / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void Workshop::WriteFile(const std::string& name, const std::string& text) const {
  scratch.WriteFile(name, Bytes(text.begin(), text.end()));
}

}  // namespace sorvane::test
