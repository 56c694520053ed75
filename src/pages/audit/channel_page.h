#pragma once

#include "pages/audit/audit_page.h"

namespace sorvane {

// How many coins, or banknotes, of each of the sixteen channels the machine has taken.
class ChannelPage : public AuditPage {
 public:
  struct Constants {
    const char* form;
    int title;  // message
    int32_t parameter;
    std::span<const AuditGroup> groups;
  };

  // constants outlive the page.
  ChannelPage(const PageServices& services, const Constants& constants);

 protected:
  std::vector<int32_t> WatchedParameters() const override;

 private:
  const Constants& constants_;
};

extern const ChannelPage::Constants kFrmMonete;
extern const ChannelPage::Constants kFrmBanconote;

}  // namespace sorvane
