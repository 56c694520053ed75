#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>
#include <initializer_list>
#include <iterator>

#include "pages/settings/frm_pagamento.h"
#include "pages/settings/frm_pagamento_fields.h"
#include "shell/controls/tab_pages.h"

// What only an MDB system has on the payment page: limits, tubes and tokens.
namespace sorvane {
namespace {

constexpr const char* kTubesFrame = "Livello Minimo ";

void Stack(QWidget* tab, std::initializer_list<QWidget*> frames) {
  auto* layout = new QVBoxLayout(tab);
  for (QWidget* frame : frames) layout->addWidget(frame);
  layout->addStretch();
}

}  // namespace

void FrmPagamento::AddLimitsTab() {
  QWidget* tab = mdb_tabs_->AddTab(QString());
  QGroupBox* limits = AddFrame(0, tab);
  limits_.Add(*limits, kLimitRows);
  LayOutFields(limits_, limits);
  QGroupBox* changer = AddFrame(1, tab);
  AddChangerSwitches(changer, 0, kLimitSwitches, AddHead(0, "No", changer),
                     AddHead(1, "Si", changer));
  Stack(tab, {limits, changer});
}

void FrmPagamento::AddTubesTab() {
  QWidget* tab = mdb_tabs_->AddTab(QString());
  QGroupBox* frame = AddFrame(2, tab);
  frame->setTitle(kTubesFrame);
  tubes_.Add(*frame, kTubeRows);
  LayOutFields(tubes_, frame);
  Stack(tab, {frame});
}

void FrmPagamento::AddTokensTab() {
  QWidget* tab = mdb_tabs_->AddTab(QString());
  QGroupBox* tokens = AddFrame(3, tab);
  tokens_.Add(*tokens, kTokenRows);
  LayOutFields(tokens_, tokens);
  QGroupBox* flags = AddFrame(4, tab);
  AddChangerSwitches(flags, kLimitSwitches, static_cast<int>(std::size(kChangerRows)),
                     AddHead(2, "No", flags), AddHead(3, "Si", flags));
  Stack(tab, {tokens, flags});
}

void FrmPagamento::AddChangerSwitches(QGroupBox* frame, int first, int end, QLabel* no,
                                      QLabel* yes) {
  for (int i = first; i < end; ++i) changer_.Add(*frame, kChangerRows[i]);
  auto* grid = new QGridLayout(frame);
  changer_.LayOut(*grid, {.first = first, .count = end - first}, no, yes);
}

void FrmPagamento::LoadMdbCaptions() {
  limits_.LoadCaptions();
  changer_.LoadCaptions();
  tubes_.LoadCaptions();
  tokens_.LoadCaptions();
}

}  // namespace sorvane
