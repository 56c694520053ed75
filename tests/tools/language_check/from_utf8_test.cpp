#include "language_check/from_utf8.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

namespace sorvane {
namespace {

class FromUtf8Test : public ::testing::Test {
 protected:
  FromUtf8Test() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    folder_ =
        std::filesystem::path(::testing::TempDir()) / (std::string("from_utf8_") + test->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_ / "languages");
  }

  ~FromUtf8Test() override { std::filesystem::remove_all(folder_); }

  std::filesystem::path Text() const { return folder_ / "Romansh.txt"; }
  std::filesystem::path Target() const { return folder_ / "languages" / "Romansh.lng"; }

  static void Write(const std::filesystem::path& file, std::string_view bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
  }

  static std::string Read(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  int Convert(const std::filesystem::path& text) {
    out_.str("");
    errors_.str("");
    return ConvertFromUtf8(text, folder_ / "languages", out_, errors_);
  }

  // What becomes of a text that can be written.
  std::string Converted(std::string_view utf8) {
    Write(Text(), utf8);
    EXPECT_EQ(Convert(Text()), 0) << out_.str() << errors_.str();
    EXPECT_EQ(out_.str() + errors_.str(), "");
    return Read(Target());
  }

  std::filesystem::path folder_;
  std::ostringstream out_;
  std::ostringstream errors_;
};

TEST_F(FromUtf8Test, EveryCharacterOfTheCodePageBecomesItsByte) {
  std::string utf8;
  std::string western;
  for (unsigned byte = 0xA0; byte <= 0xFF; ++byte) {
    utf8 += static_cast<char>(0xC0 | (byte >> 6));
    utf8 += static_cast<char>(0x80 | (byte & 0x3F));
    western += static_cast<char>(byte);
  }
  EXPECT_EQ(Converted("Az ~" + utf8 + "\r\n"), "Az ~" + western + "\r\n");
  EXPECT_EQ(Converted("€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ\r\n"),
            "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"
            "\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F\r\n");
}

TEST_F(FromUtf8Test, EveryLineEndsAsOnWindows) {
  EXPECT_EQ(Converted("one\ntwo\r\n\n;--\nlast"), "one\r\ntwo\r\n\r\n;--\r\nlast\r\n");
}

TEST_F(FromUtf8Test, TheMarkOfEditorsIsPassedOverAtTheBeginningAlone) {
  EXPECT_EQ(Converted("\xEF\xBB\xBFs\u00EC\n"), "s\xEC\r\n");
  Write(Text(), "one\n\xEF\xBB\xBFtwo\n");
  EXPECT_EQ(Convert(Text()), 1);
  EXPECT_EQ(out_.str(), "Romansh.txt:2: U+FEFF, which code page 1252 doesn't have\n");
}

TEST_F(FromUtf8Test, EachLineWithACharacterOutsideTheCodePageIsToldAndNothingIsWritten) {
  Write(Target(), "earlier\r\n");
  Write(Text(), "pretsch\nre\u021Bet\u0103\nura\n\U0001F600\n\u0081\n");
  EXPECT_EQ(Convert(Text()), 1);
  EXPECT_EQ(out_.str(),
            "Romansh.txt:2: U+021B, which code page 1252 doesn't have\n"
            "Romansh.txt:4: U+1F600, which code page 1252 doesn't have\n"
            "Romansh.txt:5: U+0081, which code page 1252 doesn't have\n");
  EXPECT_EQ(errors_.str(), "");
  EXPECT_EQ(Read(Target()), "earlier\r\n");
}

TEST_F(FromUtf8Test, ALineThatIsntUtf8IsTold) {
  for (const char* wrong :
       {"\xE8", "\xC3", "\xC3(", "\x80", "\xC0\xAF", "\xC1\xBF", "\xE0\x80\xAF", "\xED\xA0\x80",
        "\xF0\x80\x80\xAF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82"}) {
    Write(Text(), "right\n" + std::string(wrong) + "\nright\n");
    EXPECT_EQ(Convert(Text()), 1);
    EXPECT_EQ(out_.str(), "Romansh.txt:2: not saved as UTF-8\n") << wrong;
    EXPECT_FALSE(std::filesystem::exists(Target()));
  }
}

TEST_F(FromUtf8Test, ATextThatCantBeReadIsTold) {
  EXPECT_EQ(Convert(folder_ / "absent.txt"), 2);
  EXPECT_EQ(errors_.str(), "can't read " + (folder_ / "absent.txt").string() + "\n");
  EXPECT_EQ(out_.str(), "");
}

TEST_F(FromUtf8Test, AFileThatCantBeWrittenIsTold) {
  Write(Text(), "words\n");
  std::filesystem::create_directory(Target());
  EXPECT_EQ(Convert(Text()), 2);
  EXPECT_EQ(errors_.str(), "can't write " + Target().string() + "\n");
}

TEST_F(FromUtf8Test, TheTextItselfIsntOverwritten) {
  Write(Target(), "s\u00EC\n");
  EXPECT_EQ(Convert(Target()), 2);
  EXPECT_EQ(errors_.str(), Target().string() + ": is the text itself, which isn't overwritten\n");
  EXPECT_EQ(Read(Target()), "s\u00EC\n");
}

}  // namespace
}  // namespace sorvane
