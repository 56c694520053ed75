#include <QFileInfo>
#include <QSaveFile>

#include "board/errors.h"
#include "texts/save_file.h"

namespace sorvane {

void SaveFile(const std::filesystem::path& file, std::string_view text, Readers) {
  QSaveFile out(QFileInfo(file).filePath());
  out.setDirectWriteFallback(true);
  const auto size = static_cast<qint64>(text.size());
  const bool saved =
      out.open(QIODevice::WriteOnly) && out.write(text.data(), size) == size && out.commit();
  if (!saved) throw RuntimeError(ErrorCode::kFileAccess);
}

}  // namespace sorvane
