#include "shell/frame/main_menu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <optional>

#include "board/errors.h"
#include "board/message.h"
#include "shell/gate/guarded_connect.h"
#include "texts/menu_marks.h"
#include "texts/message_table.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

enum class Kind { kEntry, kDropDown, kWindows, kSeparator };

// The indexes of an entry that stands for several.
struct Indexes {
  int first;
  int last;
};

}  // namespace

struct MenuRow {
  MenuEntry entry;
  const char* name;                      // without an index
  const char* caption = "";              // before a language is applied; %1 is the index
  int message = 0;                       // that gives the caption; 0 where it is always the same
  std::optional<MenuEntry> parent = {};  // the drop-down that holds it; none at the top
  Kind kind = Kind::kEntry;
  bool needs_board = false;
  std::optional<Indexes> indexes = {};
};

namespace {

constexpr MenuRow kRows[] = {
    {.entry = MenuEntry::kConnect, .name = "mnuConnect", .caption = "Connect"},
    {.entry = MenuEntry::kPassword,
     .name = "MnuPassword",
     .caption = "Password",
     .message = message::kPassword,
     .needs_board = true},
    {.entry = MenuEntry::kSettings,
     .name = "MnuImpostazioni",
     .caption = "Impostazioni",
     .message = message::kSettings,
     .needs_board = true},
    {.entry = MenuEntry::kPrices,
     .name = "MnuPrezzi",
     .caption = "Prezzi",
     .message = message::kPrices,
     .needs_board = true},
    {.entry = MenuEntry::kDiscounts,
     .name = "MnuSconti",
     .caption = "Sconti",
     .message = message::kDiscounts,
     .needs_board = true},
    {.entry = MenuEntry::kPayment,
     .name = "MnuPagamento",
     .caption = "Pagamento",
     .message = message::kPayment,
     .needs_board = true},
    {.entry = MenuEntry::kMaps,
     .name = "MnuSet",
     .caption = "Set ",
     .kind = Kind::kDropDown,
     .needs_board = true},
    {.entry = MenuEntry::kKeys,
     .name = "Mnutasti",
     .caption = "Tasti / Colonne",
     .message = message::kKeysColumns,
     .parent = MenuEntry::kMaps,
     .needs_board = true},
    {.entry = MenuEntry::kColumns,
     .name = "MnuColonne",
     .caption = "Colonne / Prodotti",
     .message = message::kColumnsProducts,
     .parent = MenuEntry::kMaps,
     .needs_board = true},
    {.entry = MenuEntry::kClock,
     .name = "MnuOrologio",
     .caption = "Orologio",
     .message = message::kClock,
     .needs_board = true},
    {.entry = MenuEntry::kSales,
     .name = "MnuVendite",
     .caption = "Vendite",
     .message = message::kSales,
     .kind = Kind::kDropDown,
     .needs_board = true},
    {.entry = MenuEntry::kTotals,
     .name = "MnuTotali",
     .caption = "Totali",
     .message = message::kTotals,
     .parent = MenuEntry::kSales,
     .needs_board = true},
    {.entry = MenuEntry::kCounters,
     .name = "MnuContatori",
     .caption = "Contatori",
     .message = message::kCounters,
     .parent = MenuEntry::kSales,
     .needs_board = true},
    {.entry = MenuEntry::kCoins,
     .name = "MnuMonete",
     .caption = "Monete",
     .message = message::kCoins,
     .parent = MenuEntry::kSales,
     .needs_board = true},
    {.entry = MenuEntry::kBanknotes,
     .name = "MnuBanconote",
     .caption = "Banconote",
     .message = message::kBanknotes,
     .parent = MenuEntry::kSales,
     .needs_board = true},
    {.entry = MenuEntry::kAlarms,
     .name = "MnuAllarmi",
     .caption = "Allarmi",
     .message = message::kAlarms,
     .needs_board = true},
    {.entry = MenuEntry::kLanguages,
     .name = "mnuLingue",
     .caption = "Lingue",
     .message = message::kLanguages,
     .kind = Kind::kDropDown},
    {.entry = MenuEntry::kLanguage,
     .name = "smnuLingue",
     .parent = MenuEntry::kLanguages,
     .indexes = Indexes{0, MenuMarks::kLanguages - 1}},
    {.entry = MenuEntry::kWindows, .name = "mnuWL", .caption = "Windows", .kind = Kind::kWindows},
    {.entry = MenuEntry::kPorts, .name = "mnuCom", .caption = "COM", .kind = Kind::kDropDown},
    {.entry = MenuEntry::kPort,
     .name = "mnuCox",
     .caption = "COM&%1",
     .parent = MenuEntry::kPorts,
     .indexes = Indexes{1, MenuMarks::kPorts}},
    {.entry = MenuEntry::kLine,
     .name = "M2",
     .caption = "-",
     .parent = MenuEntry::kPorts,
     .kind = Kind::kSeparator},
    {.entry = MenuEntry::kUsb, .name = "mnuUSB", .caption = "&USB", .parent = MenuEntry::kPorts},
    {.entry = MenuEntry::kInfo, .name = "mnuVer", .caption = "?"},
};

// Calls handle with each index of a row, 0 for one that has none.
template <typename Handle>
void ForEachIndex(const MenuRow& row, const Handle& handle) {
  const Indexes indexes = row.indexes.value_or(Indexes{0, 0});
  for (int i = indexes.first; i <= indexes.last; ++i) handle(i);
}

}  // namespace

