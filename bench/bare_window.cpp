#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QStatusBar>

// The least that a program like Sorvane can be: a window of the same size with menu bar, status bar
// and MDI area, and nothing in them but a word.
int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  QMainWindow window;
  window.setCentralWidget(new QMdiArea(&window));
  window.menuBar()->addMenu("Menu")->addAction("Entry");
  window.statusBar()->showMessage("Status");
  window.resize(1024, 720);
  window.show();
  return QApplication::exec();
}
