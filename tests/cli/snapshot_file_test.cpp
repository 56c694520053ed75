#include "cli/snapshot_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/failure.h"
#include "support/index_files.h"

namespace sorvane::cli {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kText =
    "{\n"
    "  \"format\": 1,\n"
    "  \"time\": \"2026-11-22T14:30:05Z\",\n"
    "  \"program\": \"sorvane-cli 1.0.0\",\n"
    "  \"type\": 309,\n"
    "  \"software\": 0,\n"
    "  \"revision\": 7,\n"
    "  \"index\": \"W0309AA07.inx\",\n"
    "  \"index-sha256\": \"00ff\",\n"
    "  \"machine\": 100234,\n"
    "  \"location\": 152,\n"
    "  \"decimals\": 2,\n"
    "  \"complete\": true,\n"
    "  \"values\": [\n"
    "    {\"number\": 9, \"name\": \"machine.number\", \"size\": 3, \"raw\": 100234, \"shown\": "
    "\"100234\"},\n"
    "    {\"number\": 12, \"name\": \"language.name.0\", \"size\": 5, \"raw\": \"4954412022\", "
    "\"shown\": \"ITA \\\"\"},\n"
    "    {\"number\": 25, \"name\": \"price.3\", \"size\": 2, \"raw\": 150, \"shown\": \"1.50\"},\n"
    "    {\"number\": 393, \"name\": \"price.3.mirror\", \"size\": 2, \"raw\": 150, \"shown\": "
    "\"1.50\"}\n"
    "  ]\n"
    "}\n";

Snapshot Sample() {
  return {.time = "2026-11-22T14:30:05Z",
          .program = "sorvane-cli 1.0.0",
          .type = 309,
          .software = 0,
          .revision = 7,
          .index_file = "W0309AA07.inx",
          .index_sum = "00ff",
          .machine = 100234,
          .location = 152,
          .decimals = 2,
          .complete = true,
          .values = {{9, "machine.number", {0x8A, 0x87, 1}, "100234"},
                     {12, "language.name.0", {'I', 'T', 'A', ' ', '"'}, "ITA \""},
                     {25, "price.3", {150, 0}, "1.50"},
                     {393, "price.3.mirror", {150, 0}, "1.50"}}};
}

ParsedSnapshot Parse(const std::string& text) { return ParseSnapshot(text, Catalogue()); }

// kText with a piece in place of another.
std::string With(const std::string& from, const std::string& to) {
  std::string text = kText;
  const std::size_t place = text.find(from);
  EXPECT_NE(place, std::string::npos) << from;
  return text.replace(place, from.size(), to);
}

auto At(int line, const std::string& words) {
  return testing::AllOf(Field(&Finding::line, line), Field(&Finding::words, HasSubstr(words)));
}

TEST(SnapshotFile, HasOneParameterALine) { EXPECT_EQ(SnapshotText(Sample()), kText); }

TEST(SnapshotFile, IsReadBackEqual) {
  const ParsedSnapshot parsed = Parse(kText);
  EXPECT_THAT(parsed.findings, IsEmpty());
  EXPECT_EQ(parsed.snapshot, Sample());
}

TEST(SnapshotFile, AnotherLayoutOfTheSameJsonIsReadToo) {
  std::string text;
  for (const char c : kText) text += c == '\n' ? ' ' : c;
  EXPECT_EQ(Parse(text).snapshot, Sample());
}

TEST(SnapshotFile, WithoutValuesIsReadBackEqualToo) {
  Snapshot snapshot = Sample();
  snapshot.values.clear();
  snapshot.complete = false;
  EXPECT_EQ(Parse(SnapshotText(snapshot)).snapshot, snapshot);
  EXPECT_THAT(Parse(SnapshotText(snapshot)).findings, IsEmpty());
}

TEST(SnapshotFile, TextsKeepTheirSignsWhateverTheyAre) {
  Snapshot snapshot = Sample();
  snapshot.program = "a\"b\\c\n\x01\x0F\x1F\xC3\xA8";
  EXPECT_EQ(Parse(SnapshotText(snapshot)).snapshot.program, snapshot.program);
}

TEST(SnapshotFile, WhatIsNoJsonIsToldWithItsLine) {
  EXPECT_THAT(Parse("").findings, ElementsAre(At(1, "no JSON: ")));
  EXPECT_THAT(Parse("[]").findings, ElementsAre(At(1, "not a JSON object")));
  EXPECT_THAT(Parse(With("\"raw\": 150", "\"raw\": ")).findings, ElementsAre(At(17, "no JSON: ")));
}

TEST(SnapshotFile, ANewerFormatIsToldOf) {
  EXPECT_THAT(Parse(With("\"format\": 1", "\"format\": 2")).findings,
              ElementsAre(At(2, "another format than 1")));
}

TEST(SnapshotFile, FaultsOfTheHeadAreToldWithTheirLines) {
  EXPECT_THAT(Parse(With("\"type\": 309", "\"type\": 65536")).findings,
              ElementsAre(At(5, "\"type\"")));
  EXPECT_THAT(Parse(With("\"software\": 0", "\"software\": -1")).findings,
              ElementsAre(At(6, "\"software\"")));
  EXPECT_THAT(Parse(With("\"revision\": 7", "\"revision\": 7.5")).findings,
              ElementsAre(At(7, "\"revision\"")));
  EXPECT_THAT(Parse(With("\"time\": \"2026-11-22T14:30:05Z\"", "\"time\": 5")).findings,
              ElementsAre(At(3, "no text: \"time\"")));
  EXPECT_THAT(Parse(With("true", "1")).findings, ElementsAre(At(13, "\"complete\"")));
  EXPECT_THAT(Parse(With("\"decimals\"", "\"decimal\"")).findings,
              ElementsAre(At(1, "\"decimals\""), At(12, "unknown: \"decimal\"")));
  EXPECT_THAT(Parse(With("\"machine\": 100234", "\"machine\": 100235")).findings,
              ElementsAre(At(10, "another machine than machine.number holds")));
}

TEST(SnapshotFile, FaultsOfParametersAreToldWithTheirLines) {
  EXPECT_THAT(Parse(With("\"name\": \"price.3\"", "\"name\": \"price.2\"")).findings,
              ElementsAre(At(17, "parameter 25 is called \"price.3\"")));
  EXPECT_THAT(Parse(With("\"name\": \"price.3.mirror\"", "\"name\": \"price.3\"")).findings,
              ElementsAre(At(18, "parameter 393 is called \"price.3.mirror\"")));
  for (const char* number : {"11", "0", "-1", "2147483648", "1.5", "\"25\""}) {
    EXPECT_THAT(Parse(With("\"number\": 25", "\"number\": " + std::string(number))).findings,
                ElementsAre(At(17, "no parameter has this number")))
        << number;
  }
  EXPECT_THAT(Parse(With("\"size\": 2, \"raw\": 150", "\"size\": 2")).findings,
              ElementsAre(At(17, "missing: \"raw\"")));
  EXPECT_THAT(Parse(With("\"size\": 2,", "\"size\": 2, \"more\": 1,")).findings,
              ElementsAre(At(17, "something unknown")));
}

TEST(SnapshotFile, RawValuesFitTheirSize) {
  for (const char* wrong :
       {"\"size\": 2, \"raw\": 65536", "\"size\": 0, \"raw\": 0", "\"size\": 17, \"raw\": 0",
        "\"size\": 2, \"raw\": -1", "\"size\": 2, \"raw\": \"150\"", "\"size\": 2, \"raw\": 1.5"}) {
    EXPECT_THAT(Parse(With("\"size\": 2, \"raw\": 150", wrong)).findings,
                ElementsAre(At(17, "price.3: the raw value isn't one of its size")))
        << wrong;
  }
  for (const char* wrong :
       {"495441202", "49544120222", "4954412022ff", "495441202G", "495441202A"}) {
    EXPECT_THAT(Parse(With("4954412022", wrong)).findings,
                ElementsAre(At(16, "language.name.0: the raw value isn't one of its size")))
        << wrong;
  }
}

TEST(SnapshotFile, ParametersStandOnceAndInRisingOrder) {
  const std::string price =
      "    {\"number\": 25, \"name\": \"price.3\", \"size\": 2, \"raw\": 150, \"shown\": "
      "\"1.50\"},\n";
  EXPECT_THAT(Parse(With(price, price + price)).findings,
              ElementsAre(At(18, "price.3 stands twice")));
  const std::string first =
      "    {\"number\": 1, \"name\": \"language\", \"size\": 1, \"raw\": 0, \"shown\": \"0\"},\n";
  EXPECT_THAT(Parse(With(price, price + first)).findings,
              ElementsAre(At(18, "language stands behind a parameter of a higher number")));
}

TEST(SnapshotFile, AllFaultsAreTold) {
  std::string text = With("\"format\": 1", "\"format\": 2");
  text.replace(text.find("price.3"), 7, "price.4");
  EXPECT_THAT(Parse(text).findings, ElementsAre(At(2, "format"), At(17, "price.3")));
}

TEST(SnapshotFile, SettingsOutOfRangeAreReadAndTold) {
  const std::string text = With("    {\"number\": 25",
                                "    {\"number\": 15, \"name\": \"language.name.3\", \"size\": 1, "
                                "\"raw\": 0, \"shown\": \"\"},\n"
                                "    {\"number\": 25");
  EXPECT_THAT(Parse(text).out_of_range, IsEmpty());
  const ParsedSnapshot parsed =
      Parse(With("\"raw\": 100234, \"shown\": \"100234\"", "\"raw\": 0, \"shown\": \"0\""));
  EXPECT_THAT(parsed.out_of_range, ElementsAre(At(15, "machine.number: 0 is not 1 to 16777215")));
}

TEST(SnapshotFile, BracketsWithinTextsDoNotMoveTheLines) {
  std::string text = With("sorvane-cli 1.0.0", "[{ \\\" {");
  text.replace(text.find("price.3"), 7, "price.4");
  EXPECT_THAT(Parse(text).findings, ElementsAre(At(17, "price.3")));
}

struct SnapshotOnDisk : testing::Test {
  test::TempFolder folder;
  std::filesystem::path file = folder.Path() / "copy.json";
};

TEST_F(SnapshotOnDisk, IsItsOwnersAlone) {
  folder.WriteFile("copy.json", {});
  std::filesystem::permissions(file, std::filesystem::perms::others_read,
                               std::filesystem::perm_options::add);
  WriteOwnFile(file, kText);
#ifndef _WIN32
  EXPECT_EQ(std::filesystem::status(file).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
#endif
  EXPECT_EQ(ReadSnapshot(file, Catalogue()), Sample());
}

TEST_F(SnapshotOnDisk, ABadOneIsToldLineByLine) {
  std::string text = With("\"format\": 1", "\"format\": 2");
  text.replace(text.find("price.3"), 7, "price.4");
  WriteOwnFile(file, text);
  try {
    ReadSnapshot(file, Catalogue());
    FAIL() << "a bad file was taken";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Code(), ExitCode::kUsage);
    EXPECT_THAT(failure.what(), HasSubstr(file.string() + ":2: another format"));
    EXPECT_THAT(failure.what(), HasSubstr('\n' + file.string() + ":17: parameter 25"));
  }
}

TEST_F(SnapshotOnDisk, WhatIsNoFileIsNotOpened) {
  EXPECT_THROW(FileText(folder.Path()), Failure);
  EXPECT_THROW(FileText(folder.Path() / "none"), Failure);
  EXPECT_THROW(WriteOwnFile(folder.Path() / "none" / "copy.json", ""), Failure);
}

TEST_F(SnapshotOnDisk, AFileOfAnyLengthCostsNoMore) {
  constexpr std::size_t kMost = std::size_t{4} << 20;
  folder.WriteFile("copy.json", Bytes(kMost, ' '));
  EXPECT_EQ(FileText(file).size(), kMost);
  folder.WriteFile("copy.json", Bytes(kMost + 1, ' '));
  EXPECT_THROW(FileText(file), Failure);
}

}  // namespace
}  // namespace sorvane::cli
