#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTimeZone>
#include <sstream>

#include "cli/audit/audit_fixture.h"
#include "cli/commands.h"
#include "cli/snapshot_file.h"
#include "session/session_rig.h"

namespace sorvane::test {
namespace {

using namespace sorvane::cli;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr int kTries = 3;  // for each value

// Command lines against the machine of the right answers, at the other end of a line.
class AuditCommandTest : public testing::Test {
 protected:
  AuditCommandTest() {
    for (const HeldValue& held : machine_.values) Load(held);
    line_.board.Set(Conversation::Place(22), {2});
    line_.wire.Close();
    line_.board.SetDelay(0);
  }

  void Load(const HeldValue& held) { line_.board.Set(Conversation::Place(held.number), held.raw); }

  int Type(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "sorvane-cli");
    int exit_code = 0;
    const auto request =
        ReadRequest(static_cast<int>(arguments.size()), arguments.data(), "1.0.0", exit_code);
    if (!request) return exit_code;
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    Console console({.in = in, .out = out, .err = err}, false);
    const Surroundings around{
        .port = line_.wire,
        .wait =
            [this, wait = WaitOn(line_.clock)](std::chrono::milliseconds limit,
                                               const std::function<bool()>& done) {
              if (Frames() == silent_after_) line_.board.StaySilent(kTries);
              return wait(limit, done);
            },
        .now =
            [] {
              return QDateTime({2026, 11, 22}, {13, 30}, QTimeZone(3600));
            },
        .utc_now = [] { return std::chrono::sys_seconds(std::chrono::seconds(1795350600)); },
        .interrupted = [] { return false; },
        .list_ports = [] { return std::vector<ListedPort>(); },
        .port_trouble = [] { return std::string(); },
        .port_name = "COM1",
        .index_folder = line_.folder.Path(),
        .copies_folder = {},
        .program = "sorvane-cli 1.0.0"};
    const int code = static_cast<int>(RunCommand({*request, around, TheCatalogue(), console}));
    out_ = out.str();
    err_ = err.str();
    return code;
  }

  int Frames() const { return static_cast<int>(line_.wire.Frames().size()); }

  std::string Scratch(const std::string& name) const {
    return (line_.folder.Path() / name).string();
  }

  Snapshot machine_ = Machine();
  Conversation line_{MachineRows()};
  const std::string file_ = GoldenFile("machine.json").string();
  const std::string before_ = GoldenFile("before.json").string();
  int silent_after_ = -1;  // frames, for as long as a value is asked for
  std::string out_;
  std::string err_;
};

TEST_F(AuditCommandTest, BoardAndSnapshotTellTheSame) {
  for (const char* format : {"text", "csv", "json", "dts", "html"}) {
    ASSERT_EQ(Type({"audit", file_.c_str(), "--format", format}), 0) << format;
    EXPECT_EQ(err_, "");
    std::string expected = out_;
    ASSERT_EQ(Type({"audit", "--format", format}), 0) << format << err_;
    EXPECT_EQ(err_, "");
    EXPECT_EQ(out_, expected) << format;
  }
}

TEST_F(AuditCommandTest, TextIsWhatIsShownUnlessAFormatIsNamed) {
  ASSERT_EQ(Type({"audit", file_.c_str()}), 0);
  ExpectGolden("audit.txt", out_);
}

TEST_F(AuditCommandTest, JsonOptionIsTheJsonFormat) {
  ASSERT_EQ(Type({"audit", file_.c_str(), "--json"}), 0);
  ExpectGolden("audit.json", out_);
}

TEST_F(AuditCommandTest, OtherFormatOrLanguageIsAWrongCommandLine) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(Type({"audit", "--format", "pdf"}), 2);
  EXPECT_EQ(Type({"audit", "--format", ""}), 2);
  EXPECT_EQ(Type({"audit", "--language", "de"}), 2);
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              HasSubstr("pdf is none of text csv json dts html"));
}

TEST_F(AuditCommandTest, ItalianPageHasACommaInItsAmounts) {
  ASSERT_EQ(Type({"audit", file_.c_str(), "--format", "html", "--language", "it", "--since",
                  before_.c_str()}),
            0);
  ExpectGolden("audit-since.it.html", out_);
}

TEST_F(AuditCommandTest, CommaIsForAmountsOfAnyFormatButJsonAndDts) {
  ASSERT_EQ(Type({"audit", file_.c_str(), "--comma", "--since", before_.c_str()}), 0);
  ExpectGolden("audit-since.txt", out_);
  ASSERT_EQ(Type({"audit", file_.c_str(), "--comma", "--format", "html"}), 0);
  EXPECT_THAT(out_, HasSubstr("3393,30"));
  ASSERT_EQ(Type({"audit", file_.c_str(), "--comma", "--json"}), 0);
  ExpectGolden("audit.json", out_);
}

