#include <gtest/gtest.h>

#include <QLocale>
#include <algorithm>
#include <string>

#include "texts/text_entry.h"
#include "texts/western_text.h"

// Numbers in all locales that there are.
namespace sorvane {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Plays a check in every locale that Qt knows, with its marks and its name.
template <typename Check>
void InEveryLocale(const Check& check) {
  const auto locales =
      QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
  ASSERT_GT(locales.size(), 500);
  for (const QLocale& locale : locales) {
    SCOPED_TRACE(locale.name().toStdString());
    check(SeparatorsOf(locale), locale);
  }
}

std::u16string Shown(const std::string& text) { return FromWestern(text).toStdU16String(); }

TEST(Separators, AmountsAreDigitsAroundOneMarkInEveryLocale) {
  InEveryLocale([](const Separators& separators, const QLocale&) {
    const std::string text = FormatMoney(1234567.5, 2, separators);
    EXPECT_EQ(std::count_if(text.begin(), text.end(), IsDigit), 9) << text;
    EXPECT_EQ(text.size(), 10U) << text;
    EXPECT_FALSE(IsDigit(text[7])) << text;
    EXPECT_NE(text[7], '?') << text;
    EXPECT_EQ(FormatMoney(1234567.5, 0, separators), "1234568");
  });
}

TEST(Separators, AmountsShowTheLocalesOwnMarkWhereTheSetHasIt) {
  InEveryLocale([](const Separators& separators, const QLocale& locale) {
    const QString own = locale.decimalPoint();
    EXPECT_EQ(FromWestern(FormatMoney(0.5, 1, separators)), own == "," ? "0,5" : "0.5");
  });
}

TEST(Separators, WhatIsShownCanBeTypedBackInEveryLocale) {
  InEveryLocale([](const Separators& separators, const QLocale&) {
    for (const int32_t raw : {0, 5, 1250, 65535}) {
      const Entry entry{Entry::Kind::kValue, raw};
      const std::u16string money = Shown(FormatMoney(raw / 100.0, 2, separators));
      EXPECT_EQ(ParseFieldValue(money, 2, separators), entry);
      EXPECT_EQ(ParsePriceValue(money, 2, separators), entry);
      EXPECT_EQ(ParseTenthsValue(Shown(FormatTenths(raw, separators)), separators), entry);
      EXPECT_EQ(ParseWholeValue(Shown(FormatMoney(raw, 0, separators)), separators), entry);
    }
  });
}

TEST(Separators, GarbageIsNoNumberInAnyLocale) {
  InEveryLocale([](const Separators& separators, const QLocale&) {
    for (const char16_t* text :
         {u"abc", u"?", u"5?", u"5?5", u"\u03C0", u"5\u03C0", u"\U0001F600"}) {
      constexpr Entry::Kind kNotNumeric = Entry::Kind::kNotNumeric;
      EXPECT_EQ(ParseFieldValue(text, 2, separators).kind, kNotNumeric);
      EXPECT_EQ(ParsePriceValue(text, 2, separators).kind, kNotNumeric);
      EXPECT_EQ(ParseTenthsValue(text, separators).kind, kNotNumeric);
      EXPECT_EQ(ParseWholeValue(text, separators).kind, kNotNumeric);
    }
  });
}

TEST(Separators, TheLocalesOwnMarksAreNumericInEveryLocale) {
  InEveryLocale([](const Separators& separators, const QLocale& locale) {
    const std::u16string group = locale.groupSeparator().toStdU16String();
    const std::u16string decimal = locale.decimalPoint().toStdU16String();
    EXPECT_TRUE(IsNumeric(u"1" + group + u"234", separators));
    EXPECT_TRUE(IsNumeric(u"1" + group + u"234" + decimal + u"5", separators));
    EXPECT_TRUE(IsNumeric(decimal, separators));
  });
}

TEST(Separators, AnyBlankMarksGroupsWhereTheLocaleHasOne) {
  for (const char16_t blank : {u'\u00A0', u'\u202F'}) {
    const Separators separators{',', blank};
    for (const char16_t* text : {u"1 234,5", u"1\u00A0234,5", u"1\u202F234,5"}) {
      EXPECT_TRUE(IsNumeric(text, separators)) << int{blank};
    }
  }
  EXPECT_FALSE(IsNumeric(u"1\u202F234", {',', u'.'}));
  EXPECT_FALSE(IsNumeric(u"1\u202F234", {',', u'\u2019'}));
}

TEST(Separators, ALocaleOfEveryKindHasItsMarks) {
  const Separators french = SeparatorsOf(QLocale(QLocale::French, QLocale::France));
  EXPECT_EQ(french.decimal, ',');
  EXPECT_EQ(french.group, u'\u202F');
  const Separators egyptian = SeparatorsOf(QLocale(QLocale::Arabic, QLocale::Egypt));
  EXPECT_EQ(egyptian.decimal, '.');
  EXPECT_EQ(egyptian.group, u'\u066C');
  EXPECT_EQ(egyptian.typed_decimal, u'\u066B');
  const Separators persian = SeparatorsOf(QLocale(QLocale::Persian, QLocale::Iran));
  EXPECT_EQ(persian.decimal, '.');
}

}  // namespace
}  // namespace sorvane
