#include "painter/picture_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QColor>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <fstream>

#include "painter/picture_writers.h"

namespace kalvex {
namespace {

QImage Checkered(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, qRgb(x % 256, y % 256, (x + y) % 256));
    return picture;
}

QByteArray BitmapOf(const QImage& picture) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("picture.bmp"));
    EXPECT_TRUE(WriteBitmap(path, picture));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

quint32 Field(const QByteArray& bytes, qsizetype offset) {
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

quint16 ShortField(const QByteArray& bytes, qsizetype offset) {
    return qFromLittleEndian<quint16>(bytes.constData() + offset);
}

TEST(PictureFile, HasTheBitmapsHeader) {
    const struct {
        int width, height;
        quint32 imageSize;
    } rows[] = {{240, 268, 720 * 268}, {241, 3, 244 * 3 * 3}, {1, 1, 12}, {243, 2, 244 * 3 * 2}};
    for (const auto& row : rows) {
        const QByteArray bytes = BitmapOf(Checkered(row.width, row.height));
        EXPECT_EQ(bytes.left(2), "BM");
        EXPECT_EQ(Field(bytes, 2), 54u) << "the headers alone";
        EXPECT_EQ(Field(bytes, 6), 0u);
        EXPECT_EQ(Field(bytes, 10), 54u);
        EXPECT_EQ(Field(bytes, 14), 40u);
        EXPECT_EQ(Field(bytes, 18), static_cast<quint32>(row.width));
        EXPECT_EQ(Field(bytes, 22), static_cast<quint32>(row.height));
        EXPECT_EQ(ShortField(bytes, 26), 1);
        EXPECT_EQ(ShortField(bytes, 28), 24);
        EXPECT_EQ(Field(bytes, 30), 0u);
        EXPECT_EQ(Field(bytes, 34), row.imageSize);
        EXPECT_EQ(Field(bytes, 38), 3780u);
        EXPECT_EQ(Field(bytes, 42), 3780u);
        EXPECT_EQ(Field(bytes, 46), 0u);
        EXPECT_EQ(Field(bytes, 50), 0u);
        EXPECT_EQ(bytes.size(), 54 + static_cast<qsizetype>(row.imageSize));
    }
}

TEST(PictureFile, KeepsRowsBottomUpAndPadded) {
    const QImage picture = Checkered(241, 3);
    const QByteArray bytes = BitmapOf(picture);
    const qsizetype rowSize = 724;
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 241; ++x) {
            const auto* pixel =
                reinterpret_cast<const uchar*>(bytes.constData()) + 54 + (2 - y) * rowSize + x * 3;
            const QRgb expected = picture.pixel(x, y);
            EXPECT_EQ(pixel[0], qBlue(expected));
            EXPECT_EQ(pixel[1], qGreen(expected));
            EXPECT_EQ(pixel[2], qRed(expected));
        }
    EXPECT_EQ(bytes.mid(54 + 3 * rowSize), QByteArray(bytes.size() - 54 - 3 * rowSize, '\0'));
}

TEST(PictureFile, IsReadByOthers) {
    const QTemporaryDir folder;
    const QImage picture = Checkered(37, 21);
    const QString bitmap = folder.filePath(QStringLiteral("a.bmp"));
    const QString png = folder.filePath(QStringLiteral("a.png"));
    ASSERT_TRUE(WriteBitmap(bitmap, picture));
    ASSERT_TRUE(WritePng(png, picture));
    EXPECT_EQ(QImage(bitmap).convertToFormat(QImage::Format_RGB32), picture);
    EXPECT_EQ(QImage(png).convertToFormat(QImage::Format_RGB32), picture);
    ASSERT_TRUE(WriteBitmap(bitmap, Checkered(5, 5))) << "overwrites";
    EXPECT_EQ(QImage(bitmap).width(), 5);
}

/// While an object of this class lives, the process gets only a little more memory than it has.
class LittleMemory final {
  public:
    explicit LittleMemory(rlim_t bytes) {
        getrlimit(RLIMIT_AS, &before);
        rlim_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        const auto page = static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
        const rlimit limit = {pages * page + bytes, before.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
    }
    ~LittleMemory() { setrlimit(RLIMIT_AS, &before); }
    LittleMemory(const LittleMemory&) = delete;
    LittleMemory& operator=(const LittleMemory&) = delete;

  private:
    rlimit before{};
};

// A second picture of this size does not fit into the memory.
TEST(PictureFile, IsWholeWithLittleMemory) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.bmp"));
    QImage picture(6000, 4000, QImage::Format_RGB32);
    picture.fill(Qt::red);
    bool written = false;
    {
        const LittleMemory little(40'000'000);
        written = WriteBitmap(path, picture);
    }
    EXPECT_TRUE(written);
    EXPECT_EQ(QFile(path).size(), 54 + 6000 * 4000 * 3);
    EXPECT_EQ(QImage(path).pixelColor(5999, 3999), QColor(Qt::red));
}

TEST(PictureFile, TellsFailure) {
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("none/a.bmp"));
    EXPECT_FALSE(WriteBitmap(missing, Checkered(5, 5)));
    EXPECT_FALSE(WritePng(missing, Checkered(5, 5)));
    EXPECT_FALSE(WriteBitmap(folder.filePath(QStringLiteral("b.bmp")), QImage()));
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("b.bmp"))));
}

}  // namespace
}  // namespace kalvex
