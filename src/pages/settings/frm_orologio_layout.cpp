#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "pages/settings/frm_orologio.h"
#include "pages/settings/frm_orologio_fields.h"
#include "shell/controls/bar.h"
#include "shell/controls/clock_face.h"
#include "shell/controls/slider.h"
#include "shell/controls/tab_pages.h"
#include "shell/controls/value_label.h"
#include "shell/gate/guarded_connect.h"
#include "shell/page/page_sizes.h"
#include "texts/western_text.h"

// What stands on the clock page, and its captions.
namespace sorvane {
namespace {

// The labels of the discount bands in the order of their times: start 1, end 1, start 2, end 2.
// Behind these four come a label for the hours and one for the minutes of each.
constexpr int kBandOrder[] = {0, 2, 1, 3};
constexpr int kBandTimes = 4;
constexpr int kBandHours = kBandTimes;
constexpr int kBandMinutes = 2 * kBandTimes;

// The labels of the times of switching on and off.
constexpr int kOnOffTimes = 2;
constexpr const char* kFixedMinutes = "minuti";

}  // namespace

// The controls are made in the order in which Tab goes through them.
FrmOrologio::FrmOrologio(const PageServices& services)
    : Page(services, "FrmOrologio"),
      tabs_(new TabPages(Gate(), this)),
      clock_(*this, state_),
      bands_(*this, state_),
      on_off_(*this, state_) {
  tabs_->setObjectName("SSTab1");
  tabs_->closed_hint = [this] { return HintOf(Hint::kClockUnknown); };
  AddClockTab();
  AddBandsTab();
  AddOnOffTab();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabs_);
}

void FrmOrologio::AddClockTab() {
  QWidget* tab = tabs_->AddTab(QString());
  frame_ = new QGroupBox(tab);
  frame_->setObjectName("Frame1");
  clock_.Add(*frame_, kClockRows);
  auto* fields = new QGridLayout(frame_);
  clock_.LayOut(*fields, {.rows_per_column = clock_.Count(),
                          .box_characters = page_size::kTimeBox,
                          .bar_characters = page_size::kBar});
  face_ = new ClockFace(tab);
  face_->setObjectName("iSevenSegmentClockX1");
  date_ = new ValueLabel("00/00/0000", tab);
  date_->setObjectName("Label0");
  date_->setAlignment(Qt::AlignCenter);
  copy_ = new QPushButton("Copy PC Time", tab);
  copy_->setObjectName("Command1");
  ConnectGuarded(Gate(), copy_, &QPushButton::clicked, this, [this] { CopyPcTime(); });

  auto* display = new QVBoxLayout;
  display->addStretch();
  display->addWidget(face_, 0, Qt::AlignHCenter);
  display->addWidget(date_, 0, Qt::AlignHCenter);
  display->addStretch();
  display->addWidget(copy_);
  auto* layout = new QHBoxLayout(tab);
  layout->addWidget(frame_, 1);
  layout->addLayout(display);
}

void FrmOrologio::AddBandsTab() {
  QWidget* tab = tabs_->AddTab(QString());
  tab->setObjectName("Frame3");
  bands_.Add(*tab, kBandRows);
  for (int i = 0; i < 3 * kBandTimes; ++i) {
    band_labels_.push_back(AddLabel(ControlName("LabelMes2", i), tab));
  }
  auto* grid = new QGridLayout;
  for (int time = 0; time < kBandTimes; ++time) {
    grid->addWidget(band_labels_.at(kBandOrder[time]), time, 0);
    LayOutTime(*grid, time, bands_, band_labels_.at(kBandHours + time),
               band_labels_.at(kBandMinutes + time));
  }
  auto* layout = new QVBoxLayout(tab);
  layout->addLayout(grid);
  layout->addStretch();
}

