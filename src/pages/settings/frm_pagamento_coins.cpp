#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "board/message.h"
#include "pages/settings/frm_pagamento.h"
#include "pages/settings/frm_pagamento_fields.h"
#include "shell/controls/tab_pages.h"

// The coin and banknote channels of the payment page.
namespace sorvane {
namespace {

constexpr int kFirstBanknoteLabel = 21;
constexpr int kChannelsPerByte = 8;

// A column of eight switches, one for each channel of a byte of flags.
void AddChannels(FlagSwitches& switches, QWidget& tab, int first) {
  for (int i = 0; i < kChannelsPerByte; ++i) {
    const int channel = first + i;
    switches.Add(tab, {
                          .label = kFirstBanknoteLabel + channel,
                          .toggle = "SwitchX3",
                          .index = channel,
                          .message = message::kBanknote,
                          .number = channel + 1,
                          .mask = 1 << i,
                      });
  }
}

}  // namespace

void FrmPagamento::AddBanknotesTab() {
  QWidget* tab = general_tabs_->AddTab(QString());
  AddChannels(banknotes_low_, *tab, 0);
  AddChannels(banknotes_high_, *tab, kChannelsPerByte);
  auto* low = new QGridLayout;
  banknotes_low_.LayOut(*low, {.first = 0, .count = kChannelsPerByte}, AddHead(7, "No", tab),
                        AddHead(6, "Si", tab));
  auto* high = new QGridLayout;
  banknotes_high_.LayOut(*high, {.first = 0, .count = kChannelsPerByte}, AddHead(8, "No", tab),
                         AddHead(9, "Si", tab));
  auto* columns = new QHBoxLayout;
  columns->addLayout(low);
  columns->addStretch();
  columns->addLayout(high);
  columns->addStretch();
  auto* layout = new QVBoxLayout(tab);
  layout->addLayout(columns);
  layout->addStretch();
}

void FrmPagamento::AddCoinsTab() {
  QWidget* tab = general_tabs_->AddTab(QString());
  auto* fields = new QWidget(tab);
  coins_.Add(*fields, kCoinRows);
  LayOutFields(coins_, fields);
  fields->layout()->setContentsMargins({});  // the tab has room around it
  auto* layout = new QVBoxLayout(tab);
  layout->addWidget(fields);
  layout->addStretch();
}

void FrmPagamento::LoadCoinCaptions() {
  banknotes_low_.LoadCaptions();
  banknotes_high_.LoadCaptions();
  coins_.LoadCaptions();
}

}  // namespace sorvane
