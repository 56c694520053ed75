#include "simulator/words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/command_error.h"
#include "simulator/line_buffer.h"

namespace sorvane::simulator {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Words, AValueOfUpTo4BytesIsANumber) {
  EXPECT_EQ(ShowValue({150}), "150");
  EXPECT_EQ(ShowValue({44, 1}), "300");
  EXPECT_EQ(ShowValue({255, 255, 255, 255}), "4294967295");
}

TEST(Words, ALongerValueIsATextInQuotes) {
  EXPECT_EQ(ShowValue({'A', 'b', ' ', '"', '\\', 0, 31, 127, 128, 159}),
            "\"Ab \\\"\\\\\\x00\\x1f\\x7f\\x80\\x9f\"");
  EXPECT_EQ(ShowValue({' ', '!', '}', '~', ' '}), "\" !}~ \"");
  EXPECT_EQ(ShowValue({0xe7, 0xf1, 0xa0, 0xff, 'e'}),
            "\"\xc3\xa7\xc3\xb1\xc2\xa0\xc3\xbf"
            "e\"");
}

TEST(Words, EveryByteOfATextCanBeTypedAsItIsShown) {
  for (unsigned i = 0; i < 256; ++i) {
    const Bytes value = {'a', static_cast<uint8_t>(i), 'b', ' ', ' '};
    EXPECT_EQ(ParseValue(ShowValue(value), 5), value) << i;
  }
}

TEST(Words, NumbersAreLaidDownLeastSignificantByteFirst) {
  EXPECT_THAT(ParseValue("300", 2), ElementsAre(44, 1));
  EXPECT_THAT(ParseValue(" 16777215 ", 3), ElementsAre(255, 255, 255));
  EXPECT_THAT(ParseValue("4294967295", 4), ElementsAre(255, 255, 255, 255));
}

TEST(Words, NumbersThatDoNotFitAreRefused) {
  for (const char* const text : {"256", "-1", "", "1.5", "0x10", "12 13", "99999999999999999999"}) {
    EXPECT_THROW(ParseValue(text, 1), CommandError) << text;
  }
  EXPECT_THROW(ParseValue("4294967296", 4), CommandError);
}

TEST(Words, ATextIsPaddedWithBlanks) {
  EXPECT_THAT(ParseValue("\"ab\"", 5), ElementsAre('a', 'b', ' ', ' ', ' '));
  EXPECT_THAT(ParseValue("a b", 5), ElementsAre('a', ' ', 'b', ' ', ' '));
  EXPECT_THAT(ParseValue("\"\"", 5), ElementsAre(' ', ' ', ' ', ' ', ' '));
}

TEST(Words, TextsThatDoNotFitAreRefused) {
  for (const char* const text : {"abcdef", "\"abc", "\"abc\"d", "a\\", "a\\x1", "a\\xzz", "a\\n",
                                 "\xe2\x82\xac", "\xc3", "\xc2\x80", "\xff"}) {
    EXPECT_THROW(ParseValue(text, 5), CommandError) << text;
  }
}

TEST(Words, AWordIsCutOff) {
  std::string_view text = "  set\t25  150 \r";
  EXPECT_EQ(TakeWord(text), "set");
  EXPECT_EQ(text, "25  150");
  EXPECT_EQ(TakeWord(text), "25");
  EXPECT_EQ(TakeWord(text), "150");
  EXPECT_EQ(TakeWord(text), "");
}

TEST(LineBuffer, LinesComeWhenTheyEnd) {
  LineBuffer buffer;
  EXPECT_THAT(buffer.Feed("get "), IsEmpty());
  EXPECT_THAT(buffer.Feed("25\nlist\nqu"), ElementsAre("get 25", "list"));
  EXPECT_EQ(buffer.TakeRest(), "qu");
  EXPECT_EQ(buffer.TakeRest(), "");
}

TEST(LineBuffer, ALineWithoutEndIsCut) {
  LineBuffer buffer;
  const auto lines = buffer.Feed(std::string(LineBuffer::kLongest + 3, 'x'));
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].size(), LineBuffer::kLongest);
  EXPECT_EQ(buffer.TakeRest(), "xxx");
}

}  // namespace
}  // namespace sorvane::simulator
