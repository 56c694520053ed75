#pragma once

#include "board/alarm_ring.h"
#include "shell/page/page.h"

class QProgressBar;

namespace sorvane {

class RecordList;

// The last twenty alarms that the machine has logged, newest first. The list shows once the whole
// ring has been read, and is built anew at every reply of it from then on.
class FrmAllarmi : public Page {
 public:
  explicit FrmAllarmi(const PageServices& services);

 protected:
  std::vector<int32_t> WatchedParameters() const override;
  void LoadPageCaptions() override {}  // its texts are the same in all languages
  void OnReply(const Reply& reply) override;

 private:
  bool IsRingFresh() const;
  void BuildAlarmList();
  void ShowProgress();

  AlarmRing ring_;
  // Replies of the ring and its pointer since the page was loaded. A page may stand open for weeks.
  int64_t AlarmReplies = 0;
  RecordList* list_;
  QProgressBar* progress_;
};

}  // namespace sorvane
