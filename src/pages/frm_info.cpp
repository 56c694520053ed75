#include "pages/frm_info.h"

#include <QLabel>
#include <QVBoxLayout>

namespace sorvane {

QString RevisionText(const Version& version) {
  return QString("Rev. %1.%2.%3%4")
      .arg(version.major)
      .arg(version.minor)
      .arg(version.revision == 0 ? QString() : QString("Beta"))
      .arg(version.revision);
}

FrmInfo::FrmInfo(const QString& title, const Version& version) : ChildForm("FrmInfo") {
  setWindowTitle("Info");
  auto* name = new QLabel(title, this);
  name->setObjectName("Label1");
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * 1.6);
  large.setBold(true);
  name->setFont(large);
  auto* revision = new QLabel(RevisionText(version), this);
  revision->setObjectName("Label2");

  auto* column = new QVBoxLayout(this);
  const int margin = 3 * fontMetrics().height();
  column->setContentsMargins(margin, margin, margin, margin);
  for (QLabel* label : {name, revision}) {
    label->setAlignment(Qt::AlignCenter);
    column->addWidget(label);
  }
}

}  // namespace sorvane
