#include "texts/text_entry.h"

#include <gtest/gtest.h>

#include <string>

#include "support/run_time_errors.h"
#include "texts/western_text.h"

namespace sorvane {

void PrintTo(const Entry& entry, std::ostream* out) {
  *out << "kind " << static_cast<int>(entry.kind) << ", value " << entry.value;
}

namespace {

using test::ErrorOf;

constexpr Separators kEnglish{'.', ','};
constexpr Separators kItalian{',', '.'};
constexpr Separators kFrench{',', u'\u00A0'};
constexpr Separators kSwiss{'.', u'\u2019'};

constexpr Entry kRefused{Entry::Kind::kRefused, 0};
constexpr Entry kNotNumeric{Entry::Kind::kNotNumeric, 0};
Entry Value(int32_t value) { return {Entry::Kind::kValue, value}; }

// The characters of a text of the western set.
std::u16string Typed(std::string_view western) { return FromWestern(western).toStdU16String(); }

Entry Amount(std::string_view text, int16_t decimals = 2) {
  return ParseFieldValue(Typed(text), decimals, kItalian);
}
Entry Whole(std::string_view text) { return ParseWholeValue(Typed(text), kItalian); }

void ExpectNumeric(std::initializer_list<std::string_view> texts, const Separators& separators) {
  for (const std::string_view text : texts) EXPECT_TRUE(IsNumeric(Typed(text), separators)) << text;
}
void ExpectNoNumber(std::initializer_list<std::string_view> texts, const Separators& separators) {
  for (const std::string_view text : texts)
    EXPECT_FALSE(IsNumeric(Typed(text), separators)) << text;
}

TEST(IsNumeric, DigitsPass) { ExpectNumeric({"0", "5", "007", "99999999999"}, kItalian); }

TEST(IsNumeric, BothSeparatorsPassInEveryLocale) {
  for (const Separators& separators : {kEnglish, kItalian, kFrench, kSwiss}) {
    ExpectNumeric({"2,0", "2.0", ",5", ".5", "5,", "5."}, separators);
  }
}

TEST(IsNumeric, GroupMarksOfTheLocalePass) {
  ExpectNumeric({"1,234,567.5", "1,2,3"}, kEnglish);
  ExpectNumeric({"1.234.567,5"}, kItalian);
  ExpectNumeric({"1\xA0"
                 "234\xA0"
                 "567,5",
                 "1 234,5"},
                kFrench);
  ExpectNumeric({"1\x92"
                 "234.5",
                 "1'234.5"},
                kSwiss);
  ExpectNumeric({"1'234.5"}, {'.', '\''});
}

TEST(IsNumeric, GroupMarksOfOtherLocalesFail) {
  ExpectNoNumber({"1'234", "1 234",
                  "1\xA0"
                  "234",
                  "1_234"},
                 kItalian);
}

TEST(IsNumeric, OnlyOneDecimalMarkPasses) {
  ExpectNoNumber({"1,2,3", "1,,2"}, kItalian);
  ExpectNoNumber({"1.2.3"}, kEnglish);
  ExpectNoNumber({"1.2,3"}, kFrench);
}

TEST(IsNumeric, NoGroupMarkPassesBehindTheDecimals) {
  ExpectNoNumber({"1,2.3"}, kItalian);
  ExpectNoNumber({"1.2,3"}, kEnglish);
}

TEST(IsNumeric, ASignPassesOnOneSide) {
  ExpectNumeric({"-5", "+5", "5-", "5+", "- 5", "5 -"}, kItalian);
  ExpectNoNumber({"--5", "-5-", "5-5"}, kItalian);
}

TEST(IsNumeric, ALoneSignOrSeparatorPasses) { ExpectNumeric({"-", "+", ",", "."}, kItalian); }

TEST(IsNumeric, AnExponentPasses) {
  ExpectNumeric({"1e5", "1E+5", "1d-5", "1D05", "1,5e3"}, kItalian);
}

TEST(IsNumeric, AnExponentNeedsDigitsOnBothSides) {
  ExpectNoNumber({"1e", "1e+", "e5", "-e5", "1e5e5", "1e5,5"}, kItalian);
}

TEST(IsNumeric, BlanksAroundPass) {
  ExpectNumeric({" 5", "5 ", " 5\t",
                 "\xA0"
                 "5"},
                kItalian);
}

TEST(IsNumeric, BlanksWithinFail) { ExpectNoNumber({"5 5", "1 e5"}, kItalian); }

TEST(IsNumeric, BlanksAloneFail) {
  ExpectNoNumber({"", " ", "  \t", "\xA0"}, kItalian);
  ExpectNoNumber({" ", "\xA0"}, kFrench);
}

TEST(IsNumeric, BasedNumbersPass) {
  ExpectNumeric({"&HFF", "&h0a", "&O17", "&o7", "&17", " &HFF "}, kItalian);
}

TEST(IsNumeric, BasedNumbersNeedDigitsOfTheirBase) {
  ExpectNoNumber({"&", "&H", "&HG", "&O8", "&8", "&O", "FF", "&H1,5"}, kItalian);
}

TEST(IsNumeric, CurrencyAndParenthesesPass) {
  ExpectNumeric({"$5", "5 \x80", "\x80 5", "-\xA3 5", "\xA5-5", "(5)", "($5,00)"}, kItalian);
}

TEST(IsNumeric, UnpairedParenthesesAndTwoCurrenciesFail) {
  ExpectNoNumber({"(5", "5)", "()", "((5))", "$5$", "$"}, kItalian);
}

TEST(IsNumeric, LettersAndOtherGarbageFail) {
  ExpectNoNumber({"abc", "5a", "a5", "5%", "12:30", "1/2", "#", "?", "0x1F", "nan", "inf", "\xB2"},
                 kItalian);
}

TEST(ParseFieldValue, LettersAreNotNumeric) { EXPECT_EQ(Amount("abc"), kNotNumeric); }

TEST(ParseFieldValue, DigitsThatEndInLettersAreNotNumeric) {
  EXPECT_EQ(Amount("12abc"), kNotNumeric);
  EXPECT_EQ(Amount("1,23x"), kNotNumeric);
}

TEST(ParseFieldValue, BlanksAreNotNumeric) { EXPECT_EQ(Amount("   "), kNotNumeric); }

TEST(ParseFieldValue, AnEmptyTextIsRefusedWithoutAWord) { EXPECT_EQ(Amount(""), kRefused); }

TEST(ParseFieldValue, ASignIsRefusedWithoutAWord) {
  EXPECT_EQ(Amount("-5"), kRefused);
  EXPECT_EQ(Amount("+5"), kRefused);
  EXPECT_EQ(Amount("5-"), kRefused);
  EXPECT_EQ(Amount("-"), kRefused);
}

TEST(ParseFieldValue, ExponentsBlanksBasesAndCurrenciesAreRefusedWithoutAWord) {
  for (const char* text : {"1e2", " 5", "5 ", "&HFF", "$5", "(5)"}) {
    EXPECT_EQ(Amount(text), kRefused) << text;
  }
}

TEST(ParseFieldValue, AmountsAreScaledByTheDecimals) {
  EXPECT_EQ(Amount("12"), Value(1200));
  EXPECT_EQ(Amount("12,"), Value(1200));
  EXPECT_EQ(Amount("12,00"), Value(1200));
  EXPECT_EQ(Amount("12,5"), Value(1250));
  EXPECT_EQ(Amount("2,0"), Value(200));
  EXPECT_EQ(Amount("007,05"), Value(705));
}

TEST(ParseFieldValue, BothSeparatorsAreTakenInEveryLocale) {
  for (const Separators& separators : {kEnglish, kItalian, kFrench, kSwiss}) {
    EXPECT_EQ(ParseFieldValue(u"12.5", 2, separators), Value(1250));
    EXPECT_EQ(ParseFieldValue(u"12,5", 2, separators), Value(1250));
  }
}

TEST(ParseFieldValue, DecimalsTooManyAreCutNotRounded) {
  EXPECT_EQ(Amount("12.567"), Value(1256));
  EXPECT_EQ(Amount("12,569"), Value(1256));
}

TEST(ParseFieldValue, WhatStandsBehindTheDecimalsIsDroppedUnread) {
  EXPECT_EQ(Amount("12,34-"), Value(1234));
  EXPECT_EQ(Amount("12,34e9"), Value(1234));
}

TEST(ParseFieldValue, AMarkAmongTheDecimalsIsRefused) {
  EXPECT_EQ(Amount("12,3-"), kRefused);
  EXPECT_EQ(Amount("12,e5"), kRefused);
  EXPECT_EQ(Amount("12,3e5"), kRefused);
  EXPECT_EQ(ParseFieldValue(u"1,234.5", 4, kEnglish), kRefused);
}

TEST(ParseFieldValue, AGroupMarkCountsAsTheSeparator) {
  EXPECT_EQ(ParseFieldValue(u"1,234.5", 2, kEnglish), Value(123));
}

TEST(ParseFieldValue, ABareFractionIsTaken) { EXPECT_EQ(Amount(",5"), Value(50)); }

TEST(ParseFieldValue, ASeparatorWithoutDigitsIsRefused) {
  EXPECT_EQ(Amount(","), kRefused);
  EXPECT_EQ(Amount("."), kRefused);
}

TEST(ParseFieldValue, WithoutDecimalsASeparatorIsRefused) {
  EXPECT_EQ(Amount("12", 0), Value(12));
  EXPECT_EQ(Amount("12,", 0), kRefused);
  EXPECT_EQ(Amount("12.0", 0), kRefused);
}

TEST(ParseFieldValue, TheLargestAmountIsTaken) {
  EXPECT_EQ(Amount("655,35"), Value(65535));
  EXPECT_EQ(Amount("65535", 0), Value(65535));
}

TEST(ParseFieldValue, OneAboveTheLargestAmountIsRefused) {
  EXPECT_EQ(Amount("655,36"), kRefused);
  EXPECT_EQ(Amount("65536", 0), kRefused);
  EXPECT_EQ(Amount("656"), kRefused);
}

TEST(ParseFieldValue, DigitsAbove32BitsOverflow) {
  EXPECT_EQ(Amount("2147483647", 0), kRefused);
  EXPECT_EQ(ErrorOf([] { Amount("2147483648", 0); }), ErrorCode::kOverflow);
  EXPECT_EQ(ErrorOf([] { Amount(std::string(400, '9'), 0); }), ErrorCode::kOverflow);
}

TEST(ParseFieldValue, AProductAbove32BitsOverflows) {
  EXPECT_EQ(Amount("21474836"), kRefused);
  EXPECT_EQ(ErrorOf([] { Amount("21474837"); }), ErrorCode::kOverflow);
}

TEST(ParseFieldValue, DecimalsNotKnownYetOverflow) {
  EXPECT_EQ(ErrorOf([] { Amount("1", 255); }), ErrorCode::kOverflow);
  EXPECT_EQ(ErrorOf([] { Amount("1,5", 255); }), ErrorCode::kOverflow);
  EXPECT_EQ(Amount("0", 255), Value(0));
}

TEST(ParseFieldValue, APowerThatNoNumberHoldsOverflows) {
  EXPECT_EQ(ErrorOf([] { Amount("0", 32767); }), ErrorCode::kOverflow);
}

TEST(ParseWholeValue, DigitsAreTheValue) {
  EXPECT_EQ(Whole("0"), Value(0));
  EXPECT_EQ(Whole("0042"), Value(42));
}

TEST(ParseWholeValue, TheLimitIsTheCallers) {
  EXPECT_EQ(Whole("65536"), Value(65536));
  EXPECT_EQ(Whole("2147483647"), Value(2147483647));
}

TEST(ParseWholeValue, DigitsAbove32BitsOverflow) {
  EXPECT_EQ(ErrorOf([] { Whole("2147483648"); }), ErrorCode::kOverflow);
}

TEST(ParseWholeValue, AnEmptyTextIsRefusedWithoutAWord) { EXPECT_EQ(Whole(""), kRefused); }

TEST(ParseWholeValue, GarbageIsNotNumeric) {
  EXPECT_EQ(Whole("abc"), kNotNumeric);
  EXPECT_EQ(Whole("12a"), kNotNumeric);
  EXPECT_EQ(Whole(" "), kNotNumeric);
}

TEST(ParseWholeValue, SeparatorsSignsAndBlanksAreRefusedWithoutAWord) {
  for (const char* text : {"12,", "12.0", ",", "-5", "5-", " 5", "5 ", "1e2", "&H5"}) {
    EXPECT_EQ(Whole(text), kRefused) << text;
  }
}

Entry Price(std::string_view text, const Separators& separators, int16_t decimals = 2) {
  return ParsePriceValue(Typed(text), decimals, separators);
}

TEST(ParsePriceValue, TwoWithTheSeparatorOfTheLocaleIsRefused) {
  for (const char* text : {"2,0", "2,", "2,00", "02,000"}) {
    EXPECT_EQ(Price(text, kItalian), kRefused) << text;
  }
  for (const char* text : {"2.0", "2.", "2.00", "02.000"}) {
    EXPECT_EQ(Price(text, kEnglish), kRefused) << text;
  }
}

TEST(ParsePriceValue, TwoWithoutASeparatorIsTaken) {
  EXPECT_EQ(Price("2", kItalian), Value(200));
  EXPECT_EQ(Price("002", kEnglish), Value(200));
}

TEST(ParsePriceValue, AllOtherAmountsAreThoseOfAnyField) {
  EXPECT_EQ(Price("2,50", kItalian), Value(250));
  EXPECT_EQ(Price("1,0", kItalian), Value(100));
  EXPECT_EQ(Price("2,01", kItalian), Value(201));
  EXPECT_EQ(Price("12.0", kEnglish), Value(1200));
  EXPECT_EQ(Price("-2,0", kItalian), kRefused);
  EXPECT_EQ(Price("", kItalian), kRefused);
  EXPECT_EQ(Price("2,x", kItalian), kNotNumeric);
}

TEST(ParsePriceValue, TheGroupMarkOfTheLocaleIsReadOver) {
  EXPECT_EQ(Price("2.0", kItalian), Value(200));  // the locale reads 20
  EXPECT_EQ(Price("2,0", kEnglish), Value(200));
  EXPECT_EQ(Price("2.", kItalian), kRefused);
  EXPECT_EQ(Price(",2", kEnglish), kRefused);
  EXPECT_EQ(Price(".2", kEnglish), Value(20));
}

TEST(ParsePriceValue, TheWholeTextCountsAlsoWhereItIsDroppedUnread) {
  EXPECT_EQ(Price("20,0e-1", kItalian, 1), kRefused);
  EXPECT_EQ(Price("2,00D0", kItalian), kRefused);
  EXPECT_EQ(Price("2,00e1", kItalian), Value(200));
  EXPECT_EQ(Price("2,00-", kItalian), Value(200));
  EXPECT_EQ(Price("2,00 ", kItalian), kRefused);
}

TEST(ParsePriceValue, TwoIsRefusedEvenWhereItsProductWouldOverflow) {
  EXPECT_EQ(Price("2,0", kItalian, 255), kRefused);
}

Entry Tenths(std::string_view text) { return ParseTenthsValue(Typed(text), kItalian); }

TEST(ParseTenthsValue, ExactlyOneDigitCountsBehindTheSeparator) {
  EXPECT_EQ(Tenths("12"), Value(120));
  EXPECT_EQ(Tenths("12,5"), Value(125));
  EXPECT_EQ(Tenths("12.5"), Value(125));
  EXPECT_EQ(Tenths("12,55"), Value(125));
  EXPECT_EQ(Tenths("12,5-"), Value(125));
  EXPECT_EQ(Tenths(",5"), Value(5));
}

TEST(ParseTenthsValue, ASeparatorWithoutADigitBehindIsRefused) {
  for (const char* text : {"12,", "12.", ",", "12,-", ""}) {
    EXPECT_EQ(Tenths(text), kRefused) << text;
  }
}

TEST(ParseTenthsValue, WhatIsNoDigitIsRefusedAndWhatIsNoNumberIsTold) {
  EXPECT_EQ(Tenths("-5"), kRefused);
  EXPECT_EQ(Tenths("1e2"), kRefused);
  EXPECT_EQ(Tenths("abc"), kNotNumeric);
}

TEST(ParseTenthsValue, TenthsAbove32BitsOverflow) {
  EXPECT_EQ(Tenths("214748364"), Value(2147483640));
  EXPECT_EQ(ErrorOf([] { Tenths("214748365"); }), ErrorCode::kOverflow);
  EXPECT_EQ(ErrorOf([] { Tenths("2147483648,0"); }), ErrorCode::kOverflow);
}

}  // namespace
}  // namespace sorvane
