#include <gtest/gtest.h>

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <vector>

#include "shell/frame/crystal.h"

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

// The sizes and the colours as they were chosen.
constexpr int kSizes[] = {16, 24, 32, 48, 64, 128, 256};
const QColor kGround(28, 94, 146);
const QColor kCrystal(255, 255, 255);

// A place as shares of width and height.
struct Place {
  double x, y;
};
constexpr Place kOnTheEdges[] = {{0.25, 0}, {0.75, 0}, {0.25, 0.99}, {0, 0.5}, {0.99, 0.5}};
constexpr Place kBetweenTheArms[] = {{0.65, 0.25}, {0.35, 0.25}, {0.05, 0.5}, {0.95, 0.5}};
constexpr Place kMiddle = {0.5, 0.5};
constexpr Place kOnTheArms[] = {{0.5, 0.2},   {0.5, 0.8},   {0.76, 0.35},
                                {0.24, 0.35}, {0.76, 0.65}, {0.24, 0.65}};
constexpr Place kOnTheBranches[] = {{0.604, 0.178}, {0.396, 0.178}, {0.604, 0.822}, {0.396, 0.822}};

// A white crystal of six arms with branches on a blue ground with round corners. The smallest has a
// hollow middle: arms that meet in so little room are an asterisk.
void ExpectTheSign(const QImage& image, int size) {
  ASSERT_EQ(image.size(), QSize(size, size));
  const auto expect = [&](const Place& place, const QColor& colour) {
    EXPECT_EQ(image.pixelColor(static_cast<int>(place.x * size), static_cast<int>(place.y * size)),
              colour)
        << size << ": " << place.x << " " << place.y;
  };
  for (const Place& place : kOnTheEdges) expect(place, kGround);
  for (const Place& place : kBetweenTheArms) expect(place, kGround);
  for (const Place& place : kOnTheArms) expect(place, kCrystal);
  expect(kMiddle, size == 16 ? kGround : kCrystal);
  for (const Place& place : kOnTheBranches) {
    const QColor branch =
        image.pixelColor(static_cast<int>(place.x * size), static_cast<int>(place.y * size));
    EXPECT_GE(qGray(branch.rgb()), size == 16 ? 220 : 255) << size;  // soft in so little room
  }
  const int last = size - 1;
  for (const QPoint& corner :
       {QPoint(0, 0), QPoint(last, 0), QPoint(0, last), QPoint(last, last)}) {
    EXPECT_LE(image.pixelColor(corner).alpha(), 2) << size;
  }
}

TEST(IconFiles, EveryPictureIsTheSign) {
  for (const int size : kSizes) ExpectTheSign(QImage(kFolder.filePath(FileName(size))), size);
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
    const QImage entry = reader.read();
    ExpectTheSign(entry, kSizes[i]);
    ExpectSamePixels(entry, kIconSizes[i]);
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
  for (const int size : kSizes) {
    const QImage written(folder.filePath(FileName(size)));
    ExpectTheSign(written, size);
    ExpectSamePixels(written, size);
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), std::ssize(kSizes));
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
