#pragma once

#include <QLabel>
#include <QString>

namespace sorvane {

// A label for a value that changes while its page stands open. Its size is that of the widest
// value, in the font of the moment, whatever stands in it: another value is painted, and nothing
// is laid out anew.
class ValueLabel : public QLabel {
 public:
  // A longer text than widest is cut off.
  ValueLabel(QString widest, QWidget* parent);

  QSize minimumSizeHint() const override { return Room(); }
  QSize sizeHint() const override { return Room(); }

 protected:
  void changeEvent(QEvent* event) override;

  // To be called when the frame around it has changed.
  void FixSize() { setFixedSize(Room()); }

 private:
  QSize Room() const;

  const QString widest_;
};

}  // namespace sorvane
