#include "pages/field_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "pages/page_tests.h"
#include "shell/controls/tab_pages.h"

namespace sorvane::test {
namespace {

// A name for a case that GoogleTest takes: "FrmSconti_Text1_3_".
std::string CaseName(const std::string& form, const std::string& control) {
  std::string name = form + "_" + control;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
  return name;
}

// A page over a board with ten selections, two decimals, bit 5 of the options, names of ten
// languages, and a ninth of May. Of the payment system it says nothing, so that all fields are
// open.
class TableTest : public PageTest {
 protected:
  TableTest(const char* form, const char* entry, Separators separators)
      : PageTest(form, entry, separators), form_(form) {
    program.link.SetBoardNumber(2, 10);
    program.link.SetBoardNumber(3, 32);
    program.link.SetBoardNumber(22, 2);
    program.link.SetBoardNumber(56, 9);
    program.link.SetBoardNumber(57, 5);
    for (int i = 0; i < 10; ++i) {
      const std::string name = "Nome lingua n. " + std::to_string(i);
      program.link.SetBoard(12 + i, Bytes(name.begin(), name.end()));
    }
  }

  // The board comes to hold another byte, and says so.
  void Reply(int parameter, int byte) {
    program.link.SetBoardNumber(parameter, static_cast<std::uint32_t>(byte));
    AskAgain(parameter);
  }

  void BringToFront(const char* tabs, int tab) {
    if (tabs != nullptr) program.Find<TabPages>(form_, tabs).SetFront(tab);
  }

  // Puts a text in the place of what a field holds, key by key.
  void Replace(const std::string& field, const QString& text) {
    auto& box = program.Find<QLineEdit>(form_, QString::fromStdString(field));
    ASSERT_TRUE(box.isEnabled()) << field << " is closed";
    QTest::mouseClick(&box, Qt::LeftButton);
    box.selectAll();
    if (text.isEmpty()) {
      QTest::keyClick(&box, Qt::Key_Delete);
    } else {
      QTest::keyClicks(&box, text);
    }
  }

  // The records of a setting hold a value, marked for writing, and no other record is marked.
  void ExpectWritten(int parameter, int mirror, int raw) {
    std::vector<int> pending{parameter};
    if (mirror != 0) pending.push_back(mirror);
    EXPECT_THAT(Pending(), testing::UnorderedElementsAreArray(pending));
    for (const int index : pending) {
      const ParameterRecord& record = program.link.Record(index);
      EXPECT_EQ((std::vector<int>{record.At(8), record.At(9), record.At(10), record.At(11)}),
                (std::vector<int>{raw % 256, raw / 256 % 256, raw / 65536, 0}))
          << "parameter " << index;
    }
  }

  // The frames with which a value goes out, in the order in which the sweep comes to them.
  std::vector<Bytes> Frames(int parameter, int mirror, int raw) {
    std::vector<Bytes> frames{Frame(parameter, raw)};
    if (mirror != 0) {
      frames.insert(mirror < parameter ? frames.begin() : frames.end(), Frame(mirror, raw));
    }
    return frames;
  }

  // The next frames that are sent are the two writes, and no other follows.
  void ExpectSentPair(int parameter, int mirror, int raw) {
    program.link.wire.Forget();
    program.Sweep(30);
    EXPECT_EQ(program.link.wire.Frames(), Frames(parameter, mirror, raw));
    const std::vector<Bytes> frames = Frames(parameter, mirror, raw);
    for (const Bytes& frame : frames) {
      const Bytes value(frame.begin() + 4, frame.end() - 1);
      EXPECT_EQ(program.link.BoardValue(frame[2] * 256 + frame[3]), value);
    }
  }

  const QString form_;

