#include <windows.h>

#include <QFileInfo>
#include <QProcess>

#include "platform/start_program.h"

namespace sorvane {

// A program that asks for an administrator is started by Qt itself, in a second way that warns of
// redirected files: so there are none.
bool StartProgram(const std::filesystem::path& program) {
  QProcess process;
  process.setProgram(QFileInfo(program).filePath());
  process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* start) {
    start->inheritHandles = FALSE;
    start->flags &= ~DWORD{CREATE_NO_WINDOW};
    // An ordinary window that takes the focus, and no files in place of a console.
    start->startupInfo->dwFlags = STARTF_USESHOWWINDOW;
    start->startupInfo->wShowWindow = SW_SHOWNORMAL;
  });
  return process.startDetached();
}

}  // namespace sorvane
