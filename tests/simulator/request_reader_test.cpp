#include "simulator/request_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sorvane::simulator {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

// Feeds all bytes at one moment; the frame is expected with the last of them and not before.
std::optional<RequestReader::Frame> FeedAll(RequestReader& reader, const Bytes& bytes,
                                            Micros now = {}) {
  for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
    EXPECT_FALSE(reader.Feed(bytes[i], now)) << "after byte " << i;
  }
  return reader.Feed(bytes.back(), now);
}

Request RequestIn(const Bytes& bytes) {
  RequestReader reader;
  const auto frame = FeedAll(reader, bytes);
  EXPECT_TRUE(frame && frame->request);
  return frame && frame->request ? *frame->request : Request{};
}

TEST(RequestReader, FiveBytesAreARead) {
  const Request request = RequestIn({1, 0, 18, 52, 71});
  EXPECT_FALSE(request.write);
  EXPECT_THAT(request.address, ElementsAre(0, 18, 52));
  EXPECT_EQ(request.size, 2);
  EXPECT_THAT(request.value, IsEmpty());
  EXPECT_EQ(request.checksum, 71);
}

TEST(RequestReader, AWriteCarriesItsValue) {
  const Request request = RequestIn({129, 0, 18, 52, 44, 1, 244});
  EXPECT_TRUE(request.write);
  EXPECT_THAT(request.address, ElementsAre(0, 18, 52));
  EXPECT_EQ(request.size, 2);
  EXPECT_THAT(request.value, ElementsAre(44, 1));
  EXPECT_EQ(request.checksum, 244);
}

TEST(RequestReader, TheLongestWriteHas21Bytes) {
  // 143 + 1 + 2 + 3 = 149, and 16 times 10 is 160: 309 - 256 = 53.
  const Request request =
      RequestIn({143, 1, 2, 3, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 53});
  EXPECT_TRUE(request.write);
  EXPECT_EQ(request.size, 16);
  EXPECT_EQ(request.value, Bytes(16, 10));
}

TEST(RequestReader, TheChecksumWraps) { EXPECT_FALSE(RequestIn({0, 200, 100, 0, 44}).write); }

TEST(RequestReader, TheHighNibbleOfACommandIsNoPartOfTheSize) {
  const Request request = RequestIn({0x71, 0, 0, 1, 0x72});
  EXPECT_FALSE(request.write);
  EXPECT_EQ(request.size, 2);
}

TEST(RequestReader, Command126IsAReadAnd127AWriteOf16Bytes) {
  EXPECT_FALSE(RequestIn({126, 0, 0, 1, 127}).write);
  const Request request =
      RequestIn({127, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 129});
  EXPECT_TRUE(request.write);
  EXPECT_EQ(request.size, 16);
}

TEST(RequestReader, AWrongChecksumGivesTheBytesAndNoRequest) {
  RequestReader reader;
  const auto frame = FeedAll(reader, {1, 0, 18, 52, 72});
  ASSERT_TRUE(frame);
  EXPECT_FALSE(frame->request);
  EXPECT_THAT(frame->bytes, ElementsAre(1, 0, 18, 52, 72));
}

TEST(RequestReader, RequestsFollowEachOtherWithoutAPause) {
  RequestReader reader;
  EXPECT_TRUE(FeedAll(reader, {1, 0, 18, 52, 71}));
  EXPECT_TRUE(FeedAll(reader, {1, 0, 18, 52, 72}));
  const auto frame = FeedAll(reader, {128, 0, 18, 52, 5, 203});
  ASSERT_TRUE(frame && frame->request);
  EXPECT_THAT(frame->request->value, ElementsAre(5));
}

TEST(RequestReader, HalfARequestIsDroppedAfter100Milliseconds) {
  RequestReader reader;
  reader.Feed(1, milliseconds(10));
  reader.Feed(0, milliseconds(40));
  EXPECT_EQ(reader.Deadline(), Micros(milliseconds(140)));
  EXPECT_THAT(reader.Expire(Micros(139999)), IsEmpty());
  EXPECT_THAT(reader.Expire(Micros(140000)), ElementsAre(1, 0));
  EXPECT_FALSE(reader.Deadline());
  EXPECT_TRUE(FeedAll(reader, {1, 0, 18, 52, 71}));
}

TEST(RequestReader, NothingIsDroppedBetweenRequests) {
  RequestReader reader;
  FeedAll(reader, {1, 0, 18, 52, 71});
  EXPECT_FALSE(reader.Deadline());
  EXPECT_THAT(reader.Expire(milliseconds(5000)), IsEmpty());
}

}  // namespace
}  // namespace sorvane::simulator
