#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QtPlugin>
#include <cstdio>

#include "shell/controls/program_style.h"

#ifdef Q_OS_WINDOWS
Q_IMPORT_PLUGIN(QOffscreenIntegrationPlugin)  // a static Qt brings the desktop's platform only
#endif

namespace {

// What Qt has to complain about is a failure of the test that brought it about.
void OnQtMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
  // Known of the platform without a screen, and of no harm.
  if (message.startsWith("This plugin does not support") ||
      message.startsWith("QStandardPaths: XDG_RUNTIME_DIR not set")) {
    return;
  }
  if (type != QtDebugMsg && type != QtInfoMsg) ADD_FAILURE() << "Qt: " << message.toStdString();
}

}  // namespace

// main of the test programs with widgets. One style on all desktops, so that a test meets the same
// geometry everywhere; no cases at all is a failure.
int main(int argc, char** argv) {
  qInstallMessageHandler(OnQtMessage);
  QApplication app(argc, argv);
  QApplication::setApplicationName("Sorvane");
  QApplication::setStyle(new sorvane::ProgramStyle);
  // Of the fonts in the folder each system would take another one.
  QFont letters = QApplication::font();
  letters.setFamily("DejaVu Sans");
  QApplication::setFont(letters);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleMock(&argc, argv);
  const int result = RUN_ALL_TESTS();
  if (testing::UnitTest::GetInstance()->test_to_run_count() > 0) return result;
  std::fprintf(stderr, "no test was run\n");
  return 1;
}