TEST_F(AuditCommandTest, ResultGoesIntoTheFileThatIsNamed) {
  const std::string file = Scratch("audit.dts");
  ASSERT_EQ(Type({"-o", file.c_str(), "audit", file_.c_str(), "--format", "dts"}), 0);
  EXPECT_EQ(out_, "");
  ExpectGolden("audit.dts", FileText(file));
}

TEST_F(AuditCommandTest, NotesStandInTheResultWhereItHasWords) {
  const std::string note = "lower than at the earlier visit, so reset in between: ";
  for (const char* format : {"text", "json", "html"}) {
    ASSERT_EQ(Type({"audit", file_.c_str(), "--since", before_.c_str(), "--format", format}), 0);
    EXPECT_THAT(out_, HasSubstr(note)) << format;
    EXPECT_EQ(err_, "") << format;
  }
  for (const char* format : {"csv", "dts"}) {
    ASSERT_EQ(Type({"audit", file_.c_str(), "--since", before_.c_str(), "--format", format}), 0);
    EXPECT_THAT(out_, Not(HasSubstr(note))) << format;
    EXPECT_THAT(err_, StartsWith(note)) << format;
  }
}

TEST_F(AuditCommandTest, EarlierSnapshotOfAnotherMachineIsRefused) {
  Snapshot other = MonthBefore();
  other.machine = 7;
  Put(other, "machine.number", 7);
  const std::string file = Scratch("other.json");
  WriteOwnFile(file, SnapshotText(other));
  EXPECT_EQ(Type({"audit", "--since", file.c_str()}), 4);
  EXPECT_EQ(out_, "");
  EXPECT_THAT(err_, HasSubstr("of machine 7, and not of machine 100234"));
}

TEST_F(AuditCommandTest, EarlierSnapshotThatCannotBeReadIsAskedForBeforeTheBoard) {
  EXPECT_EQ(Type({"audit", "--since", Scratch("none.json").c_str()}), 2);
  EXPECT_EQ(line_.board.Reads(), 0);
}

TEST_F(AuditCommandTest, BoardIsNotWrittenTo) {
  ASSERT_EQ(Type({"audit", "--format", "html"}), 0);
  EXPECT_EQ(line_.board.Writes(), 0);
  EXPECT_GT(line_.board.Reads(), 300);
}

TEST_F(AuditCommandTest, SettingsAreReadForThePageAlone) {
  ASSERT_EQ(Type({"audit", "--format", "html"}), 0);
  const int page = line_.board.Reads();
  ASSERT_EQ(Type({"audit"}), 0);
  EXPECT_LT(line_.board.Reads() - page, page - 70);
}

TEST_F(AuditCommandTest, BoardThatStaysSilentIsNoAnswer) {
  line_.board.SwitchOff();
  EXPECT_EQ(Type({"audit"}), 3);
  EXPECT_EQ(out_, "");
}
TEST_F(AuditCommandTest, ValueThatTheBoardKeepsToItselfIsMissingWherePartialAllowsIt) {
  ASSERT_EQ(Type({"audit"}), 0);
  const int frames = Frames();
  silent_after_ = 2 * frames - 1;
  EXPECT_EQ(Type({"audit"}), 3);
  EXPECT_THAT(err_, HasSubstr("the board doesn't answer for power-ons"));
  EXPECT_EQ(out_, "");
  silent_after_ = Frames() + frames - 1;
  EXPECT_EQ(Type({"audit", "--partial"}), 1);
  EXPECT_THAT(out_, HasSubstr("\n  times switched on           -\n"));
  EXPECT_THAT(out_, HasSubstr("Note: the board hasn't answered all that was asked for.\n"));
}

TEST_F(AuditCommandTest, ValueThatTheBoardDoesNotHaveIsNoFinding) {
  line_.folder.WriteFile("W0309AA00.inx", [] {
    std::vector<IndexRecord> rows = MachineRows();
    rows.resize(351);
    return SecondLevelBytes(rows);
  }());
  EXPECT_EQ(Type({"audit"}), 0);
  EXPECT_THAT(out_, HasSubstr("\n  times switched on           -\n"));
}

TEST_F(AuditCommandTest, IncompleteSnapshotIsAFindingAndToldAllTheSame) {
  Snapshot partial = Machine();
  Drop(partial, "visits");
  partial.complete = false;
  const std::string file = Scratch("partial.json");
  WriteOwnFile(file, SnapshotText(partial));
  EXPECT_EQ(Type({"audit", file.c_str()}), 1);
  EXPECT_THAT(out_, HasSubstr("visits of a technician      -\n"));
  EXPECT_THAT(out_, HasSubstr("Note: the board hasn't answered all that was asked for.\n"));
}

}  // namespace
}  // namespace sorvane::test
