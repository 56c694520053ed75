#include "pages/audit/frm_allarmi.h"

#include <QDate>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QSizePolicy>
#include <QVBoxLayout>
#include <algorithm>

#include "board/parameter.h"
#include "board/reply.h"
#include "shell/controls/record_list.h"
#include "shell/page/dates.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

constexpr int kAllReplies = parameter::kAlarmBytes + 1;  // of the ring and its pointer

QString DateText(const Alarm& alarm, const QLocale& locale) {
  if (!alarm.dated) return "00/00/00";
  return locale.toString(DateOf(alarm.day_number), QLocale::ShortFormat);
}

// The longest date of a year.
QString WidestDate(const QLocale& locale, const QFontMetrics& letters) {
  QString widest;
  for (int month = 1; month <= 12; ++month) {
    const QString date = locale.toString(QDate(2028, month, 28), QLocale::ShortFormat);
    if (letters.horizontalAdvance(date) > letters.horizontalAdvance(widest)) widest = date;
  }
  return widest;
}

// "09:05"; what is no time shows as the numbers that it is.
QString TimeText(const Alarm& alarm) {
  return QString("%1:%2").arg(alarm.hour, 2, 10, QChar('0')).arg(alarm.minute, 2, 10, QChar('0'));
}

}  // namespace

FrmAllarmi::FrmAllarmi(const PageServices& services)
    : Page(services, "FrmAllarmi"),
      list_(new RecordList({"nr.", "data", "ora", "descrizione"},
                           {QString::number(parameter::kAlarmRecords),
                            WidestDate(services.locale, fontMetrics()), "255:255"},
                           parameter::kAlarmRecords, this)),
      progress_(new QProgressBar(this)) {
  setWindowTitle("Allarmi");
  list_->setObjectName("ListView1");
  progress_->setObjectName("ProgressBar1");
  progress_->setRange(0, kAllReplies);
  progress_->setValue(0);
  progress_->setTextVisible(false);
  QLabel* heading = AddLabel("Label1", this);
  heading->setText("Ultimi 20 allarmi rilevati");
  heading->setBuddy(list_);
  list_->setAccessibleName(heading->text());
  progress_->setAccessibleName(heading->text());
  QSizePolicy kept = progress_->sizePolicy();
  kept.setRetainSizeWhenHidden(true);  // the list keeps its place
  progress_->setSizePolicy(kept);
  auto* top = new QHBoxLayout;
  top->addWidget(heading, 1);
  top->addWidget(progress_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(list_, 1);
}

std::vector<int32_t> FrmAllarmi::WatchedParameters() const {
  std::vector<int32_t> watched = {parameter::kAlarmPointer};
  for (int32_t i = 0; i < parameter::kAlarmBytes; ++i) watched.push_back(parameter::kAlarmRing + i);
  return watched;
}

void FrmAllarmi::OnReply(const Reply& reply) {
  if (ring_.Take(reply)) {
    ++AlarmReplies;
    if (IsRingFresh()) BuildAlarmList();
  }
  ShowProgress();
}

bool FrmAllarmi::IsRingFresh() const {
  for (int32_t i = 0; i < parameter::kAlarmBytes; ++i) {
    if (!IsParameterFresh(parameter::kAlarmRing + i)) return false;
  }
  return IsParameterFresh(parameter::kAlarmPointer);
}

void FrmAllarmi::BuildAlarmList() {
  QList<QStringList> rows;
  for (const Alarm& alarm : ring_.Alarms()) {
    rows.append({QString::number(rows.size() + 1), DateText(alarm, Services().locale),
                 TimeText(alarm), FromWestern(AlarmText(alarm.code))});
  }
  list_->SetRows(rows);
}

void FrmAllarmi::ShowProgress() {
  progress_->setValue(static_cast<int>(std::min<int64_t>(AlarmReplies, kAllReplies)));
  if (AlarmReplies >= kAllReplies) progress_->hide();
}

}  // namespace sorvane
