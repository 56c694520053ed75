#include "pages/settings/frm_pagamento.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMargins>
#include <QVBoxLayout>
#include <iterator>

#include "board/errors.h"
#include "board/message.h"
#include "board/numbers.h"
#include "board/parameter.h"
#include "board/reply.h"
#include "pages/settings/frm_pagamento_fields.h"
#include "shell/controls/bar.h"
#include "shell/controls/control_hint.h"
#include "shell/controls/focus_keeper.h"
#include "shell/controls/slider.h"
#include "shell/controls/tab_pages.h"
#include "shell/controls/toggle.h"
#include "shell/page/page_sizes.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

constexpr int kBanknotesTab = 1;  // of the left half
constexpr int kCoinsTab = 2;
constexpr int kMdbTabs = 3;

constexpr int kDecimalPointField = 1;  // of the general ones
constexpr int kCreditTimeoutField = 2;
constexpr int kSaleModeField = 3;

constexpr int kPriceHolding = 1;  // of the switches of the sale
constexpr int kImmediateChange = 2;

constexpr const char* kSystems = "Validatore, Executive, MDB";
constexpr const char* kSaleModes[] = {"Multipla", "Temp.", "Singola"};
// By the number of decimals; with a point in every locale.
constexpr const char* kPatterns[] = {"00000", "0000.0", "000.00", "00.000", "0.0000"};

constexpr int kValidator = 1;
constexpr int kExecutive = 2;
constexpr int kMdb = 3;

}  // namespace

// The controls are made in the order in which Tab goes through them.
FrmPagamento::FrmPagamento(const PageServices& services)
    : Page(services, "FrmPagamento"),
      general_(*this, state_),
      limits_(*this, state_),
      tubes_(*this, state_),
      tokens_(*this, state_),
      coins_(*this, state_),
      sale_(*this, parameter::kOptions, parameter::kOptionsMirror, SaleFlags),
      changer_(*this, parameter::kChangerFlags, parameter::kChangerFlagsMirror, ChangerFlags),
      banknotes_low_(*this, parameter::kBanknoteFlagsLow, parameter::kBanknoteFlagsLowMirror,
                     BanknoteFlagsLow),
      banknotes_high_(*this, parameter::kBanknoteFlagsHigh, parameter::kBanknoteFlagsHighMirror,
                      BanknoteFlagsHigh) {
  general_tabs_ = new TabPages(Gate(), this);
  general_tabs_->setObjectName("SSTab2");
  AddGeneralTab();
  AddBanknotesTab();
  AddCoinsTab();
  mdb_tabs_ = new TabPages(Gate(), this);
  mdb_tabs_->setObjectName("SSTab1");
  AddLimitsTab();
  AddTubesTab();
  AddTokensTab();
  for (TabPages* tabs : {general_tabs_, mdb_tabs_}) {
    tabs->closed_hint = [this] { return HintOf(Hint::kOtherSystem); };
  }
  system_controls_ = SystemControls();
  QLabel* label = sale_.Label(kImmediateChange);
  new ControlHint(Gate(), *label, [this, label] {
    return label->isEnabled() ? QString() : HintOf(Hint::kWorksAllTheSame);
  });
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(general_tabs_, 1);
  layout->addWidget(mdb_tabs_, 1);
}

QGroupBox* FrmPagamento::AddFrame(int index, QWidget* tab) {
  auto* frame = new QGroupBox(tab);
  frame->setObjectName(ControlName("Frame1", index));
  return frame;
}

QLabel* FrmPagamento::AddHead(int index, const char* text, QWidget* parent) {
  QLabel* head = AddLabel(ControlName("Label8", index), parent);
  head->setText(text);
  return head;
}

void FrmPagamento::LayOutFields(FieldGroup& fields, QWidget* frame) {
  auto* grid = new QGridLayout(frame);
  fields.LayOut(*grid, {.rows_per_column = fields.Count(),
                        .box_characters = page_size::kWordBox,
                        .bar_characters = page_size::kShortBar});
}