void FrmOrologio::AddOnOffTab() {
  QWidget* tab = tabs_->AddTab(QString());
  tab->setObjectName("Frame2(0)");
  on_off_.Add(*tab, kOnOffRows);
  for (int i = 0; i < kOnOffTimes; ++i) {
    on_off_labels_.push_back(AddLabel(ControlName("Label2", i), tab));
  }
  for (int i = 0; i < 2 * kOnOffTimes; ++i) {
    unit_labels_.push_back(AddLabel(ControlName("LabelMes3", i), tab));
    unit_labels_.back()->setText(kFixedMinutes);
  }
  switch_ = new Slider(Gate(), tab);
  switch_->setObjectName("iSwitchSliderX1");
  switch_->SetLabels("SI,NO");
  switch_->on_change = [this] { OnSwitch(); };
  switch_label_ = AddLabel("Label1", tab);
  switch_label_->setBuddy(switch_);

  auto* grid = new QGridLayout;
  for (int time = 0; time < kOnOffTimes; ++time) {
    grid->addWidget(on_off_labels_.at(time), time, 0);
    LayOutTime(*grid, time, on_off_, unit_labels_.at(time), unit_labels_.at(time + kOnOffTimes));
  }
  auto* switch_row = new QHBoxLayout;  // its long caption would widen a column of the grid
  switch_row->addWidget(switch_label_);
  switch_row->addWidget(switch_);
  switch_row->addStretch();
  auto* layout = new QVBoxLayout(tab);
  layout->addLayout(grid);
  layout->addLayout(switch_row);
  layout->addStretch();
}

void FrmOrologio::LayOutTime(QGridLayout& grid, int row, FieldGroup& times, QLabel* hours,
                             QLabel* minutes) {
  int column = 1;
  int i = 2 * row;
  for (QLabel* unit : {hours, minutes}) {
    Field& field = times.At(i++);
    unit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    unit->setBuddy(field.Box());
    field.Box()->setFixedWidth(page_size::Pixels(page_size::kTimeBox, *this));
    field.GetBar()->setMinimumWidth(page_size::Pixels(page_size::kBar, *this));
    grid.addWidget(unit, row, column++);
    grid.addWidget(field.Box(), row, column++);
    grid.addWidget(field.GetBar(), row, column);
    grid.setColumnStretch(column++, 1);
  }
}

void FrmOrologio::LoadPageCaptions() {
  const QString both = Message(message::kSwitchOn) + "/" + Message(message::kSwitchOff);
  setWindowTitle(Message(message::kClock));
  tabs_->SetCaption(0, Message(message::kClockTab));
  tabs_->SetCaption(1, Message(message::kBandsTab));
  tabs_->SetCaption(2, both);
  frame_->setTitle(EscapeAmpersands(Message(message::kSetTime)));
  clock_.LoadCaptions();
  LoadBandCaptions();
  SetCaption(*switch_label_, both);
  switch_->setAccessibleName(both);
  face_->setAccessibleName(Message(message::kClockTab));
  LoadOnOffCaptions();
  switch_->SetLabels(Message(message::kYes) + "," + Message(message::kNo));
}

void FrmOrologio::LoadBandCaptions() {
  for (int time = 0; time < kBandTimes; ++time) {
    const int message = time % 2 == 0 ? message::kBandStart : message::kBandEnd;
    const QString caption = QString("%1 %2").arg(Message(message)).arg(time / 2 + 1);
    SetCaption(*band_labels_.at(kBandOrder[time]), caption);
    int i = 2 * time;
    for (const int unit : {message::kHours, message::kMinutes}) {
      const int first = unit == message::kHours ? kBandHours : kBandMinutes;
      SetCaption(*band_labels_.at(first + time), Message(unit));
      bands_.At(i++).SetSpokenName(caption + " " + Message(unit));
    }
  }
}

void FrmOrologio::LoadOnOffCaptions() {
  int i = 0;
  for (const int message : {message::kSwitchOn, message::kSwitchOff}) {
    const QString caption = Message(message);
    SetCaption(*on_off_labels_.at(i / 2), caption);
    on_off_.At(i++).SetSpokenName(caption + " " + Message(message::kHours));
    on_off_.At(i++).SetSpokenName(caption + " " + Message(message::kMinutes));
  }
  // The hours of switching off bear the word for minutes, and the minutes' own labels stay as they
  // are in every language. Technicians have been living with it.
  SetCaption(*unit_labels_.at(0), Message(message::kHours));
  SetCaption(*unit_labels_.at(1), Message(message::kMinutes));
}

}  // namespace sorvane
