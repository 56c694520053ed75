#include "pages/program_pages.h"

#include <memory>

#include "pages/audit/channel_page.h"
#include "pages/audit/frm_allarmi.h"
#include "pages/audit/frm_contatori.h"
#include "pages/audit/frm_totali.h"
#include "pages/frm_info.h"
#include "pages/settings/frm_imposta.h"
#include "pages/settings/frm_orologio.h"
#include "pages/settings/frm_pagamento.h"
#include "pages/settings/frm_password.h"
#include "pages/settings/frm_prezzi.h"
#include "pages/settings/frm_sconti.h"
#include "pages/settings/selection_map_page.h"

namespace sorvane {
namespace {

template <typename Form>
std::unique_ptr<ChildForm> Make(const PageServices& services) {
  return std::make_unique<Form>(services);
}

// A page whose class serves several forms, each with constants of its own.
template <typename Form>
PageRow RowOf(MenuEntry entry, const typename Form::Constants& constants) {
  return {entry, constants.form, [&constants](const PageServices& services) {
            return std::make_unique<Form>(services, constants);
          }};
}

}  // namespace

std::vector<PageRow> ProgramPages(const QString& title, const Version& version) {
  const auto make_info = [title, version](const PageServices&) {
    return std::make_unique<FrmInfo>(title, version);
  };
  return {
      {MenuEntry::kPassword, "FrmPassword", Make<FrmPassword>},
      {MenuEntry::kSettings, "FrmImposta", Make<FrmImposta>},
      {MenuEntry::kPrices, "FrmPrezzi", Make<FrmPrezzi>},
      {MenuEntry::kDiscounts, "FrmSconti", Make<FrmSconti>},
      RowOf<SelectionMapPage>(MenuEntry::kKeys, kFrmTastiColonna),
      RowOf<SelectionMapPage>(MenuEntry::kColumns, kFrmColonnaProd),
      {MenuEntry::kPayment, "FrmPagamento", Make<FrmPagamento>},
      {MenuEntry::kClock, "FrmOrologio", Make<FrmOrologio>},
      {MenuEntry::kTotals, "FrmTotali", Make<FrmTotali>},
      {MenuEntry::kCounters, "FrmContatori", Make<FrmContatori>},
      RowOf<ChannelPage>(MenuEntry::kCoins, kFrmMonete),
      RowOf<ChannelPage>(MenuEntry::kBanknotes, kFrmBanconote),
      {MenuEntry::kAlarms, "FrmAllarmi", Make<FrmAllarmi>},
      {MenuEntry::kInfo, "FrmInfo", make_info},
  };
}

}  // namespace sorvane