 private:
  Bytes Frame(int parameter, int raw) {
    return WriteFrame(parameter, static_cast<std::uint32_t>(raw),
                      program.link.Record(parameter).At(3) % 16 + 1);
  }
};

struct FieldCase {
  FieldRow row;
  bool comma;
};

std::string NameOf(const testing::TestParamInfo<FieldCase>& info) {
  return CaseName(info.param.row.form, info.param.row.text) + (info.param.comma ? "Comma" : "");
}

void PrintTo(const FieldCase& one, std::ostream* out) { *out << one.row.form << one.row.text; }

// One case for each row that fits; a second with a comma in the locale where that is another text.
template <typename Fits>
std::vector<FieldCase> Cases(const Fits& fits) {
  std::vector<FieldCase> cases;
  for (const FieldRow& row : FieldRows()) {
    if (!fits(row)) continue;
    cases.push_back({row, false});
    const bool differs = std::string(row.value->shown.text) != row.value->shown.text_with_comma;
    if (differs) cases.push_back({row, true});
  }
  return cases;
}

bool HasBar(const FieldRow& row) { return !row.bar.empty(); }
bool IsTyped(const FieldRow& row) { return row.typing == Typing::kTaken; }

class FieldTest : public TableTest, public testing::WithParamInterface<FieldCase> {
 protected:
  FieldTest()
      : TableTest(GetParam().row.form, GetParam().row.entry, GetParam().comma ? kComma : kPoint),
        row_(GetParam().row),
        value_(*row_.value),
        text_(QString::fromStdString(row_.text)),
        bar_(QString::fromStdString(row_.bar)) {
    program.link.SetBoardNumber(row_.shown_by, static_cast<std::uint32_t>(value_.shown.raw));
  }

  // Opens the page and brings the field to the front, ready to be typed into.
  void OpenForUser() {
    Open();
    BringToFront(row_.tabs, row_.tab);
    if (value_.asked_first != 0) AskAgain(value_.asked_first);
  }

  QString Shown() const {
    return GetParam().comma ? value_.shown.text_with_comma : value_.shown.text;
  }
  QString Typed() const {
    return GetParam().comma ? value_.typed.text_with_comma : value_.typed.text;
  }
  int PositionOf(int raw) const { return raw - value_.bar.offset; }

