#include "link/frame.h"

#include <gtest/gtest.h>

#include "board/errors.h"

namespace sorvane {
namespace {

// An exchange at address bytes 0, 18, 52; its size is the low nibble of the command.
LinkState Exchange(uint8_t command, const Bytes& value = {}) {
  LinkState state;
  state.ExchangeCommand = command;
  state.ExchangeAddress1 = 0;
  state.ExchangeAddress2 = 18;
  state.ExchangeAddress3 = 52;
  state.ExchangeSize = command % 16;
  state.ExchangeValue = value;
  return state;
}

// The bytes 1 to 16, whose sum is 136.
const Bytes kSixteen = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

Bytes Joined(Bytes head, const Bytes& value, uint8_t check) {
  head.insert(head.end(), value.begin(), value.end());
  head.push_back(check);
  return head;
}

TEST(Frame, AReadIsCommandAddressAndSum) {
  LinkState state = Exchange(1, {44, 1});
  EXPECT_EQ(BuildFrame(state, 0), (Bytes{1, 0, 18, 52, 71}));
  EXPECT_EQ(state.FrameChecksum, 71);
}

TEST(Frame, AWriteHasItsValueBeforeTheSum) {
  LinkState state = Exchange(129, {44, 1});
  EXPECT_EQ(BuildFrame(state, 0), (Bytes{129, 0, 18, 52, 44, 1, 244}));
  EXPECT_EQ(state.FrameChecksum, 244);
}

TEST(Frame, TheAddressBytesStandInTheirOrder) {
  LinkState state = Exchange(0);
  state.ExchangeAddress1 = 3;
  state.ExchangeAddress2 = 2;
  state.ExchangeAddress3 = 1;
  EXPECT_EQ(BuildFrame(state, 0), (Bytes{0, 3, 2, 1, 6}));
}

TEST(Frame, AWriteOfSixteenBytesHas21) {
  LinkState state = Exchange(143, kSixteen);
  const Bytes frame = BuildFrame(state, 0);
  EXPECT_EQ(frame.size(), 21U);
  EXPECT_EQ(frame, Joined({143, 0, 18, 52}, kSixteen, 93));
}

TEST(Frame, ASumOf256OrMoreWraps) {
  LinkState state;
  state.ExchangeAddress1 = 200;
  state.ExchangeAddress2 = 100;
  EXPECT_EQ(BuildFrame(state, 0), (Bytes{0, 200, 100, 0, 44}));
  EXPECT_EQ(Checksum({200, 100, 0, 0}), 44);
  EXPECT_EQ(Checksum({}), 0);
}

TEST(Frame, TheValueIsCutToItsSizeForReadsToo) {
  LinkState write = Exchange(129, {44, 1, 9, 9});
  EXPECT_EQ(BuildFrame(write, 0), (Bytes{129, 0, 18, 52, 44, 1, 244}));
  EXPECT_EQ(write.ExchangeValue, (Bytes{44, 1}));
  LinkState read = Exchange(1, {44, 1, 9, 9});
  BuildFrame(read, 0);
  EXPECT_EQ(read.ExchangeValue, (Bytes{44, 1}));
}

TEST(Frame, Command126IsFramedAsARead) {
  LinkState state = Exchange(126, kSixteen);
  EXPECT_EQ(BuildFrame(state, 0), (Bytes{126, 0, 18, 52, 196}));
}

TEST(Frame, Command127IsFramedAsAWriteOfSixteenBytes) {
  LinkState state = Exchange(127, kSixteen);
  EXPECT_EQ(BuildFrame(state, 0), Joined({127, 0, 18, 52}, kSixteen, 77));
}

TEST(AddressedFrame, AReadHasItsMarkerFirstAndItsCommandBehindTheAddress) {
  LinkState state = Exchange(1, {44, 1});
  EXPECT_EQ(BuildAddressedFrame(state, 5), (Bytes{241, 0, 18, 52, 1, 5, 61}));
  EXPECT_EQ(state.FrameChecksum, 61);
}

TEST(AddressedFrame, TheMarkerOfAWriteCountsItsSize) {
  LinkState two = Exchange(129, {44, 1, 9});
  EXPECT_EQ(BuildAddressedFrame(two, 5), (Bytes{243, 0, 18, 52, 129, 5, 44, 1, 236}));
  EXPECT_EQ(two.FrameChecksum, 236);
  EXPECT_EQ(two.ExchangeValue, (Bytes{44, 1}));
  LinkState one = Exchange(128, {7});
  EXPECT_EQ(BuildAddressedFrame(one, 0), (Bytes{242, 0, 18, 52, 128, 0, 7, 191}));
}

TEST(AddressedFrame, Command127IsAWriteHereToo) {
  LinkState state = Exchange(127, {7});
  state.ExchangeSize = 0;
  EXPECT_EQ(BuildAddressedFrame(state, 0), (Bytes{242, 0, 18, 52, 127, 0, 7, 190}));
}

TEST(AddressedFrame, NoBoardButTheFirstHasAnAddress) {
  LinkState state = Exchange(1);
  try {
    BuildFrame(state, 1);
    ADD_FAILURE() << "a frame was built";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Code(), ErrorCode::kSubscriptOutOfRange);
  }
}

}  // namespace
}  // namespace sorvane
