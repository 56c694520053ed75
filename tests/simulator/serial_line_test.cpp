#include "simulator/serial_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/index_folder.h"

namespace sorvane::simulator {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

// A read of parameter 25, which holds 150.
const Bytes kRead = {1, 32, 0, 25, 58};
const Bytes kAnswer = {150, 0, 150};

class SerialLineTest : public testing::Test {
 protected:
  void SetFault(const char* words) { board_.FaultState().Set(ParseFault(words)); }
  std::vector<std::string> ServeAt(Micros now) { return line_.Serve(now); }
  Bytes SentAt(Micros now) {
    line_.Serve(now);
    return line_.TakeSent(now);
  }

  IndexFolder folder_;
  SimulatedBoard board_{folder_.Path(), {}, {2024, 5, 3, 12, 30, 0}};
  SerialLine line_{board_};
};

TEST_F(SerialLineTest, WithoutALimitTheReplyIsThereAtOnce) {
  line_.Receive(kRead, milliseconds(5));
  EXPECT_THAT(ServeAt(milliseconds(5)), ElementsAre("read 25 = 150"));
  EXPECT_EQ(line_.TakeSent(milliseconds(5)), kAnswer);
  EXPECT_FALSE(line_.NextEvent());
}

// At 10000 bits a second a byte takes a millisecond: the request 5, then each byte of the reply 1.
TEST_F(SerialLineTest, BytesTakeTheirTimeBothWays) {
  line_.SetBaud(10000);
  line_.Receive(kRead, Micros(0));
  EXPECT_EQ(line_.NextEvent(), Micros(1000));
  EXPECT_THAT(ServeAt(Micros(4999)), IsEmpty());
  EXPECT_THAT(ServeAt(Micros(5000)), ElementsAre("read 25 = 150"));
  EXPECT_THAT(line_.TakeSent(Micros(5999)), IsEmpty());
  EXPECT_EQ(line_.NextEvent(), Micros(6000));
  EXPECT_THAT(line_.TakeSent(Micros(6000)), ElementsAre(150));
  EXPECT_THAT(line_.TakeSent(Micros(6999)), IsEmpty());
  EXPECT_THAT(line_.TakeSent(Micros(8000)), ElementsAre(0, 150));
}

// 10 bits at 19200 a second are 520.8 microseconds.
TEST_F(SerialLineTest, AByteAt19200TakesTenBits) {
  line_.SetBaud(19200);
  line_.Receive({1}, Micros(0));
  EXPECT_EQ(line_.NextEvent(), Micros(520));
}

TEST_F(SerialLineTest, AFasterWireDoesNotOvertake) {
  line_.SetBaud(1000);
  line_.Receive({kRead.begin(), kRead.end() - 1}, Micros(0));
  line_.SetBaud(SerialLine::kUnlimited);
  line_.Receive({kRead.back()}, Micros(0));
  EXPECT_THAT(ServeAt(milliseconds(40)), ElementsAre("read 25 = 150"));
}

TEST_F(SerialLineTest, SlowSendsAByteEvery20Milliseconds) {
  SetFault("slow");
  line_.Receive(kRead, Micros(0));
  EXPECT_THAT(SentAt(Micros(19999)), IsEmpty());
  EXPECT_THAT(SentAt(milliseconds(20)), ElementsAre(150));
  EXPECT_THAT(SentAt(milliseconds(40)), ElementsAre(0));
  EXPECT_THAT(SentAt(milliseconds(60)), ElementsAre(150));
}

TEST_F(SerialLineTest, ALateReplyComesWholeAfter1200Milliseconds) {
  SetFault("late reply");
  line_.Receive(kRead, Micros(0));
  EXPECT_THAT(SentAt(Micros(1199999)), IsEmpty());
  EXPECT_EQ(SentAt(milliseconds(1200)), kAnswer);
}

TEST_F(SerialLineTest, AReplyNeverOvertakesALateOne) {
  SetFault("late reply once");
  line_.Receive(kRead, Micros(0));
  ServeAt(Micros(0));
  line_.Receive(ReadFrame(26), milliseconds(1000));
  EXPECT_THAT(SentAt(milliseconds(1000)), IsEmpty());
  EXPECT_THAT(SentAt(milliseconds(1200)), ElementsAre(150, 0, 150, 150, 0, 150));
}

TEST_F(SerialLineTest, ABadChecksumIsNotAnswered) {
  line_.Receive({1, 32, 0, 25, 59}, Micros(0));
  EXPECT_THAT(ServeAt(Micros(0)), ElementsAre("bad checksum: 1 32 0 25 59"));
  EXPECT_THAT(line_.TakeSent(Micros(0)), IsEmpty());
}

TEST_F(SerialLineTest, HalfARequestIsDroppedAfterAPause) {
  line_.Receive({1, 32}, Micros(0));
  EXPECT_THAT(ServeAt(Micros(0)), IsEmpty());
  EXPECT_EQ(line_.NextEvent(), Micros(milliseconds(100)));
  EXPECT_THAT(ServeAt(milliseconds(100)), ElementsAre("half a request: 1 32"));
  line_.Receive(kRead, milliseconds(101));
  EXPECT_EQ(SentAt(milliseconds(101)), kAnswer);
}

TEST_F(SerialLineTest, ARequestInTwoPartsWithAShortPauseIsWhole) {
  line_.Receive({1, 32}, Micros(0));
  ServeAt(Micros(0));
  line_.Receive({0, 25, 58}, milliseconds(99));
  EXPECT_EQ(SentAt(milliseconds(99)), kAnswer);
}

TEST_F(SerialLineTest, ClearLosesAllThatIsUnderWay) {
  SetFault("late reply");
  line_.Receive(kRead, Micros(0));
  ServeAt(Micros(0));
  line_.Receive({1, 32}, Micros(0));
  ServeAt(Micros(0));
  line_.SetBaud(1000);
  line_.Receive({0}, Micros(0));
  line_.Clear();
  EXPECT_FALSE(line_.NextEvent());
}

TEST_F(SerialLineTest, AfterClearTheWireIsFreeAtOnce) {
  SetFault("late reply 1");
  line_.Receive(kRead, Micros(0));
  ServeAt(Micros(0));
  line_.Clear();
  line_.Receive(kRead, milliseconds(5));
  EXPECT_EQ(SentAt(milliseconds(5)), kAnswer);
}

}  // namespace
}  // namespace sorvane::simulator
