#include <gtest/gtest.h>

#include <QWidget>
#include <map>
#include <memory>
#include <string>
#include <tuple>

#include "faults/page_models.h"
#include "faults/rig.h"
#include "link/frm_ser.h"
#include "shell/program.h"

namespace sorvane::test::faults {
namespace {

// All records of a machine; the number of decimals, the options and the year are polled.
std::vector<IndexRecord> Rows() {
  std::vector<IndexRecord> rows = MachineRows();
  rows[21].divider = 1;
  rows[2].divider = 4;
  rows[57].divider = 2;
  return rows;
}

// A page of the program beside its model.
template <typename Model>
class PageBesideModel {
 public:
  PageBesideModel(Program& program, Rig& rig, const char* form, const char* entry)
      : model(rig), program_(program), form_(form), entry_(entry) {}

  void Open() {
    program_.Choose(entry_);
    model.Open();
    for (const auto& [name, control] : model.Controls()) {
      widgets_[name] = &program_.Find(form_, QString::fromStdString(name));
    }
  }
  std::string Differences() const {
    std::string words;
    const auto differ = [&](const std::string& what, const auto& is, const auto& expected) {
      if (is == expected) return;
      words += "  " + form_.toStdString() + " " + what + ": " + ::testing::PrintToString(is) +
               ", not " + ::testing::PrintToString(expected) + "\n";
    };
    for (const auto& [name, control] : model.Controls()) {
      const QWidget& widget = *widgets_.at(name);
      differ(name + " open", widget.isEnabled(), control.open);
      if (control.text) {
        differ(name, widget.property("text").toString().toStdString(), *control.text);
      }
      if (control.position) differ(name, widget.property("position").toInt(), *control.position);
    }
    return words;
  }

  Model model;

 private:
  Program& program_;
  const QString form_;
  const QString entry_;
  std::map<std::string, QWidget*> widgets_;
};

struct Folder {
  explicit Folder(const Program& program) {
    program.link.folder.WriteFile("W0309AA00.inx", SecondLevelBytes(Rows()));
  }
};

constexpr const char* kFaults[] = {
    "silent once",    "silent",          "wrong checksum 2", "wrong checksum 5",
    "wrong checksum", "short reply",     "extra byte",       "slow",
    "late reply 1",   "refuses day 0 1", "refuses day 0",    "unplugged",
};
// When the fault begins: before the pages open, while they fill, and before, within and after a
// write.
constexpr int kMoments = 5;

class Pages : public testing::Test {
 protected:
  // Connects the program and its models; no page is open yet.
  void SetUp() override {
    rig_.on_model_notice = [this](const LinkModel::Notice& notice) {
      clock_.model.Take(notice);
      prices_.model.Take(notice);
    };
    rig_.more_differences = [this] { return clock_.Differences() + prices_.Differences(); };
    program_.Start();
    rig_.model.LoadAtStart();
    program_.link.ser.reply_notice = [this,
                                      tell = program_.link.ser.reply_notice](const Reply& reply) {
      program_.link.notices.push_back(reply);
      tell(reply);
    };
    program_.Choose("mnuConnect");
    rig_.FollowConnect();
    ASSERT_TRUE(rig_.RunUntil([&] { return rig_.model.At() == LinkModel::Stage::kStanding; }));
  }
  void TypePrice(int row, const char* text) {
    program_.Type("FrmPrezzi", QString("Text1(%1)").arg(row), text);
    prices_.model.Type(row, text);
    rig_.Compare();
  }
  QString Price(const char* field) { return program_.Text("FrmPrezzi", field); }

