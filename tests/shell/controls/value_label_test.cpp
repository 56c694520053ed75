#include "shell/controls/value_label.h"

#include <QFont>
#include <QFontMetrics>

#include "shell/controls/bench.h"

namespace sorvane {
namespace {

constexpr const char* kWidest = "00/00/0000";

bool HasRoomFor(const ValueLabel& label, const QString& text) {
  const QSize size = label.fontMetrics().size(Qt::TextSingleLine, text);
  return size.boundedTo(label.size()) == size;
}

TEST(ValueLabel, IsAsLargeAsItsWidestTextWhateverStandsInIt) {
  ValueLabel label(kWidest, nullptr);
  label.show();
  const QSize empty = label.size();
  EXPECT_TRUE(HasRoomFor(label, kWidest));
  for (const char* text : {"1", "31/12/2026", ""}) {
    label.setText(text);
    label.adjustSize();
    EXPECT_EQ(label.size(), empty) << text;
  }
}

TEST(ValueLabel, GrowsWithItsFont) {
  ValueLabel label(kWidest, nullptr);
  QFont large = label.font();
  large.setPointSize(3 * large.pointSize());
  label.setFont(large);
  EXPECT_TRUE(HasRoomFor(label, kWidest));
}

TEST(ValueLabel, ShowsAMarkOfRichTextAsItStands) {
  const ValueLabel label(kWidest, nullptr);
  EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

}  // namespace
}  // namespace sorvane
