#include <gtest/gtest.h>

#include <random>
#include <string>

#include "faults/rig.h"

namespace sorvane::test::faults {
namespace {

// Exchanges in all; fewer in builds that check themselves as they run.
constexpr std::int64_t kExchanges = SORVANE_ENDURANCE_EXCHANGES;
constexpr unsigned kSeeds = 10;
constexpr int kRecords = 60;
constexpr int kTexts[] = {12, 13, 14};
constexpr std::uint8_t kDividers[] = {0, 0, 0, 0, 0, 1, 1, 2, 4, 0x23, 0x30};

// What six pages hold; some parameters stand on several.
constexpr int kPages[6][2] = {{1, 9}, {10, 16}, {15, 30}, {30, 45}, {44, 56}, {55, 60}};

std::vector<IndexRecord> Rows() {
  std::vector<IndexRecord> rows = PlainRows(kRecords);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].command = static_cast<std::uint8_t>(i % 7 == 0 ? 3 : i % 3 == 0 ? 0 : 1);
    rows[i].divider = kDividers[i % std::size(kDividers)];
  }
  for (const int text : kTexts) rows[static_cast<std::size_t>(text - 1)].command = 15;
  return rows;
}

// A technician who opens pages, types and closes them again, at a board and a cable with troubles
// of all kinds.
class Endurance {
 public:
  Endurance(unsigned seed, Rig::Wire wire) : random_(seed), rig_(link_, Rows(), wire) {}

  void Play(std::int64_t exchanges) {
    rig_.CompareTableEvery(100);
    rig_.Connect();
    ASSERT_TRUE(rig_.RunUntil([&] { return rig_.model.At() == LinkModel::Stage::kStanding; }));
    while (rig_.Frames() < exchanges && rig_.IsWell()) {
      Step();
      rig_.Run(Random(4) == 0 ? Random(1500) : Random(90));
    }
    rig_.Fault("none");
    ASSERT_TRUE(rig_.GetInStep());
    rig_.Run(20000);
    rig_.ledger.Close();
    rig_.Compare();
  }
  const Rig& Played() const { return rig_; }

 private:
  int Random(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  void Step() {
    const int number = Random(100);
    if (number < 40) {
      Write();
    } else if (number < 60) {
      TurnPage(static_cast<std::size_t>(Random(6)));
    } else if (number < 75) {
      ChangeBoard();
    } else {
      ChangeFault();
    }
  }

  // Of the small numbers some are typed twice, and many have the checksums of others.
  void Write() {
    const int parameter = Random(kRecords) + 1;
    if (rig_.model.Of(parameter).Length() > 4) {
      rig_.WriteText(parameter, std::string(static_cast<std::size_t>(Random(17)), 'a'));
    } else {
      rig_.Write(parameter, Random(2) == 0 ? random_() : static_cast<std::uint32_t>(Random(4)));
    }
  }

  void TurnPage(std::size_t page) {
    open_[page] = !open_[page];
    for (int i = kPages[page][0]; i <= kPages[page][1]; ++i) {
      if (open_[page]) {
        rig_.Watch(i);
      } else {
        rig_.Unwatch(i);
      }
    }
  }

  void ChangeBoard() {
    const int parameter = Random(kRecords) + 1;
    Bytes value(rig_.model.Of(parameter).Length());
    for (std::uint8_t& byte : value) byte = static_cast<std::uint8_t>(Random(4));
    rig_.SetBoard(parameter, value);
  }

  // Half the time the line is in order.
  void ChangeFault() {
    constexpr const char* kFaults[] = {"silent", "wrong checksum", "short reply",  "extra byte",
                                       "slow",   "late reply",     "refuses day 0"};
    const int number = Random(40);
    if (number >= 22) {
      rig_.Fault("none");
    } else if (number == 0) {
      rig_.Fault("unplugged");
    } else {
      rig_.Fault(kFaults[number % 7] + (" " + std::to_string(Random(6) + 1)));
    }
  }

  std::mt19937 random_;
  Link link_{Rows()};
  Rig rig_;
  std::array<bool, 6> open_{};
};

TEST(Endurance, LeavesNothingUnexplained) {
  for (unsigned seed = 1; seed <= kSeeds; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Endurance endurance(seed, seed % 2 == 0 ? Rig::Wire::kByteByByte : Rig::Wire::kGathering);
    endurance.Play(kExchanges / kSeeds);
    if (testing::Test::HasFailure()) return;
    EXPECT_GE(endurance.Played().Frames(), kExchanges / kSeeds);
  }
}

}  // namespace
}  // namespace sorvane::test::faults