  const FieldRow row_;
  const ValueForm& value_;
  const QString text_;
  const QString bar_;
};

class AnyField : public FieldTest {};
class FieldWithBar : public FieldTest {};
class FieldWithLargeStep : public FieldTest {};
class TypedField : public FieldTest {};
class LimitedField : public FieldTest {};
class LockedField : public FieldTest {};
class FieldOfNoEffect : public FieldTest {};

TEST_P(AnyField, ShowsTheValueOfAReplyAndWritesNothing) {
  Open();
  EXPECT_EQ(Text(text_), Shown());
  EXPECT_EQ(program.Find(form_, text_).property("savedText").toString(),
            row_.shown_by == 58 ? "26" : Shown());
  if (HasBar(row_)) {
    EXPECT_EQ(Position(bar_), PositionOf(value_.shown.raw));
  }
  // The clock is tested with a day 0 and then set right.
  EXPECT_EQ(program.link.board.Writes(), form_ == "FrmOrologio" ? 2 : 0);
  EXPECT_THAT(Pending(), testing::IsEmpty());
}

TEST_P(AnyField, IsEmptyUntilAReplyComes) {
  OpenUnanswered();
  EXPECT_EQ(Text(text_), "");
}

TEST_P(FieldWithBar, HasABarWithTheEndsAndStartOfItsRange) {
  OpenUnanswered();
  EXPECT_EQ(Minimum(bar_), PositionOf(value_.bar.minimum));
  EXPECT_EQ(Maximum(bar_), PositionOf(value_.bar.maximum));
  EXPECT_EQ(Position(bar_), value_.bar.start);
}

TEST_P(FieldWithBar, ASmallStepOfTheBarIsWrittenToBothPlaces) {
  OpenForUser();
  PressFocused(bar_, Qt::Key_Right);
  EXPECT_EQ(Position(bar_), PositionOf(value_.shown.raw + 1));
  EXPECT_EQ(Text(text_), Shown());
  ExpectWritten(row_.parameter, row_.mirror, value_.shown.raw + 1);
  ExpectSentPair(row_.parameter, row_.mirror, value_.shown.raw + 1);
}

TEST_P(FieldWithBar, ASmallStepBackIsWrittenToBothPlaces) {
  OpenForUser();
  PressFocused(bar_, Qt::Key_Left);
  EXPECT_EQ(Text(text_), Shown());
  ExpectWritten(row_.parameter, row_.mirror, value_.shown.raw - 1);
}

TEST_P(FieldWithLargeStep, ALargeStepOfTheBarIsOfItsSize) {
  OpenForUser();
  PressFocused(bar_, Qt::Key_PageDown);
  EXPECT_EQ(Position(bar_), PositionOf(value_.shown.raw + value_.bar.large_step));
  ExpectWritten(row_.parameter, row_.mirror, value_.shown.raw + value_.bar.large_step);
}

TEST_P(TypedField, WritesATypedValueToBothPlaces) {
  OpenForUser();
  Replace(row_.text, Typed());
  Press(text_, Qt::Key_Return);
  EXPECT_TRUE(program.Find(form_, text_).hasFocus());
  if (HasBar(row_)) {
    EXPECT_EQ(Position(bar_), PositionOf(value_.typed.raw));
  }
  if (row_.waits) {
    EXPECT_THAT(Pending(), testing::IsEmpty());
  } else {
    ExpectWritten(row_.parameter, row_.mirror, value_.typed.raw);
  }
  ExpectSentPair(row_.parameter, row_.mirror, value_.typed.raw);
  EXPECT_TRUE(WasSilent());
}

TEST_P(TypedField, RestoresWhatItShowedAfterARefusedTextAndWritesNothing) {
  OpenForUser();
  for (const char* refused : value_.refused) {
    SCOPED_TRACE(refused);
    Replace(row_.text, refused);
    Press(text_, Qt::Key_Return);
    EXPECT_EQ(Text(text_), Shown());
    EXPECT_TRUE(IsWhite(text_));
    EXPECT_TRUE(program.Find(form_, text_).hasFocus());
    if (HasBar(row_)) {
      EXPECT_EQ(Position(bar_), PositionOf(value_.shown.raw));
    }
    ExpectNothingSent();
  }
  EXPECT_TRUE(WasSilent());
}

// One that the focus has emptied, and one in which something is being typed.
TEST_P(TypedField, ShowsAReplyUnderTheFocus) {
  OpenForUser();
  Click(text_);
  AskAgain(row_.shown_by);
  EXPECT_EQ(Text(text_), Shown());
  Replace(row_.text, "1");
  AskAgain(row_.shown_by);
  EXPECT_EQ(Text(text_), Shown());
  EXPECT_TRUE(program.Find(form_, text_).hasFocus());
  EXPECT_THAT(Pending(), testing::IsEmpty());
}

TEST_P(LimitedField, TakesAsManyCharactersAsItsLimit) {
  OpenForUser();
  Replace(row_.text, "1234567890123");
  EXPECT_EQ(Text(text_), QString("1234567890123").left(value_.limit));
}

TEST_P(LockedField, KeepsItsTextWhenTheUserTypes) {
  OpenForUser();
  Replace(row_.text, "5");
  EXPECT_EQ(Text(text_), Shown());
  ExpectNothingSent();
}

TEST_P(FieldOfNoEffect, KeepsATypedTextUntilTheNextReplyAndWritesNothing) {
  OpenForUser();
  Replace(row_.text, "abc");
  Press(text_, Qt::Key_Return);
  EXPECT_EQ(Text(text_), "abc");
  EXPECT_TRUE(WasSilent());
  ExpectNothingSent();
  AskAgain(row_.shown_by);
  EXPECT_EQ(Text(text_), Shown());
}

INSTANTIATE_TEST_SUITE_P(Table, AnyField,
                         testing::ValuesIn(Cases([](const FieldRow&) { return true; })), NameOf);
INSTANTIATE_TEST_SUITE_P(Table, FieldWithBar, testing::ValuesIn(Cases(HasBar)), NameOf);
INSTANTIATE_TEST_SUITE_P(Table, FieldWithLargeStep,
                         testing::ValuesIn(Cases([](const FieldRow& row) {
                           return row.value->bar.large_step != 0;
                         })),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Table, TypedField, testing::ValuesIn(Cases(IsTyped)), NameOf);
INSTANTIATE_TEST_SUITE_P(Table, LimitedField, testing::ValuesIn(Cases([](const FieldRow& row) {
                           return row.value->limit != 0;
                         })),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Table, LockedField, testing::ValuesIn(Cases([](const FieldRow& row) {
                           return row.typing == Typing::kLocked;
                         })),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Table, FieldOfNoEffect, testing::ValuesIn(Cases([](const FieldRow& row) {
                           return row.typing == Typing::kGoesNowhere;
                         })),
                         NameOf);

template <typename Row>
std::string ControlName(const testing::TestParamInfo<Row>& info) {
  return CaseName(info.param.form, info.param.control);
}

// A control that isn't a field, by a row of its table.
template <typename Row>
class OneControl : public TableTest, public testing::WithParamInterface<Row> {
 protected:
  OneControl()
      : TableTest(this->GetParam().form, this->GetParam().entry, kPoint),
        row_(this->GetParam()),
        control_(QString::fromStdString(row_.control)) {}

