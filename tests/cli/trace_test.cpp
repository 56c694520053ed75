#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/workshop.h"

namespace sorvane::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct Tracing : testing::Test, Workshop {};

TEST_F(Tracing, EachFrameStandsWithItsTimeBytesAndMeaning) {
  SetBoard("price.3", 300);
  EXPECT_EQ(Type({"get", "price.3", "--trace", File("trace.txt")}), 0);
  EXPECT_THAT(TextOf("trace.txt"),
              StartsWith("2026-11-22T14:30:05.000Z > 00 f0 00 01 f1  read system parameter 1\n"
                         "2026-11-22T14:30:05.000Z < 00 00\n"));
  EXPECT_THAT(TextOf("trace.txt"), HasSubstr("> 01 00 00 19 1a  read price.3\n"));
  EXPECT_THAT(TextOf("trace.txt"), HasSubstr("< 2c 01 2d\n"));
}

TEST_F(Tracing, WritesAndSecondCopiesAreNamed) {
  EXPECT_EQ(Type({"set", "price.3=3.00", "-y", "--trace", File("trace.txt")}), 0);
  EXPECT_THAT(TextOf("trace.txt"), HasSubstr("> 81 00 00 19 2c 01 c7  write price.3\n"));
  EXPECT_THAT(TextOf("trace.txt"), HasSubstr("  write price.3.mirror\n"));
}

TEST_F(Tracing, DigitsOfThePasswordAreMasked) {
  SetBoard("password.1", 4);
  EXPECT_EQ(Type({"set", "password.1=7", "-y", "--trace", File("trace.txt")}), 0);
  const std::string text = TextOf("trace.txt");
  EXPECT_THAT(text,
              HasSubstr("> 00 00 01 9b 9c  read password.1\n2026-11-22T14:30:05.000Z < ** **\n"));
  EXPECT_THAT(text,
              HasSubstr("> 80 00 01 9b ** **  write password.1\n2026-11-22T14:30:05.000Z < **\n"));
  EXPECT_THAT(text, HasSubstr("> 80 00 01 9f ** **  write password.1.mirror\n"));
}

TEST_F(Tracing, TroubleIsTold) {
  on_frame = [this](int frame, const Bytes&) {
    if (frame == 1) board.StaySilent(1);
    if (frame == 2) board.SpoilChecksum(1);
    if (frame == 9) wire.Vanish();
  };
  EXPECT_EQ(Type({"info", "--trace", File("trace.txt")}), 3);
  const std::string text = TextOf("trace.txt");
  EXPECT_THAT(text, HasSubstr("<  [no answer]\n"));
  EXPECT_THAT(text, HasSubstr("< 00 01 [wrong answer]\n"));
  EXPECT_THAT(text, HasSubstr("<  [line lost]\n"));
}

TEST_F(Tracing, AFileThatCanNotBeWrittenIsToldBeforeAFrameGoesOut) {
  EXPECT_EQ(Type({"info", "--trace", File("none/trace.txt")}), 2);
  EXPECT_EQ(frames, 0);
}

}  // namespace
}  // namespace sorvane::test
