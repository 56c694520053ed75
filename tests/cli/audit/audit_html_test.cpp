#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QXmlStreamReader>
#include <map>

#include "cli/audit/audit_fixture.h"
#include "cli/audit_formats.h"
#include "cli/audit_words.h"

namespace sorvane::test {
namespace {

using namespace sorvane::cli;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// What stands in a page, by its tags. The page is written so that a reader of XML takes it as well,
// which is stricter about tags than any browser.
struct Page {
  std::string error;
  std::map<std::string, int> elements;
  std::vector<std::string> wrongs;   // what nobody who can't see the page could make out
  std::vector<std::string> outside;  // what would be fetched or run
  std::string language;
  std::vector<std::string> bars;  // their titles
  std::string text;
};

void CheckElement(const QXmlStreamReader& reader, const std::string& name, Page& page) {
  const QXmlStreamAttributes attributes = reader.attributes();
  if (name == "html") page.language = attributes.value("lang").toString().toStdString();
  if (name == "th" && attributes.value("scope") != u"col" && attributes.value("scope") != u"row") {
    page.wrongs.push_back("a heading of nothing");
  }
  if (name == "svg" && attributes.value("role") != u"img") page.wrongs.push_back("no picture");
  for (const char* tag : {"script", "link", "img", "iframe", "object", "use", "image", "base"}) {
    if (name == tag) page.outside.push_back(name);
  }
  for (const QXmlStreamAttribute& attribute : attributes) {
    const std::string key = attribute.name().toString().toStdString();
    if (key == "src" || key == "href" || key == "style" || key.starts_with("on")) {
      page.outside.push_back(name + ' ' + key);
    }
  }
}

Page PageOf(const std::string& html) {
  Page page;
  QXmlStreamReader reader(QByteArray::fromStdString(html));
  std::vector<std::string> open;
  bool titled = true;  // the picture that is open
  while (!reader.atEnd()) {
    reader.readNext();
    const std::string name = reader.name().toString().toStdString();
    if (reader.isStartElement()) {
      ++page.elements[name];
      if (name == "title" && !open.empty() && open.back() == "svg") {
        titled = true;
        page.bars.emplace_back();
      }
      if (name == "svg") titled = false;
      open.push_back(name);
      CheckElement(reader, name, page);
    } else if (reader.isEndElement()) {
      if (name == "svg" && !titled) page.wrongs.push_back("a picture without a title");
      open.pop_back();
    } else if (reader.isCharacters() && !open.empty() && open.back() != "style") {
      const std::string text = reader.text().toString().toStdString();
      const bool bar = open.size() > 1 && open[open.size() - 2] == "svg" && open.back() == "title";
      if (bar) page.bars.back() += text;
      page.text += text;
    }
  }
  if (reader.hasError()) page.error = reader.errorString().toStdString();
  return page;
}

// A machine whose texts would break a page that takes them as they are.
Snapshot HostileMachine() {
  Snapshot machine = Machine();
  machine.program = "<script>alert(1)</script>";
  machine.index_file = "a\"b'c & d</td>\x01\x7f";
  machine.time = "<!--";
  return machine;
}

std::vector<std::string> AllPages() {
  std::vector<std::string> pages;
  for (const Language language : {Language::kEnglish, Language::kItalian}) {
    const AuditManner manner{.language = language, .mark = ','};
    pages.push_back(AuditHtml(Gathered(Machine()), manner));
    pages.push_back(AuditHtml(Gathered(Machine(), MonthBefore()), manner));
    pages.push_back(AuditHtml(Gathered(HostileMachine()), manner));
    Snapshot empty = Machine();
    empty.values.clear();
    pages.push_back(AuditHtml(Gathered(empty), manner));
  }
  return pages;
}

TEST(AuditHtmlTest, TagsBalance) {
  for (const std::string& html : AllPages()) {
    const Page page = PageOf(html);
    EXPECT_EQ(page.error, "");
    EXPECT_EQ(page.elements.at("html"), 1);
    EXPECT_EQ(page.elements.at("h1"), 1);
  }
}

TEST(AuditHtmlTest, NothingIsFetchedAndNothingRuns) {
  for (const std::string& html : AllPages()) {
    EXPECT_THAT(PageOf(html).outside, IsEmpty());
    for (const char* word : {"url(", "@import", "http:", "https:", "javascript:", "expression("}) {
      EXPECT_THAT(html, Not(HasSubstr(word)));
    }
  }
}

TEST(AuditHtmlTest, HeadingsAndPicturesTellWhatTheyAre) {
  for (const std::string& html : AllPages()) EXPECT_THAT(PageOf(html).wrongs, IsEmpty());
}

TEST(AuditHtmlTest, PageSaysItsLanguage) {
  EXPECT_EQ(PageOf(AuditHtml(Gathered(Machine()), {})).language, "en");
  const Page page = PageOf(AuditHtml(Gathered(Machine()), {.language = Language::kItalian}));
  EXPECT_EQ(page.language, "it");
  EXPECT_THAT(page.text, HasSubstr("Contabilità della macchina 100234"));
}

TEST(AuditHtmlTest, TextsStandAsTheyAre) {
  const Page page = PageOf(AuditHtml(Gathered(HostileMachine()), {}));
  EXPECT_EQ(page.elements.count("script"), 0U);
  EXPECT_THAT(page.text, HasSubstr("<script>alert(1)</script>"));
  EXPECT_THAT(page.text, HasSubstr("a\"b'c & d</td>  "));
  EXPECT_THAT(page.text, HasSubstr("<!--"));
}

TEST(AuditHtmlTest, EveryCountOfSelectionsMotorsAndChannelsIsDrawn) {
  const Page page = PageOf(AuditHtml(Gathered(Machine()), {}));
  ASSERT_EQ(page.bars.size(), 10U + 10U + 10U + 16U + 16U);
  EXPECT_EQ(page.bars.front(), "selection 1, vends: 412");
  EXPECT_EQ(page.bars.back(), "channel 16, taken: 0");
}

TEST(AuditHtmlTest, BarIsAsLongAsItsShareOfTheHighest) {
  Snapshot machine = Machine();
  Put(machine, "motor-blocks.1", 3);
  Put(machine, "motor-blocks.2", 4294967295U);
  Put(machine, "motor-blocks.3", 2147483648U);
  Put(machine, "motor-blocks.4", 1431655765U);
  const std::string html = AuditHtml(Gathered(machine), {});
  const auto width = [&](const std::string& title) {
    const std::string begin = "<title>" + title + "</title><rect width=\"";
    const std::size_t at = html.find(begin) + begin.size();
    return html.substr(at, html.find('"', at) - at);
  };
  EXPECT_EQ(width("motor 1, blocks: 3"), "0.0");
  EXPECT_EQ(width("motor 2, blocks: 4294967295"), "100.0");
  EXPECT_EQ(width("motor 3, blocks: 2147483648"), "50.0");
  EXPECT_EQ(width("motor 4, blocks: 1431655765"), "33.3");
}

TEST(AuditHtmlTest, MachineThatHasCountedNothingHasBarsWithoutALength) {
  Snapshot machine = Machine();
  for (int n = 1; n <= 10; ++n) Put(machine, "motor-blocks." + std::to_string(n), 0);
  EXPECT_THAT(AuditHtml(Gathered(machine), {}),
              HasSubstr("motor 10, blocks: 0</title><rect width=\"0.0\""));
}

TEST(AuditHtmlTest, PageIsReadableInTheDarkAndOnPaper) {
  const std::string html = AuditHtml(Gathered(Machine()), {});
  EXPECT_THAT(html, HasSubstr("@media screen and (prefers-color-scheme: dark)"));
  EXPECT_THAT(html, HasSubstr("@media print"));
}

TEST(AuditHtmlTest, AlarmsThatThereAreNotAreSaid) {
  Snapshot machine = Machine();
  Put(machine, "alarm." + machine.Find("alarm.newest")->shown + ".code", 255);
  EXPECT_THAT(PageOf(AuditHtml(Gathered(machine), {})).text, HasSubstr("no alarms"));
  EXPECT_THAT(PageOf(AuditHtml(Gathered(machine), {.language = Language::kItalian})).text,
              HasSubstr("nessun allarme"));
}

TEST(AuditHtmlTest, RemarksStandOnThePage) {
  const AuditData data = Gathered(Machine(), MonthBefore());
  EXPECT_THAT(PageOf(AuditHtml(data, {})).text,
              HasSubstr(RemarkOf(data.remarks.front(), Language::kEnglish)));
}

}  // namespace
}  // namespace sorvane::test
