#include "board/identification.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/run_time_errors.h"

namespace sorvane {
namespace {

using test::ErrorOf;
using testing::ElementsAre;
using testing::IsEmpty;

struct Identifying : testing::Test {
  IndexNumbers numbers;
  Identification identification;

  Identifying() {
    for (const auto& [number, value] :
         {std::pair(1, 99), std::pair(17, 7), std::pair(11, 0), std::pair(12, 18),
          std::pair(13, 53), std::pair(14, 1), std::pair(18, 200)}) {
      Take(number, static_cast<uint8_t>(value));
    }
  }
  void Take(int number, uint8_t value) { identification.Take(numbers, number, value); }
  std::string Refusal() const { return identification.Refusal(numbers, 0); }
};

TEST_F(Identifying, TheBoardIsAskedInThisOrder) {
  EXPECT_THAT(Identification::kAsked, ElementsAre(1, 17, 11, 12, 13, 14, 18));
}

TEST_F(Identifying, ABoardOfTheServedKindIsTaken) {
  EXPECT_THAT(Refusal(), IsEmpty());
  EXPECT_EQ(numbers.IndexType, 309);
  EXPECT_EQ(numbers.IndexSoftware, 0);
  EXPECT_EQ(numbers.IndexRevision, 7);
  EXPECT_EQ(identification.BoardParameter18, 200);
}

TEST_F(Identifying, TheLastTestThatFailsIsTheOneThatIsRead) {
  Take(12, 17);
  EXPECT_EQ(Refusal(), "Board\nNot Compatible");
  Take(13, 54);
  EXPECT_EQ(Refusal(), "Board Type\nNot Compatible");
  Take(11, 1);
  EXPECT_EQ(Refusal(), "Board Software\nNot Compatible");
}

TEST_F(Identifying, ATypeThatTheVariableCanNotHoldIsAnError) {
  EXPECT_EQ(ErrorOf([&] { Take(14, 128); }), ErrorCode::kOverflow);
}

}  // namespace
}  // namespace sorvane
