#include <QFileInfo>
#include <QProcess>

#include "platform/start_program.h"

namespace sorvane {

bool StartProgram(const std::filesystem::path& program) {
  QProcess process;
  process.setProgram(QFileInfo(program).filePath());
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  return process.startDetached();
}

}  // namespace sorvane