void FrmPagamento::AddGeneralTab() {
  QWidget* tab = general_tabs_->AddTab(QString());
  system_frame_ = AddFrame(5, tab);
  system_ = new Slider(Gate(), system_frame_);
  system_->setObjectName("SlswitchX1");
  system_->SetLabels(kSystems);
  system_->on_change = [this] { OnSystemChange(); };
  auto* system = new QHBoxLayout(system_frame_);
  system->addWidget(system_);
  system->addStretch();

  auto* layout = new QVBoxLayout(tab);
  layout->addWidget(system_frame_);
  layout->addWidget(AddModes(tab));
  auto* fields = new QWidget(tab);
  general_.Add(*fields, kGeneralRows);
  LayOutFields(general_, fields);
  // In line with what stands in the frames above.
  const QMargins frame = system_frame_->contentsMargins();
  fields->setContentsMargins(frame.left(), 0, frame.right(), 0);
  layout->addWidget(fields);
  layout->addStretch();
}

QWidget* FrmPagamento::AddModes(QWidget* tab) {
  QGroupBox* frame = AddFrame(6, tab);
  for (const FlagRow& row : kSaleRows) sale_.Add(*frame, row);
  auto* grid = new QGridLayout(frame);
  sale_.LayOut(*grid, {.first = 0, .count = static_cast<int>(std::size(kSaleRows))},
               AddHead(4, "No", frame), AddHead(5, "Si", frame));
  return frame;
}

std::vector<int32_t> FrmPagamento::WatchedParameters() const {
  std::vector<int32_t> watched;
  for (int32_t k = parameter::kPaymentSystem; k < parameter::kBaseCoin; ++k) watched.push_back(k);
  for (const int32_t k : {parameter::kOptions, parameter::kBaseCoin, parameter::kDecimalPoint,
                          parameter::kDecimals}) {
    watched.push_back(k);
  }
  for (int32_t k = parameter::kCreditTimeout; k < parameter::kCoinValues + coins_.Count(); ++k) {
    watched.push_back(k);
  }
  return watched;
}

void FrmPagamento::Load() {
  mdb_tabs_->SetFront(0);
  general_tabs_->SetFront(0);
  LoadPageCaptions();
  WatchPageParameters();
}

void FrmPagamento::LoadPageCaptions() {
  setWindowTitle(Message(message::kPayment));
  general_tabs_->SetCaption(0, Message(message::kGeneralTab));
  system_frame_->setTitle(EscapeAmpersands(Message(message::kPaymentSystem)));
  system_->setAccessibleName(Message(message::kPaymentSystem));
  general_tabs_->SetCaption(kBanknotesTab, Message(message::kBanknotesTab));
  general_tabs_->SetCaption(kCoinsTab, Message(message::kCoinsTab));
  sale_.LoadCaptions();
  general_.LoadCaptions();
  LoadMdbCaptions();
  for (int tab = 0; tab < kMdbTabs; ++tab) {
    mdb_tabs_->SetCaption(tab, Message(message::kMdbTabs + tab));
  }
  LoadCoinCaptions();
}

void FrmPagamento::OnReply(const Reply& reply) {
  switch (reply.index) {
    case parameter::kDecimals:
      OnDecimals(reply.Number());
      return;
    case parameter::kDecimalPoint:
      return;  // what the page shows follows the decimals alone
    case parameter::kSaleMode:
      OnSaleMode(reply);
      return;
    case parameter::kPaymentSystem:
      OnPaymentSystem(reply.Number());
      return;
    case parameter::kOptions:
      sale_.ShowFlags(ToByte(reply.Number()));
      return;
    case parameter::kChangerFlags:
      changer_.ShowFlags(ToByte(reply.Number()));
      return;
    case parameter::kBanknoteFlagsLow:
      banknotes_low_.ShowFlags(ToInt16(reply.Number()));
      return;
    case parameter::kBanknoteFlagsHigh:
      banknotes_high_.ShowFlags(ToInt16(reply.Number()));
      return;
    default:
      break;
  }
  for (FieldGroup* group : {&general_, &limits_, &tubes_, &tokens_, &coins_}) {
    if (Field* field = group->Find(reply.index)) field->ShowFieldValue(ToInt32(reply.Number()));
  }
}

