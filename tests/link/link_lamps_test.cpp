#include "link/link_lamps.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "link/frm_ser.h"
#include "support/link_fixture.h"

namespace sorvane::test {
namespace {

using Images = std::vector<std::pair<int, int>>;  // panel, image

struct LampsTest : ::testing::Test {
  LampsTest() {
    lamps.on_image = [this](int panel, int image) { images.emplace_back(panel, image); };
    lamps.on_text = [this](const std::string& text) { texts.push_back(text); };
  }

  LinkLamps lamps;
  Images images;
  std::vector<std::string> texts;
};

TEST_F(LampsTest, AllAreAtRestAtStartUp) {
  lamps.InitStatusPanels();
  EXPECT_EQ(images, (Images{{2, 1}, {3, 2}, {4, 3}}));
  EXPECT_EQ(lamps.Tag(2), 1);
  EXPECT_EQ(lamps.Tag(3), 2);
  EXPECT_EQ(lamps.Tag(4), 3);
}

TEST_F(LampsTest, LitLampsAreAtRestAgainAfterAnotherStartUp) {
  for (const int code : {4, 5, 6}) lamps.SetLinkLamp(code);
  images.clear();
  lamps.InitStatusPanels();
  EXPECT_EQ(images, (Images{{2, 1}, {3, 2}, {4, 3}}));
  EXPECT_EQ(lamps.Tag(2), 1);
  EXPECT_EQ(lamps.Tag(3), 2);
  EXPECT_EQ(lamps.Tag(4), 3);
}

TEST_F(LampsTest, KeepTheirStateWithoutAStatusBar) {
  lamps.on_image = nullptr;
  lamps.on_text = nullptr;
  lamps.InitStatusPanels();
  lamps.SetLinkLamp(6);
  lamps.SetText("x");
  EXPECT_EQ(lamps.Tag(4), 6);
}

TEST_F(LampsTest, EachCodeShowsItsImageInItsPanel) {
  const Images expected = {{2, 4}, {3, 5}, {4, 6}, {2, 1}, {3, 2}, {4, 3}};
  for (const auto& [panel, image] : expected) {
    lamps.SetLinkLamp(image);
    EXPECT_EQ(lamps.Tag(panel), image);
  }
  EXPECT_EQ(images, expected);
}

TEST_F(LampsTest, TheCodeThatAPanelShowsChangesNothing) {
  lamps.SetLinkLamp(4);
  lamps.SetLinkLamp(4);
  EXPECT_EQ(images, (Images{{2, 4}}));
}

TEST_F(LampsTest, OtherCodesDoNothing) {
  for (const int code : {0, 7, -1, 100}) lamps.SetLinkLamp(code);
  EXPECT_EQ(images, Images{});
}

TEST_F(LampsTest, ATextIsClearedOnlyIfThereIsOne) {
  lamps.ClearText();
  EXPECT_TRUE(texts.empty());
  lamps.SetText("x");
  lamps.ClearText();
  lamps.ClearText();
  EXPECT_EQ(texts, (std::vector<std::string>{"x", ""}));
}

// The lamps in the course of exchanges. Two records that can be read, two bytes each.
struct LampsOnLine : ::testing::Test {
  LampsOnLine() {
    link.Connect();
    link.board.SwitchOff();
    link.clock.Advance(1000);
    link.access.WatchParameter(1);
    link.Tick();
  }

  void ExpectLamps(int transmit, int receive, int error) {
    EXPECT_EQ(link.lamps.Tag(2), transmit);
    EXPECT_EQ(link.lamps.Tag(3), receive);
    EXPECT_EQ(link.lamps.Tag(4), error);
  }

  Link link{PlainRows(3)};
};

TEST_F(LampsOnLine, AFrameLightsTheTransmitLampForHalfASecond) {
  ExpectLamps(4, 2, 3);
  link.clock.Advance(499);
  ExpectLamps(4, 2, 3);
  link.clock.Advance(1);
  ExpectLamps(1, 2, 3);
}

TEST_F(LampsOnLine, TheHoldOfTheTransmitLampRunsOnce) {
  const int armed = link.clock.Armed();
  link.clock.Advance(499);
  EXPECT_EQ(link.clock.Armed(), armed);
  link.clock.Advance(1);
  EXPECT_EQ(link.clock.Armed(), armed - 1);
}

TEST_F(LampsOnLine, EveryFrameHoldsTheTransmitLampAnew) {
  link.access.WatchParameter(2);
  link.clock.Advance(30);
  link.board.Reply({44, 1, 45});
  link.clock.Advance(10);
  ASSERT_EQ(link.wire.Frames().size(), 2U);
  link.clock.Advance(499);
  ExpectLamps(4, 2, 3);
  link.clock.Advance(1);
  EXPECT_EQ(link.lamps.Tag(2), 1);
}

TEST_F(LampsOnLine, AReplyLightsTheReceiveLampForHalfASecond) {
  link.clock.Advance(10);
  link.board.Reply({44, 1, 45});
  ExpectLamps(4, 5, 3);
  link.clock.Advance(499);
  ExpectLamps(1, 5, 3);
  link.clock.Advance(1);
  ExpectLamps(1, 2, 3);
}

TEST_F(LampsOnLine, EveryReplyHoldsTheReceiveLampAnew) {
  link.access.WatchParameter(2);
  link.board.Reply({44, 1, 45});
  link.Tick();
  link.clock.Advance(300);
  link.board.Reply({44, 1, 45});
  link.clock.Advance(499);
  ExpectLamps(1, 5, 3);
  link.clock.Advance(1);
  ExpectLamps(1, 2, 3);
}

TEST_F(LampsOnLine, ABadReplyLightsTheErrorLampUntilTheReceiveLampGoesOut) {
  link.board.Reply({44, 1, 46});
  ExpectLamps(4, 5, 6);
  link.clock.Advance(499);
  ExpectLamps(4, 5, 6);
  link.clock.Advance(1);
  ExpectLamps(1, 2, 3);
}

TEST_F(LampsOnLine, AGoodReplyPutsTheErrorLampOut) {
  link.board.Reply({44, 1, 46});
  link.board.Reply({44, 1, 45});
  ExpectLamps(4, 5, 3);
}

TEST_F(LampsOnLine, ATimeoutLightsTheErrorLampAndItStays) {
  link.clock.Advance(999);
  ExpectLamps(1, 2, 3);
  link.clock.Advance(1);
  // The line is handed back, and the tick of the same instant sends the next frame.
  ExpectLamps(4, 2, 6);
  link.clock.Advance(900);
  ExpectLamps(1, 2, 6);
}

TEST_F(LampsOnLine, AReceiveLampThatAnUnloadLeftLitGoesOutAtTheNextTimeout) {
  link.board.Reply({44, 1, 45});
  link.ser.Unload();
  link.clock.Advance(2000);
  EXPECT_EQ(link.lamps.Tag(3), 5);
  link.Load();
  link.clock.Advance(999);
  EXPECT_EQ(link.lamps.Tag(3), 5);
  link.clock.Advance(1);
  EXPECT_EQ(link.lamps.Tag(3), 2);
}

TEST_F(LampsOnLine, AReplyEmptiesTheTextPanel) {
  std::vector<std::string> texts;
  link.lamps.SetText("x");
  link.lamps.on_text = [&](const std::string& text) { texts.push_back(text); };
  link.board.Reply({44, 1, 45});
  EXPECT_EQ(texts, (std::vector<std::string>{""}));
}

}  // namespace
}  // namespace sorvane::test
