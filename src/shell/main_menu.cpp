#include "shell/main_menu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "board/message.h"
#include "shell/guarded_connect.h"
#include "shell/message_table.h"
#include "shell/settings.h"
#include "shell/western_text.h"

namespace sorvane {
namespace {

enum class Kind { kEntry, kDropDown, kWindows, kSeparator };

struct MenuRow {
  const char* name;
  const char* caption;  // before a language is applied
  const char* parent;   // the drop-down that holds it, or empty at the top
  Kind kind;
  bool needs_board;
  int message;  // that gives the caption; 0 where it is the same in all languages
};

constexpr MenuRow kRows[] = {
    {"mnuConnect", "Connect", "", Kind::kEntry, false, 0},
    {"MnuPassword", "Password", "", Kind::kEntry, true, message::kPassword},
    {"MnuImpostazioni", "Impostazioni", "", Kind::kEntry, true, message::kSettings},
    {"MnuPrezzi", "Prezzi", "", Kind::kEntry, true, message::kPrices},
    {"MnuSconti", "Sconti", "", Kind::kEntry, true, message::kDiscounts},
    {"MnuPagamento", "Pagamento", "", Kind::kEntry, true, message::kPayment},
    {"MnuSet", "Set ", "", Kind::kDropDown, true, 0},
    {"Mnutasti", "Tasti / Colonne", "MnuSet", Kind::kEntry, true, message::kKeysColumns},
    {"MnuColonne", "Colonne / Prodotti", "MnuSet", Kind::kEntry, true, message::kColumnsProducts},
    {"MnuOrologio", "Orologio", "", Kind::kEntry, true, message::kClock},
    {"MnuVendite", "Vendite", "", Kind::kDropDown, true, message::kSales},
    {"MnuTotali", "Totali", "MnuVendite", Kind::kEntry, true, message::kTotals},
    {"MnuContatori", "Contatori", "MnuVendite", Kind::kEntry, true, message::kCounters},
    {"MnuMonete", "Monete", "MnuVendite", Kind::kEntry, true, message::kCoins},
    {"MnuBanconote", "Banconote", "MnuVendite", Kind::kEntry, true, message::kBanknotes},
    {"MnuAllarmi", "Allarmi", "", Kind::kEntry, true, message::kAlarms},
    {"mnuLingue", "Lingue", "", Kind::kDropDown, false, message::kLanguages},
    {"smnuLingue(0)", "", "mnuLingue", Kind::kEntry, false, 0},
    {"smnuLingue(1)", "", "mnuLingue", Kind::kEntry, false, 0},
    {"smnuLingue(2)", "", "mnuLingue", Kind::kEntry, false, 0},
    {"smnuLingue(3)", "", "mnuLingue", Kind::kEntry, false, 0},
    {"smnuLingue(4)", "", "mnuLingue", Kind::kEntry, false, 0},
    {"smnuLingue(5)", "", "mnuLingue", Kind::kEntry, false, 0},
    {"smnuLingue(6)", "", "mnuLingue", Kind::kEntry, false, 0},
    {"smnuLingue(7)", "", "mnuLingue", Kind::kEntry, false, 0},
    {"smnuLingue(8)", "", "mnuLingue", Kind::kEntry, false, 0},
    {"smnuLingue(9)", "", "mnuLingue", Kind::kEntry, false, 0},
    {"mnuWL", "Windows", "", Kind::kWindows, false, 0},
    {"mnuCom", "COM", "", Kind::kDropDown, false, 0},
    {"mnuCox(1)", "COM&1", "mnuCom", Kind::kEntry, false, 0},
    {"mnuCox(2)", "COM&2", "mnuCom", Kind::kEntry, false, 0},
    {"mnuCox(3)", "COM&3", "mnuCom", Kind::kEntry, false, 0},
    {"mnuCox(4)", "COM&4", "mnuCom", Kind::kEntry, false, 0},
    {"M2", "-", "mnuCom", Kind::kSeparator, false, 0},
    {"mnuUSB", "&USB", "mnuCom", Kind::kEntry, false, 0},
    {"mnuVer", "?", "", Kind::kEntry, false, 0},
};

}  // namespace

MainMenu::MainMenu(QMenuBar& bar, ProgramGate& gate) : gate_(gate) {
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    QAction* action = Add(bar, i);
    action->setObjectName(kRows[i].name);
    entries_[kRows[i].name] = action;
  }
}

QAction* MainMenu::Add(QMenuBar& bar, std::size_t row) {
  const MenuRow& entry = kRows[row];
  QWidget& parent = *entry.parent == '\0' ? static_cast<QWidget&>(bar) : *menus_.at(entry.parent);
  switch (entry.kind) {
    case Kind::kSeparator: {
      auto* line = new QAction(&parent);
      line->setSeparator(true);
      parent.addAction(line);
      return line;
    }
    case Kind::kDropDown:
    case Kind::kWindows: {
      QMenu* menu = bar.addMenu(entry.caption);
      menu->setObjectName(entry.name);
      menus_[entry.name] = menu;
      if (entry.kind == Kind::kWindows) {
        ConnectGuarded(gate_, menu, &QMenu::aboutToShow, this, [this, menu] { on_windows(*menu); });
      }
      return menu->menuAction();
    }
    case Kind::kEntry:
      break;
  }
  QAction* action = parent.addAction(entry.caption);
  const QString name = entry.name;
  ConnectGuarded(gate_, action, &QAction::triggered, this, [this, name] { on_chosen(name); });
  return action;
}

void MainMenu::InitMenu(const MessageTable& messages) {
  for (const MenuRow& row : kRows) {
    if (row.message != 0) Entry(row.name).setText(FromWestern(messages[row.message]));
  }
}

void MainMenu::EnableBoardEntries(bool enabled) {
  for (const MenuRow& row : kRows) {
    if (row.needs_board) Entry(row.name).setEnabled(enabled);
  }
}

void MainMenu::Enable(const QString& entry, bool enabled) { Entry(entry).setEnabled(enabled); }

void MainMenu::ShowMarks(const MenuMarks& marks) {
  const auto show = [this](const QString& name, bool checked) {
    Entry(name).setCheckable(true);
    Entry(name).setChecked(checked);
  };
  for (std::size_t i = 0; i < marks.smnuLingue.size(); ++i) {
    const QString name = QString("smnuLingue(%1)").arg(i);
    Entry(name).setText(EscapeAmpersands(FromWestern(marks.smnuLingue[i].caption)));
    Entry(name).setVisible(marks.smnuLingue[i].visible);
    show(name, marks.smnuLingue[i].checked);
  }
  for (int i = 1; i <= MenuMarks::kPorts; ++i) show(QString("mnuCox(%1)").arg(i), marks.mnuCox(i));
  show("mnuUSB", marks.mnuUSB);
}

QAction& MainMenu::Entry(const QString& name) { return *entries_.at(name); }

}  // namespace sorvane