  void OpenWith(int byte) {
    program.link.SetBoardNumber(row_.parameter, static_cast<std::uint32_t>(byte));
    Open();
    BringToFront(row_.tabs, row_.tab);
  }

  const Row row_;
  const QString control_;
};

class AnySwitch : public OneControl<SwitchRow> {};

TEST_P(AnySwitch, FollowsTheRepliesAndWritesNothing) {
  OpenWith(row_.off);
  EXPECT_FALSE(IsOn(control_));
  Reply(row_.parameter, row_.on);
  EXPECT_TRUE(IsOn(control_));
  Reply(row_.parameter, row_.off);
  EXPECT_FALSE(IsOn(control_));
  EXPECT_EQ(program.link.board.Writes(), 0);
}

TEST_P(AnySwitch, IsOffUntilAReplyComes) {
  OpenUnanswered();
  EXPECT_FALSE(IsOn(control_));
}

TEST_P(AnySwitch, TurnedOnIsWrittenToBothPlaces) {
  OpenWith(row_.off);
  PressFocused(control_, Qt::Key_Space);
  EXPECT_TRUE(IsOn(control_));
  ExpectWritten(row_.parameter, row_.mirror, row_.written_on);
  ExpectSentPair(row_.parameter, row_.mirror, row_.written_on);
  EXPECT_TRUE(IsOn(control_));
}

TEST_P(AnySwitch, TurnedOffIsWrittenToBothPlaces) {
  OpenWith(row_.on);
  PressFocused(control_, Qt::Key_Space);
  EXPECT_FALSE(IsOn(control_));
  ExpectWritten(row_.parameter, row_.mirror, row_.written_off);
  ExpectSentPair(row_.parameter, row_.mirror, row_.written_off);
  EXPECT_FALSE(IsOn(control_));
}

INSTANTIATE_TEST_SUITE_P(Table, AnySwitch, testing::ValuesIn(SwitchRows()), ControlName<SwitchRow>);

class AnySlider : public OneControl<SliderRow> {};

TEST_P(AnySlider, GoesToThePositionOfTheReplyAndWritesNothing) {
  OpenWith(row_.from);
  EXPECT_NE(Position(control_), row_.position);
  const int writes = program.link.board.Writes();
  Reply(row_.parameter, row_.reply);
  EXPECT_EQ(Position(control_), row_.position);
  EXPECT_EQ(program.link.board.Writes(), writes);
}

TEST_P(AnySlider, MovedByTheUserIsWrittenToBothPlaces) {
  OpenWith(row_.from);
  PressFocused(control_, Position(control_) < row_.position ? Qt::Key_Right : Qt::Key_Left);
  EXPECT_EQ(Position(control_), row_.position);
  ExpectWritten(row_.parameter, row_.mirror, row_.written);
  ExpectSentPair(row_.parameter, row_.mirror, row_.written);
  EXPECT_EQ(Position(control_), row_.position);
}

std::string PositionName(const testing::TestParamInfo<SliderRow>& info) {
  return ControlName(info) + "_At" + std::to_string(info.param.position);
}

INSTANTIATE_TEST_SUITE_P(Table, AnySlider, testing::ValuesIn(SliderRows()), PositionName);

}  // namespace
}  // namespace sorvane::test
