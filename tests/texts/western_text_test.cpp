#include "texts/western_text.h"

#include <gtest/gtest.h>

#include "texts/file_texts.h"

namespace sorvane {
namespace {

// The characters of 80 to 9F, where the set goes its own way.
const QString kOwn = QString::fromUtf8("€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ");

TEST(WesternText, BytesFrom80To9FHaveTheirOwnCharacters) {
  ASSERT_EQ(kOwn.size(), 32);
  for (int i = 0; i < 32; ++i) {
    EXPECT_EQ(FromWestern(std::string(1, static_cast<char>(0x80 + i))), QString(kOwn[i])) << i;
  }
}

TEST(WesternText, AllOtherBytesAreTheFirst256Characters) {
  for (int i = 0; i < 256; ++i) {
    if (i >= 0x80 && i <= 0x9F) continue;
    EXPECT_EQ(FromWestern(std::string(1, static_cast<char>(i))), QString(QChar(i))) << i;
  }
}

TEST(WesternText, EveryByteComesBackFromItsCharacter) {
  for (int i = 0; i < 256; ++i) {
    const std::string byte(1, static_cast<char>(i));
    EXPECT_EQ(PathToWestern(WesternToPath(byte)), byte) << i;
  }
}

TEST(WesternText, AmpersandsAreDoubled) { EXPECT_EQ(EscapeAmpersands("A & B&C"), "A && B&&C"); }

TEST(WesternText, CaseIsFoldedInTheWholeSet) { EXPECT_EQ(FoldCase("az\xE9\x9A\xFF"), u"AZÉŠŸ"); }

TEST(WesternText, SharpSAndTheMicroSignHaveNoCapital) { EXPECT_EQ(FoldCase("\xDF\xB5"), u"ßµ"); }

TEST(WesternText, NamesReachTheFileSystemInItsEncoding) {
  EXPECT_EQ(WesternToPath("Fran\xE7"
                          "ais \x80"),
            std::filesystem::path(u8"Français €"));
}

TEST(WesternText, NamesOfTheFileSystemComeBackInTheSet) {
  EXPECT_EQ(PathToWestern(u8"Français €"),
            "Fran\xE7"
            "ais \x80");
}

TEST(WesternText, ANameOutsideTheSetHasNoWesternForm) {
  EXPECT_EQ(PathToWestern(u8"Русский"), std::nullopt);
}

TEST(WesternText, TheCharactersInPlaceOfOwnOnesAreOutsideTheSet) {
  EXPECT_EQ(PathToWestern(u8"\u0080"), std::nullopt);
  EXPECT_EQ(PathToWestern(u8"\u007F"), "\x7F");
}

TEST(WesternText, ANameThatIsNoTextHasNoWesternForm) {
  EXPECT_EQ(PathToWestern(test::NameThatIsNoText()), std::nullopt);
}

}  // namespace
}  // namespace sorvane