void FrmPagamento::OnDecimals(int64_t value) {
  if (value == state_.Decimals) return;
  state_.Decimals = ToByte(value);
  Field& field = general_.At(kDecimalPointField);
  field.GetBar()->SetPosition(state_.Decimals);  // which has no place for more than 4
  field.Box()->Show(kPatterns[state_.Decimals]);
  for (FieldGroup* group : {&limits_, &tokens_, &coins_}) DrawAnew(*group);
}

void FrmPagamento::DrawAnew(FieldGroup& fields) {
  for (int i = 0; i < fields.Count(); ++i) {
    Field& field = fields.At(i);
    field.ShowFieldValue(ToInt32(ReadParameter(field.Parameter())));
  }
}

void FrmPagamento::OnSaleMode(const Reply& reply) {
  const auto mode = static_cast<std::size_t>(ToInt32(reply.Number()));
  Field& field = general_.At(kSaleModeField);
  field.ShowFieldValue(reply.Number());
  if (mode < std::size(kSaleModes)) field.Box()->Show(kSaleModes[mode]);
}

void FrmPagamento::OnPaymentSystem(int64_t system) {
  for (const int known : {kValidator, kExecutive, kMdb}) {
    if (system != known) continue;
    system_->SetPosition(known - 1);
    ShowPaymentSystem(known);
  }
}

// The switch of "Resto Subito" isn't among these: with a validator or MDB its label is grey, and
// the switch lives on. Technicians have been living with it.
std::vector<FrmPagamento::SystemControl> FrmPagamento::SystemControls() {
  using enum To;
  Field& decimals = general_.At(kDecimalPointField);
  Field& timeout = general_.At(kCreditTimeoutField);
  Field& mode = general_.At(kSaleModeField);
  return {
      {.control = mdb_tabs_, .validator = kClose, .executive = kClose, .mdb = kOpen},
      {.control = decimals.Label(), .validator = kOpen, .executive = kOpen, .mdb = kClose},
      {.control = decimals.Box(), .validator = kOpen, .executive = kOpen, .mdb = kClose},
      {.control = decimals.GetBar(), .validator = kOpen, .executive = kOpen, .mdb = kClose},
      {.control = timeout.Label(), .validator = kClose, .executive = kClose, .mdb = kOpen},
      {.control = timeout.Box(), .validator = kClose, .executive = kClose, .mdb = kOpen},
      {.control = timeout.GetBar(), .validator = kClose, .executive = kClose, .mdb = kOpen},
      {.control = mode.Label(), .validator = kOpen, .executive = kClose, .mdb = kSame},
      {.control = mode.Box(), .validator = kOpen, .executive = kClose, .mdb = kSame},
      {.control = mode.GetBar(), .validator = kOpen, .executive = kClose, .mdb = kSame},
      {.control = sale_.Label(kPriceHolding),
       .validator = kClose,
       .executive = kOpen,
       .mdb = kClose},
      {.control = sale_.Switch(kPriceHolding),
       .validator = kClose,
       .executive = kOpen,
       .mdb = kClose},
      {.control = sale_.Label(kImmediateChange),
       .validator = kClose,
       .executive = kOpen,
       .mdb = kClose},
  };
}

void FrmPagamento::ShowPaymentSystem(int system) {
  for (const SystemControl& row : system_controls_) {
    const To to = system == kValidator   ? row.validator
                  : system == kExecutive ? row.executive
                                         : row.mdb;
    if (to != To::kSame) SetOpen(*row.control, to == To::kOpen);
  }
  general_tabs_->SetTabOpen(kCoinsTab, system == kValidator);
  general_tabs_->SetTabOpen(kBanknotesTab, system == kMdb);
}

void FrmPagamento::OnSystemChange() {
  if (Updating) return;
  WriteParameterPair(parameter::kPaymentSystem, parameter::kPaymentSystemMirror,
                     system_->Position() + 1);
}

}  // namespace sorvane
