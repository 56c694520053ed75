#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <vector>

#include "shell/crystal.h"

namespace sorvane {
namespace {

const QDir kFolder(ICON_FOLDER);

QString FileName(int size) { return QString("sorvane-%1.png").arg(size); }

// Both as they are drawn, colours multiplied by their opacity. A file holds them divided by it, and
// how that division is rounded depends on the processor's vector extensions.
void ExpectSamePixels(const QImage& found, int size) {
  const QImage drawn = IconImage(size).convertToFormat(QImage::Format_ARGB32_Premultiplied);
  ASSERT_EQ(found.size(), drawn.size());
  const QImage read = found.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < size; ++y) {
    const auto row = [y](const QImage& image) {
      const auto* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(y));
      return std::vector<QRgb>(pixels, pixels + image.width());
    };
    ASSERT_EQ(row(read), row(drawn)) << size << ": row " << y;
  }
}

TEST(IconFiles, EveryPictureIsTheDrawing) {
  for (const int size : kIconSizes)
    ExpectSamePixels(QImage(kFolder.filePath(FileName(size))), size);
}

TEST(IconFiles, ThereIsNoOtherPicture) {
  EXPECT_EQ(kFolder.entryList({"*.png"}).size(), std::ssize(kIconSizes));
}

TEST(IconFiles, TheIconOfWindowsHoldsTheDrawingInEverySize) {
  QImageReader reader(kFolder.filePath("Sorvane.ico"));
  ASSERT_EQ(reader.imageCount(), std::ssize(kIconSizes)) << reader.errorString().toStdString();
  for (int i = 0; i < reader.imageCount(); ++i) {
    ASSERT_TRUE(reader.jumpToImage(i));
    ExpectSamePixels(reader.read(), kIconSizes[i]);
  }
}

// Resource compilers and old shells read compressed entries at 256 alone.
TEST(IconFiles, OnlyTheLargestEntryOfTheIconIsCompressed) {
  QFile file(kFolder.filePath("Sorvane.ico"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray bytes = file.readAll();
  constexpr int kHeader = 6;
  constexpr int kEntry = 16;
  constexpr int kOffset = 12;  // of the picture's place in an entry
  for (int i = 0; i < std::ssize(kIconSizes); ++i) {
    quint32 at = 0;
    for (int byte = 3; byte >= 0; --byte) {
      at = at << 8 | static_cast<quint8>(bytes.at(kHeader + i * kEntry + kOffset + byte));
    }
    EXPECT_EQ(bytes.mid(at, 4) == QByteArray("\x89PNG"), kIconSizes[i] == 256) << kIconSizes[i];
  }
}

TEST(IconTool, WritesEverySize) {
  const QTemporaryDir folder;
  EXPECT_EQ(QProcess::execute(ICON_TOOL, {folder.path()}), 0);
  for (const int size : kIconSizes) ExpectSamePixels(QImage(folder.filePath(FileName(size))), size);
}

TEST(IconTool, FailsWhereItCantWrite) {
  const QTemporaryDir folder;
  QProcess tool;
  tool.start(ICON_TOOL, {folder.filePath("absent")});
  ASSERT_TRUE(tool.waitForFinished());
  EXPECT_EQ(tool.exitCode(), 1);
  EXPECT_TRUE(tool.readAllStandardError().contains("sorvane-16.png"));
}

}  // namespace
}  // namespace sorvane
