#include <QStandardPaths>

#include "platform/data_folder.h"

namespace sorvane {

std::filesystem::path DataFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdU16String();
}

}  // namespace sorvane
