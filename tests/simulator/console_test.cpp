#include "simulator/console.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/index_folder.h"

namespace sorvane::simulator {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ConsoleTest : public testing::Test {
 protected:
  std::string Obey(const char* line) { return console_.Obey(line); }
  uint32_t Number(int parameter) const { return board_.Contents().Number(Parameter(parameter)); }

  IndexFolder folder_;
  SimulatedBoard board_{folder_.Path(), {}, {2024, 5, 3, 12, 30, 0}};
  SerialLine line_{board_};
  Console console_{board_, line_};
};

TEST_F(ConsoleTest, SetAndGet) {
  EXPECT_EQ(Obey("set 25 160"), "25 = 160");
  EXPECT_EQ(Number(25), 160u);
  EXPECT_EQ(Obey("get 25"), "25 = 160");
  EXPECT_EQ(Obey("  get   25\r"), "25 = 160");
}

TEST_F(ConsoleTest, TextsAreQuoted) {
  EXPECT_EQ(Obey("get 12"), "12 = \"Italiano        \"");
  EXPECT_EQ(Obey("set 12 \"Two words\""), "12 = \"Two words       \"");
  EXPECT_EQ(Obey("set 12 seventeen letters"), "error: the text has 17 characters, 16 fit");
  EXPECT_EQ(Obey("get 12"), "12 = \"Two words       \"");
}

TEST_F(ConsoleTest, SystemShowsAndSets) {
  EXPECT_EQ(Obey("system 12"), "system 12 = 18");
  EXPECT_EQ(Obey("system 12 17"), "system 12 = 17");
  EXPECT_EQ(board_.Contents().Number(SystemParameter(12)), 17u);
}

TEST_F(ConsoleTest, AlarmVendCoinAndBanknoteNameTheParameterThatTells) {
  EXPECT_EQ(Obey("alarm 17"), "alarm 17: 278 = 8");
  EXPECT_EQ(Obey("vend 3"), "vend 3: 322 = 296");
  EXPECT_EQ(Obey("coin 2"), "coin 2: 289 = 641");
  EXPECT_EQ(Obey("banknote 1"), "banknote 1: 304 = 97");
  EXPECT_EQ(Number(118 + 8 * 8 + 6), 17u);
}

TEST_F(ConsoleTest, OnlyFittedSelectionsVend) {
  Obey("set 2 5");
  EXPECT_EQ(Obey("vend 6"), "error: a selection of this machine is a whole number from 1 to 5");
  EXPECT_THAT(Obey("vend 5"), StartsWith("vend 5"));
  Obey("set 2 200");
  EXPECT_EQ(Obey("vend 11"), "error: a selection of this machine is a whole number from 1 to 10");
}

TEST_F(ConsoleTest, TheEndsOfEachRangeAreTaken) {
  for (const char* const line :
       {"alarm 0", "alarm 255", "vend 1", "vend 10", "coin 1", "coin 16", "banknote 1",
        "banknote 16", "type 0", "type 65535", "number 0", "number 255", "software 0",
        "software 255", "revision 0", "revision 255", "baud 300", "baud 1000000"}) {
    EXPECT_THAT(Obey(line), StartsWith(line));
  }
}

TEST_F(ConsoleTest, TheIdentityCanBeChanged) {
  EXPECT_EQ(Obey("revision 7"), "revision 7, parameters of W0309AA07.inx");
  EXPECT_EQ(Obey("revision 3"), "revision 3, parameters of W0309AA00.inx");
  EXPECT_EQ(Obey("software 1"), "software 1");
  EXPECT_EQ(Obey("number 17"), "number 17");
  EXPECT_EQ(Obey("type 308"), "type 308");
  EXPECT_EQ(Obey("system 17"), "system 17 = 3");
  EXPECT_EQ(Obey("system 11"), "system 11 = 1");
  EXPECT_EQ(Obey("system 12"), "system 12 = 17");
  EXPECT_EQ(Obey("system 13"), "system 13 = 52");
  EXPECT_EQ(Obey("system 14"), "system 14 = 1");
}

TEST_F(ConsoleTest, BaudSetsTheSpeedOfTheWire) {
  EXPECT_EQ(Obey("baud 1000"), "baud 1000");
  line_.Receive({1}, Micros(0));
  EXPECT_EQ(line_.NextEvent(), Micros(10000));
  line_.Clear();
  EXPECT_EQ(Obey("baud unlimited"), "baud unlimited");
  line_.Receive({1}, Micros(50000));
  EXPECT_EQ(line_.NextEvent(), Micros(50000));
}

TEST_F(ConsoleTest, FaultsComeAndGo) {
  EXPECT_EQ(Obey("fault silent 3"), "fault silent 3");
  EXPECT_EQ(board_.FaultState().Current().fault, Fault::kSilent);
  EXPECT_EQ(board_.FaultState().Current().count, 3);
  EXPECT_EQ(Obey("fault none"), "fault none");
  EXPECT_EQ(board_.FaultState().Current().fault, Fault::kNone);
}

TEST_F(ConsoleTest, ClockShowsTheBoardsTime) {
  EXPECT_EQ(Obey("clock"), "clock 2024-05-03 12:30");
  Obey("set 56 0");
  EXPECT_EQ(Obey("clock"), "clock 2024-05-00 12:30");
}

TEST_F(ConsoleTest, ListShowsEveryParameter) {
  const std::string list = Obey("list");
  EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 18 + 419 - 1);
  EXPECT_THAT(list, StartsWith("system 1 = 0\nsystem 2 = 0\n"));
  EXPECT_THAT(list, HasSubstr("\n25 = 150\n"));
}

