#include "board/reply.h"

#include <gtest/gtest.h>

#include "board/errors.h"

namespace sorvane {
namespace {

TEST(ReplyValue, IsANumberOfItsBytesLeastSignificantFirst) {
  EXPECT_EQ((Reply{22, 1, {44, 1}}.Number()), 300);
  EXPECT_EQ((Reply{9, 3, {255, 255, 255, 255}}.Number()), 4294967295.0);
}

TEST(ReplyValue, CountsMissingBytesAsZeroAndNoneBehindItsSize) {
  EXPECT_EQ((Reply{22, 1, {44}}.Number()), 44);
  EXPECT_EQ((Reply{22, 0, {44, 1}}.Number()), 44);
}

TEST(ReplyValue, IsATextFromFiveBytesOn) {
  EXPECT_FALSE((Reply{12, 3, {}}.IsText()));
  EXPECT_TRUE((Reply{12, 4, {}}.IsText()));
}

TEST(ReplyValue, OfATextIsNoNumber) {
  const Reply reply{12, 4, {'1', '0', ' ', ' ', ' '}};
  try {
    reply.Number();
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Code(), ErrorCode::kTypeMismatch);
  }
}

TEST(ReplyValue, AsATextIsTheNumberInDigitsOrTheTextItself) {
  EXPECT_EQ((Reply{9, 2, {255, 255, 255}}.AsText()), "16777215");
  EXPECT_EQ((Reply{9, 3, {255, 255, 255, 255}}.AsText()), "4294967295");
  EXPECT_EQ((Reply{12, 4, {'0', '1', ' ', 'x', ' '}}.AsText()), "01 x ");
}

TEST(ReplyValue, KeepsEveryByteOfAText) {
  const Reply reply{12, 5, {'I', 't', 0, 233, ' ', 255}};
  EXPECT_EQ(reply.Text(), std::string("It\0\xE9 \xFF", 6));
}

}  // namespace
}  // namespace sorvane
