#pragma once

#include <QProgressBar>
#include <QStringList>
#include <cstdint>
#include <vector>

#include "link/frm_ser.h"
#include "pages/page_tests.h"
#include "shell/controls/record_list.h"

namespace sorvane::test {

// One record of the alarm ring, as the board holds it.
struct RingRecord {
  std::uint32_t minute;
  std::uint32_t hour;
  std::uint32_t day;
  std::uint32_t month;
  std::uint32_t year;  // since 2000
  std::uint32_t code;
};

// The alarm page. The board's ring: record q is of q hours and 3 * q minutes on day q + 1 of March
// 2026, its code is 17 + q; the pointer is 0.
class AllarmiPage : public PageTest {
 protected:
  AllarmiPage() : PageTest("FrmAllarmi", "MnuAllarmi", kPoint) {
    for (std::uint32_t q = 0; q < 20; ++q) {
      SetRecord(static_cast<int>(q), {3 * q, q, q + 1, 3, 26, 17 + q});
    }
  }

  void SetRecord(int q, const RingRecord& record) {
    SetNumbers(119 + 8 * q,
               {record.minute, record.hour, record.day, record.month, record.year, record.code});
  }
  void SetCode(int q, std::uint32_t code) { SetNumbers(124 + 8 * q, {code}); }
  void SetPointer(std::uint32_t q) { SetNumbers(278, {q}); }

  // Opens the page and lets the board answer the whole ring; the frames of that are forgotten.
  void OpenRead() {
    OpenUnanswered();
    program.Sweep(165);
    program.link.wire.Forget();
  }
  // The page is told of an answer that no frame has asked for; no parameter gets fresh by it.
  void Tell(int parameter, uint8_t value) {
    program.gate.Run(
        [&] { program.link.ser.reply_notice({.index = parameter, .size = 0, .bytes = {value}}); });
  }

  RecordList& List() { return program.Find<RecordList>("FrmAllarmi", "ListView1"); }
  QProgressBar& Bar() { return program.Find<QProgressBar>("FrmAllarmi", "ProgressBar1"); }
  bool IsBarShown() { return Bar().isVisible(); }
  int Rows() { return List().topLevelItemCount(); }
  QStringList Row(int i) {
    const QTreeWidgetItem* item = List().topLevelItem(i);
    if (item == nullptr) return {"no row"};
    return {item->text(0), item->text(1), item->text(2), item->text(3)};
  }
  QStringList Column(int column) {
    QStringList texts;
    for (int i = 0; i < Rows(); ++i) texts << Row(i).at(column);
    return texts;
  }
  QStringList Times() { return Column(2); }
};

}  // namespace sorvane::test
