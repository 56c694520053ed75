#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

#include "board/errors.h"
#include "link/frm_ser.h"
#include "support/link_fixture.h"

namespace sorvane::test {
namespace {

class FailingTimer : public Timer {
 public:
  explicit FailingTimer(ErrorCode code) : code_(code) {}
  void Enable() override { throw RuntimeError(code_); }
  void Disable() override {}

 private:
  ErrorCode code_;
};

class FaultyTimer : public Timer {
 public:
  void Enable() override { throw InternalFault("a timer out of order"); }
  void Disable() override {}
};

// A connection that goes well up to its last step: the tick of the sweep can't be enabled.
Link::Setup FailingTick(ErrorCode code) {
  Link::Setup setup;
  setup.parameters = PlainRows(3);
  setup.timers = [code](const TimerMaker& usual) -> TimerMaker {
    return [code, usual](std::chrono::milliseconds interval,
                         std::function<void()> handler) -> std::unique_ptr<Timer> {
      if (interval.count() == 40) return std::make_unique<FailingTimer>(code);
      return usual(interval, std::move(handler));
    };
  };
  return setup;
}

void ExpectTheEnd(const Link::Setup& setup, const std::string& text) {
  Link link(setup);
  link.Load();
  link.clock.Advance(100);
  // The number in the title is that of no error, with a blank for its sign.
  link.dialogs.Expect(text, "ERROR  0", 16);
  EXPECT_EQ(link.ended, 0);
  link.dialogs.Answer(Answer::kOk);
  EXPECT_EQ(link.ended, 1);
  EXPECT_EQ(link.loaded, 0);
}

TEST(LoadHandler, AMissingFileBehindALoadedTableIsANewBoard) {
  ExpectTheEnd(FailingTick(ErrorCode::kFileNotFound), "New Board\nOld Program");
}

TEST(LoadHandler, AMissingFileBehindAnEmptyTableCallsForAnInstallation) {
  Link::Setup setup = FailingTick(ErrorCode::kFileNotFound);
  setup.parameters.clear();
  ExpectTheEnd(setup, "Reinstall Program");
}

TEST(LoadHandler, AnyOtherErrorCallsForAnInstallation) {
  ExpectTheEnd(FailingTick(ErrorCode::kOverflow), "Reinstall Program");
  ExpectTheEnd(FailingTick(ErrorCode::kPort), "Reinstall Program");
}

TEST(LoadHandler, AFaultOfTheProgramItselfIsNoMatterOfTheFiles) {
  Link::Setup setup;
  setup.timers = [](const TimerMaker& usual) -> TimerMaker {
    return [usual](std::chrono::milliseconds interval,
                   std::function<void()> handler) -> std::unique_ptr<Timer> {
      if (interval.count() == 2000) return std::make_unique<FaultyTimer>();
      return usual(interval, std::move(handler));
    };
  };
  Link link(setup);
  link.Load();
  EXPECT_THROW(link.clock.Advance(100), InternalFault);
  link.dialogs.ExpectNone();
}

TEST(LoadHandler, AFileThatIsThereAlreadyLetsTheLoadGoOn) {
  Link link(FailingTick(ErrorCode::kFileAlreadyExists));
  link.Load();
  link.clock.Advance(100);
  link.dialogs.ExpectNone();
  EXPECT_EQ(link.loaded, 1);
  EXPECT_EQ(link.ended, 0);
  EXPECT_TRUE(link.ser.State().LinkIdle);
  EXPECT_FALSE(link.ser.State().Identifying);
}

}  // namespace
}  // namespace sorvane::test
