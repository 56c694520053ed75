#include <gtest/gtest.h>

#include <QLabel>
#include <memory>

#include "docs/howto/frm_interventi.h"
#include "pages/page_tests.h"

namespace sorvane::test {
namespace {

constexpr PageEntry kEntry = {"MnuContatori", "FrmInterventi"};

Program::Setup WithThePage() {
  Program::Setup setup;
  setup.pages = {{MenuEntry::kCounters, kEntry.form, [](const PageServices& services) {
                    return std::make_unique<FrmInterventi>(services);
                  }}};
  return setup;
}

TEST(HowToPage, ShowsWhatTheBoardAnswersUnderItsCaptions) {
  Program program(WithThePage());
  program.Connect();
  program.Open(kEntry.entry);
  EXPECT_EQ(program.Find<QLabel>(kEntry.form, "LabelMess1(1)").text(), "Alfa 70");
  EXPECT_EQ(program.Find<QLabel>(kEntry.form, "Label1(1)").text(), "0");
}

TEST(HowToPage, AsksForWhatItWatches) {
  Program program(WithThePage());
  program.Connect();
  program.Open(kEntry.entry);
  program.link.wire.Expect(ReadFrame(351, 4));
  program.link.wire.Expect(ReadFrame(352, 4));
  program.link.wire.ExpectNothing();
}

}  // namespace
}  // namespace sorvane::test
