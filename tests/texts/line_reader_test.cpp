#include "texts/line_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/run_time_errors.h"
#include "texts/file_texts.h"

namespace sorvane {
namespace {

using test::ErrorOf;
using test::TempFolder;
using test::WriteText;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> LinesOf(const TempFolder& folder, const std::string& text) {
  WriteText(folder, "f", text);
  LineReader file(folder.Path() / "f");
  std::vector<std::string> lines;
  while (!file.AtEnd()) lines.push_back(file.ReadLine());
  return lines;
}

TEST(LineReader, AllKindsOfLineEndsCount) {
  const TempFolder folder;
  EXPECT_THAT(LinesOf(folder, "one\r\ntwo\nthree\rfour\r\n\r\n\n\rend\n"),
              ElementsAre("one", "two", "three", "four", "", "", "", "end"));
}

TEST(LineReader, TheLastLineMayLackItsEnd) {
  const TempFolder folder;
  EXPECT_THAT(LinesOf(folder, "one\r\n two "), ElementsAre("one", " two "));
  EXPECT_THAT(LinesOf(folder, "one\r\ntwo\r"), ElementsAre("one", "two"));
}

TEST(LineReader, AnEmptyFileHasNoLines) {
  const TempFolder folder;
  EXPECT_THAT(LinesOf(folder, ""), IsEmpty());
}

TEST(LineReader, BytesOfNoTextAreCharactersOfALine) {
  const TempFolder folder;
  const std::string odd("\0\xFF\x1A", 3);
  EXPECT_THAT(LinesOf(folder, odd + "\n" + odd), ElementsAre(odd, odd));
}

TEST(LineReader, BehindTheLastLineThereIsNone) {
  const TempFolder folder;
  WriteText(folder, "f", "one\n");
  LineReader file(folder.Path() / "f");
  file.ReadLine();
  EXPECT_EQ(ErrorOf([&] { file.ReadLine(); }), ErrorCode::kInputPastEnd);
}

TEST(LineReader, AMissingFileIsAnError) {
  const TempFolder folder;
  EXPECT_EQ(ErrorOf([&] { LineReader(folder.Path() / "none"); }), ErrorCode::kFileNotFound);
}

TEST(LineReader, AFolderIsNoFile) {
  const TempFolder folder;
  EXPECT_EQ(ErrorOf([&] { LineReader{folder.Path()}; }), ErrorCode::kFileNotFound);
}

TEST(LineReader, TheLongestLineIsTaken) {
  const TempFolder folder;
  const std::string longest(10000, 'x');
  EXPECT_THAT(LinesOf(folder, longest + "\r\n" + longest), ElementsAre(longest, longest));
}

TEST(LineReader, ALineOfACharacterMoreOverflows) {
  const TempFolder folder;
  const std::string longer(10001, 'x');
  EXPECT_EQ(ErrorOf([&] { LinesOf(folder, longer); }), ErrorCode::kOverflow);
  EXPECT_EQ(ErrorOf([&] { LinesOf(folder, "one\r\n" + longer + "\r\n"); }), ErrorCode::kOverflow);
}

}  // namespace
}  // namespace sorvane
