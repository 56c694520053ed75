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
PageRow RowOf(const char* menu_entry, const typename Form::Constants& constants) {
  return {menu_entry, constants.form, [&constants](const PageServices& services) {
            return std::make_unique<Form>(services, constants);
          }};
}

}  // namespace

std::vector<PageRow> ProgramPages(const QString& title, const Version& version) {
  const auto make_info = [title, version](const PageServices&) {
    return std::make_unique<FrmInfo>(title, version);
  };
  return {{"MnuPassword", "FrmPassword", Make<FrmPassword>},
          {"MnuImpostazioni", "FrmImposta", Make<FrmImposta>},
          {"MnuPrezzi", "FrmPrezzi", Make<FrmPrezzi>},
          {"MnuSconti", "FrmSconti", Make<FrmSconti>},
          RowOf<SelectionMapPage>("Mnutasti", kFrmTastiColonna),
          RowOf<SelectionMapPage>("MnuColonne", kFrmColonnaProd),
          {"MnuPagamento", "FrmPagamento", Make<FrmPagamento>},
          {"MnuOrologio", "FrmOrologio", Make<FrmOrologio>},
          {"MnuTotali", "FrmTotali", Make<FrmTotali>},
          {"MnuContatori", "FrmContatori", Make<FrmContatori>},
          RowOf<ChannelPage>("MnuMonete", kFrmMonete),
          RowOf<ChannelPage>("MnuBanconote", kFrmBanconote),
          {"MnuAllarmi", "FrmAllarmi", Make<FrmAllarmi>},
          {"mnuVer", "FrmInfo", make_info}};
}

}  // namespace sorvane
