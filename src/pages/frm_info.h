#pragma once

#include "shell/page/child_form.h"

namespace sorvane {

// The program's version, as numbers.
struct Version {
  int major;
  int minor;
  int revision;
};

// "Rev. 1.0.0"; a revision other than 0 is a beta: "Rev. 1.0.Beta1".
QString RevisionText(const Version& version);

// What the program is and which version. It is a child form like the pages, but no page: it watches
// nothing and takes no notices.
class FrmInfo : public ChildForm {
 public:
  FrmInfo(const QString& title, const Version& version);

  void Load() override {}
};

}  // namespace sorvane
