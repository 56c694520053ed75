#include <QStandardPaths>

#include "platform/data_folder.h"

namespace sorvane {

std::filesystem::path DataFolder() {
  std::filesystem::path folder =
      QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdU16String();
  return folder.make_preferred();
}

}  // namespace sorvane
