#pragma once

#include <QDialog>

namespace sorvane {

// The technician's manual in a window of its own, as the program brings it along. Its links work,
// and Escape closes it.
class ManualWindow : public QDialog {
 public:
  ManualWindow();

  // Shows the chapter of a form ("FrmPrezzi"), or the beginning where the name is empty, in one of
  // the manual's two languages, in front of all other windows.
  void ShowChapter(const QString& form, bool italian);

 private:
  class Text;
  Text* text_;
};

}  // namespace sorvane