MainMenu::MainMenu(QMenuBar& bar, ProgramGate& gate) : gate_(gate) {
  for (const MenuRow& row : kRows) {
    ForEachIndex(row, [&](int i) {
      QAction* action = Add(bar, row, i);
      action->setObjectName(row.indexes ? QString("%1(%2)").arg(row.name).arg(i) : row.name);
      entries_[{row.entry, i}] = action;
    });
  }
}

QAction* MainMenu::Add(QMenuBar& bar, const MenuRow& row, int index) {
  QWidget& parent = row.parent ? *menus_.at(*row.parent) : static_cast<QWidget&>(bar);
  switch (row.kind) {
    case Kind::kSeparator: {
      auto* line = new QAction(&parent);
      line->setSeparator(true);
      parent.addAction(line);
      return line;
    }
    case Kind::kDropDown:
    case Kind::kWindows: {
      QMenu* menu = bar.addMenu(row.caption);
      menu->setObjectName(row.name);
      menus_[row.entry] = menu;
      if (row.kind == Kind::kWindows) {
        ConnectGuarded(gate_, menu, &QMenu::aboutToShow, this, [this, menu] { on_windows(*menu); });
      }
      return menu->menuAction();
    }
    case Kind::kEntry:
      break;
  }
  QAction* action = parent.addAction(QString(row.caption).replace("%1", QString::number(index)));
  ConnectGuarded(gate_, action, &QAction::triggered, this,
                 [this, entry = row.entry, index] { actions_.at(entry)(index); });
  return action;
}

void MainMenu::Do(MenuEntry entry, std::function<void(int index)> action) {
  actions_[entry] = std::move(action);
}

void MainMenu::CheckActions() const {
  for (const MenuRow& row : kRows) {
    if (row.kind == Kind::kEntry && !actions_.contains(row.entry)) throw InternalFault(row.name);
  }
}

void MainMenu::InitMenu(const MessageTable& messages) {
  for (const MenuRow& row : kRows) {
    if (row.message != 0) Entry(row.entry).setText(FromWestern(messages[row.message]));
  }
}

void MainMenu::EnableBoardEntries(bool enabled) {
  for (const MenuRow& row : kRows) {
    if (row.needs_board) Enable(row.entry, enabled);
  }
}

void MainMenu::Enable(MenuEntry entry, bool enabled) { Entry(entry).setEnabled(enabled); }

void MainMenu::ShowMarks(const MenuMarks& marks) {
  const auto show = [](QAction& entry, bool checked) {
    entry.setCheckable(true);
    entry.setChecked(checked);
  };
  for (int i = 0; i < MenuMarks::kLanguages; ++i) {
    const MenuMarks::Language& language = marks.smnuLingue[static_cast<std::size_t>(i)];
    QAction& entry = Entry(MenuEntry::kLanguage, i);
    entry.setText(EscapeAmpersands(FromWestern(language.caption)));
    entry.setVisible(language.visible);
    show(entry, language.checked);
  }
  for (int i = 1; i <= MenuMarks::kPorts; ++i) {
    show(Entry(MenuEntry::kPort, i), marks.mnuCox(i));
  }
  show(Entry(MenuEntry::kUsb), marks.mnuUSB);
}

QAction& MainMenu::Entry(MenuEntry entry, int index) { return *entries_.at({entry, index}); }

}  // namespace sorvane
