#include "pages/audit/audit_page.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMargins>
#include <algorithm>

#include "board/reply.h"
#include "shell/controls/value_label.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

constexpr int kCells = 3;  // caption, value and the gap before the next caption
constexpr const char* kWidest = "  4294967.295  ";  // what a box has room for

// The bordered box of a value. It can be reached and copied by keys, and shows that it has them.
class ValueBox : public ValueLabel {
 public:
  explicit ValueBox(QWidget* parent) : ValueLabel(kWidest, parent) {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
    setFrameStyle(QFrame::Panel);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setAutoFillBackground(true);  // or what lies below it would be painted with each value
    FixSize();
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    // A text that can be selected is laid out in its first painting, which asks for a second one.
    setAttribute(Qt::WA_UpdatesDisabled);
    ValueLabel::paintEvent(event);
    setAttribute(Qt::WA_UpdatesDisabled, false);
  }
};

}  // namespace

AuditPage::AuditPage(const PageServices& services, const char* form_name, int title_message,
                     std::span<const AuditGroup> groups)
    : Page(services, form_name), title_message_(title_message) {
  auto* cells = new QGridLayout(this);
  for (const AuditGroup& group : groups) AddGroup(*cells, group);
}

void AuditPage::AddGroup(QGridLayout& cells, const AuditGroup& group) {
  QWidget* parent = nullptr;
  if (group.frame == kNoFrame) {
    parent = new QWidget(this);
  } else {
    parent = new QGroupBox(this);
    parent->setObjectName(ControlName("Frame1", group.frame));
  }
  auto* grid = new QGridLayout(parent);
  const int columns = group.across ? static_cast<int>(group.rows.size()) : 1;
  for (const AuditRow& row : group.rows) {
    for (int i = 0; i < row.count; ++i) AddRow(*grid, *parent, row, i, columns);
  }
  for (int column = 1; column < columns; ++column) {
    grid->setColumnMinimumWidth(column * kCells - 1, GapAcross(cells, *parent, *grid));
  }
  grid->setRowStretch(grid->rowCount(), 1);
  cells.addWidget(parent, group.row, group.column, 1, group.across ? -1 : 1);
}

int AuditPage::GapAcross(const QGridLayout& cells, const QWidget& group, const QGridLayout& grid) {
  const QMargins line = group.contentsMargins();
  const QMargins room = grid.contentsMargins();
  return line.left() + line.right() + room.left() + room.right() + cells.horizontalSpacing() -
         grid.horizontalSpacing();
}

void AuditPage::AddRow(QGridLayout& grid, QWidget& parent, const AuditRow& row, int i,
                       int columns) {
  QLabel* caption = AddLabel(ControlName(row.caption, row.caption_index + i), &parent);
  captions_.push_back({caption, row.message, row.number == 0 ? 0 : row.number + i});
  auto* value = new ValueBox(&parent);
  value->setObjectName(ControlName("Label1", row.value + i));
  caption->setBuddy(value);
  values_.insert(row.parameter + i, value);
  const int place = grid.count() / 2;  // a caption and a value each
  const int line = place / columns;
  const int column = place % columns * kCells;
  grid.setColumnStretch(column, 1);
  grid.addWidget(caption, line, column);
  grid.addWidget(value, line, column + 1);
}

void AuditPage::LoadPageCaptions() {
  for (const Caption& caption : captions_) {
    QString text = Message(caption.message);
    if (caption.number != 0) text += QString(" %1").arg(caption.number);
    SetCaption(*caption.label, text);
  }
  AlignCaptions();
  setWindowTitle(Message(title_message_));
}

void AuditPage::AlignCaptions() {
  int widest = 0;
  for (const Caption& caption : captions_) {
    widest = std::max(widest, caption.label->sizeHint().width());
  }
  for (const Caption& caption : captions_) caption.label->setMinimumWidth(widest);
}

void AuditPage::OnReply(const Reply& reply) {
  if (QLabel* value = Value(reply.index)) value->setText(FromWestern(reply.AsText()));
}

}  // namespace sorvane
