#include <QCoreApplication>

#include "platform/program_path.h"

namespace sorvane {

std::filesystem::path ProgramPath() {
  return QCoreApplication::applicationFilePath().toStdU16String();
}

}  // namespace sorvane