  Program program_;
  const Folder folder_{program_};
  Rig rig_{program_.link, Rows(), Rig::Wire::kGathering,
           [this](const auto& run) { program_.gate.Run(run); }};
  PageBesideModel<ClockModel> clock_{program_, rig_, "FrmOrologio", "MnuOrologio"};
  PageBesideModel<PricesModel> prices_{program_, rig_, "FrmPrezzi", "MnuPrezzi"};
};

class FaultyPages : public Pages, public testing::WithParamInterface<std::tuple<const char*, int>> {
 protected:
  void Begin(int moment) {
    if (moment == std::get<1>(GetParam())) rig_.Fault(std::get<0>(GetParam()));
  }
};

TEST_P(FaultyPages, ShowWhatTheirRulesSay) {
  Begin(0);
  clock_.Open();
  rig_.Run(610);
  Begin(1);
  prices_.Open();
  rig_.Run(3000);
  Begin(2);
  // Where the line was in order so far, the page is open for typing.
  EXPECT_TRUE(std::get<1>(GetParam()) < 2 || prices_.model.IsRowOpen(2));
  if (prices_.model.IsRowOpen(2)) TypePrice(2, "12.5");
  rig_.RunUntil([&] { return rig_.model.Position() == 25 && !rig_.model.Idle(); }, 300);
  rig_.Run(15);
  Begin(3);
  rig_.Run(100);
  Begin(4);
  rig_.Run(4000);
  rig_.Fault("none");
  rig_.Run(9000);
  ASSERT_TRUE(rig_.RunUntil([&] { return rig_.Quiet(); }));
  rig_.ledger.Close();
  rig_.Compare();
  EXPECT_TRUE(program_.reports.empty()) << program_.reports.front();
  EXPECT_TRUE(program_.link.dialogs.Shown().empty());
  for (const int parameter : {22, 23, 32, 42, 54, 56, 58}) {
    EXPECT_TRUE(program_.link.access.IsParameterFresh(parameter, 0)) << parameter;
  }
}

TEST_F(Pages, ShowATypedPriceOnceTheBoardHasIt) {
  prices_.Open();
  rig_.Run(3000);
  TypePrice(2, "12.5");
  rig_.Run(500);
  EXPECT_EQ(Price("Text1(2)"), "12.50");
  EXPECT_EQ(rig_.board.Contents().Number(simulator::Parameter(25)), 1250U);
}

TEST_F(Pages, ShowTheIndexFilesPricesBeforeTheFirstAnswer) {
  prices_.Open();
  ASSERT_TRUE(rig_.RunUntil([&] { return rig_.model.Of(22).fresh; }));
  rig_.Fault("silent");
  rig_.Run(5000);
  EXPECT_EQ(Price("Text1(2)"), "0.00");
  EXPECT_EQ(rig_.board.Contents().Number(simulator::Parameter(25)), 150U);
  EXPECT_FALSE(program_.Find("FrmPrezzi", "Text1(2)").isEnabled());
}

// The late answer for the day, 31, is taken for the month's.
TEST(LateAnswers, CanBringAMonthThatEndsTheProgram) {
  Program program;
  for (const auto& [parameter, value] : {std::pair{56, 31U}, {57, 3U}, {58, 26U}}) {
    program.link.SetBoardNumber(parameter, value);
  }
  program.Connect();
  program.Open("MnuOrologio");
  EXPECT_EQ(program.Find("FrmOrologio", "Label0").property("text").toString(), "31/03/2026");
  program.link.board.SetDelay(1200);
  for (const int parameter : {56, 57}) {
    program.link.access.WatchParameter(parameter);
    program.link.access.UnwatchParameter(parameter);
  }
  program.Sweep();
  EXPECT_EQ(program.reports,
            std::vector<std::string>{"Run-time error '9':\n\nSubscript out of range"});
}

INSTANTIATE_TEST_SUITE_P(Faults, FaultyPages,
                         testing::Combine(testing::ValuesIn(kFaults), testing::Range(0, kMoments)),
                         [](const auto& one) {
                           std::string name;
                           for (const char c : std::string(std::get<0>(one.param))) {
                             if (c != ' ') name += c;
                           }
                           return name + "_" + std::to_string(std::get<1>(one.param));
                         });

}  // namespace
}  // namespace sorvane::test::faults
