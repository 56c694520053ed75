#pragma once

#include <cstdint>
#include <vector>

#include "pages/settings/flag_switches.h"
#include "shell/page/field_group.h"
#include "shell/page/page.h"

class QGroupBox;

namespace sorvane {

class Slider;
class TabPages;

// The payment system. At the left what every system has: the choice of system, the modes of sale,
// the coin and the banknote channels; at the right what only an MDB system has: limits, tubes and
// tokens. The board's answer to the choice of system opens and closes the rest of the page.
//
// frm_pagamento.cpp has the page as a whole and the general settings, frm_pagamento_coins.cpp the
// coins and banknotes, frm_pagamento_mdb.cpp the right half.
class FrmPagamento : public Page {
 public:
  explicit FrmPagamento(const PageServices& services);

  void Load() override;

 protected:
  std::vector<int32_t> WatchedParameters() const override;
  void LoadPageCaptions() override;
  void OnReply(const Reply& reply) override;

 private:
  // A framed group on a tab.
  QGroupBox* AddFrame(int index, QWidget* tab);
  // The two heads over a column of switches.
  QLabel* AddHead(int index, const char* text, QWidget* parent);
  static void LayOutFields(FieldGroup& fields, QWidget* frame);

  void AddGeneralTab();
  QWidget* AddModes(QWidget* tab);
  void AddBanknotesTab();
  void AddCoinsTab();
  void AddLimitsTab();
  void AddTubesTab();
  void AddTokensTab();
  // Some of the changer's switches, from first to the one before end.
  void AddChangerSwitches(QGroupBox* frame, int first, int end, QLabel* no, QLabel* yes);

  void LoadMdbCaptions();
  void LoadCoinCaptions();

  // What a payment system does to a control.
  enum class To { kOpen, kClose, kSame };
  struct SystemControl {
    QWidget* control;
    To validator;
    To executive;
    To mdb;
  };
  std::vector<SystemControl> SystemControls();

  void OnDecimals(int64_t value);
  void OnSaleMode(const Reply& reply);
  void OnPaymentSystem(int64_t system);
  void ShowPaymentSystem(int system);
  // As FieldGroup::Redraw; but this page holds positions and raw values in 32 bits with sign.
  void DrawAnew(FieldGroup& fields);
  void OnSystemChange();

  int16_t ChangerFlags = 0;  // as last delivered, with the user's changes
  int16_t SaleFlags = 0;
  int16_t BanknoteFlagsLow = 0;
  int16_t BanknoteFlagsHigh = 0;

  FieldState state_;
  TabPages* general_tabs_ = nullptr;  // SSTab2
  TabPages* mdb_tabs_ = nullptr;      // SSTab1
  QGroupBox* system_frame_ = nullptr;
  Slider* system_ = nullptr;
  FieldGroup general_;
  FieldGroup limits_;
  FieldGroup tubes_;
  FieldGroup tokens_;
  FieldGroup coins_;
  FlagSwitches sale_;
  FlagSwitches changer_;
  FlagSwitches banknotes_low_;
  FlagSwitches banknotes_high_;
  std::vector<SystemControl> system_controls_;
};

}  // namespace sorvane