TEST_F(ConsoleTest, HelpShowsEveryCommandWithAnExampleThatWorks) {
  const std::string help = Obey("help");
  for (const char* const command :
       {"set", "get", "system", "list", "clock", "alarm", "vend", "coin", "banknote", "type",
        "number", "software", "revision", "baud", "fault", "help", "quit"}) {
    const std::size_t at = ("\n" + help).find("\n" + std::string(command) + " ");
    ASSERT_NE(at, std::string::npos) << command;
    const std::string example = help.substr(at, help.find("  ", at) - at);
    EXPECT_THAT(Obey(example.c_str()), testing::Not(StartsWith("error"))) << example;
  }
  EXPECT_THAT(help, HasSubstr("refuses day 0"));
}

TEST_F(ConsoleTest, QuitEnds) {
  EXPECT_FALSE(console_.Quit());
  EXPECT_EQ(Obey("quit"), "quit");
  EXPECT_TRUE(console_.Quit());
}

TEST_F(ConsoleTest, AnEmptyLineSaysNothing) {
  EXPECT_EQ(Obey(""), "");
  EXPECT_EQ(Obey("  \r"), "");
}

TEST_F(ConsoleTest, BadLinesAreAnsweredByOneLineAndChangeNothing) {
  const std::string before = Obey("list");
  for (const char* const line :
       {"jump",         "set",          "set 25",     "set 25 65536",  "set 25 x",
        "set 25 1 2",   "set 0 1",      "set 420 1",  "set x 1",       "get",
        "get 25 26",    "get 0",        "get -1",     "system",        "system 19",
        "system 1 256", "alarm",        "alarm 256",  "alarm x",       "vend 0",
        "vend 11",      "coin 0",       "coin 17",    "banknote 17",   "revision 256",
        "software",     "number x",     "type 65536", "baud 0",        "baud 299",
        "baud 1000001", "baud",         "fault",      "fault silence", "fault silent 0",
        "clock 12",     "list 1",       "help me",    "quit now",      "SET 25 150",
        "set\xff",      "set 12 \"open"}) {
    const std::string answer = Obey(line);
    EXPECT_THAT(answer, StartsWith("error: ")) << line;
    EXPECT_EQ(answer.find('\n'), std::string::npos) << line;
  }
  EXPECT_EQ(Obey("list"), before);
  EXPECT_FALSE(console_.Quit());
}

TEST_F(ConsoleTest, AChangeToARevisionThatCanNoLongerBeReadIsRefused) {
  std::filesystem::remove(folder_.Path() / "W0309.inx");
  EXPECT_THAT(Obey("revision 7"), StartsWith("error: "));
  EXPECT_EQ(Obey("system 17"), "system 17 = 0");
  EXPECT_EQ(Obey("get 25"), "25 = 150");
}

}  // namespace
}  // namespace sorvane::simulator
