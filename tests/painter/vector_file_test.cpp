#include "painter/vector_file.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <limits>

#include "painter/painter.h"
#include "painter/picture_writers.h"
#include "painter/write_picture.h"

namespace kalvex {
namespace {

constexpr std::int32_t kHuge = 2'000'000'000;

/// One record of each kind; some reach far outside the picture.
DrawList Sample() {
    DrawList list{120, 80, {}};
    const Pen red{{255, 0, 0}, 3};
    const Pen blue{{0, 0, 255}, 1};
    list.records.emplace_back(EllipseRecord{blue, true, {255, 255, 255}, 60, 10, 100, 50});
    list.records.emplace_back(
        PolylineRecord{red, {{10, 10.5}, {40, 10.5}, {10, kHuge}, {-kHuge, 70}}});
    list.records.emplace_back(
        SegmentsRecord{blue, {{{0, 60.5}, {119, 60.5}}, {{50.5, -kHuge}, {50.5, kHuge}}}});
    list.records.emplace_back(PixelRunsRecord{{50, 205, 50}, {{70, 20, 30}, {71, 20, 30}}});
    list.records.emplace_back(TextRecord{5, 20, u"a<b>&\"c\"", {0, 0, 0}, 12});
    return list;
}

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray SvgOf(const DrawList& list) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("picture.svg");
    EXPECT_TRUE(WriteSvg(path, list));
    return Contents(path);
}

TEST(SvgFile, ShowsWhatThePictureShows) {
    const DrawList list = Sample();
    QSvgRenderer renderer(SvgOf(list));
    ASSERT_TRUE(renderer.isValid());
    EXPECT_EQ(renderer.viewBoxF(), QRectF(0, 0, 120, 80));
    QImage drawn(120, 80, QImage::Format_RGB32);
    drawn.fill(Qt::yellow);
    QPainter painter(&drawn);
    renderer.render(&painter);
    painter.end();
    const QImage picture = PaintPicture(list);
    for (const QPoint& at : {QPoint(25, 10), QPoint(30, 60), QPoint(50, 45), QPoint(35, 70),
                             QPoint(80, 30), QPoint(115, 5)}) {
        EXPECT_EQ(drawn.pixelColor(at), picture.pixelColor(at)) << at.x() << ' ' << at.y();
    }
}

TEST(SvgFile, IsWellFormedAndHasNoHugeNumbers) {
    const QByteArray svg = SvgOf(Sample());
    QXmlStreamReader reader(svg);
    QString texts;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isCharacters()) texts += reader.text();
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    EXPECT_TRUE(texts.contains("a<b>&\"c\""));
    const QRegularExpression huge("[ ,LM-][0-9]{4,}");
    EXPECT_FALSE(QString::fromUtf8(svg).contains(huge)) << "what is far outside is cut off";
    EXPECT_TRUE(svg.contains("font-family=\"sans-serif\""));
}

/// Adding the height of the letters to such a position must not overflow.
TEST(SvgFile, ATextFarOffThePictureStaysThere) {
    constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
    DrawList list{120, 80, {}};
    list.records.emplace_back(TextRecord{kLargest, kLargest, u"far", {0, 0, 0}, 12});
    QXmlStreamReader reader(SvgOf(list));
    double y = 0.0;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QString("text"))
            y = reader.attributes().value("y").toDouble();
    }
    EXPECT_GT(y, 2e9);
}

TEST(PdfFile, IsOnePageOfThePicturesSize) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("picture.pdf");
    EXPECT_TRUE(WritePdf(path, Sample()));
    const QByteArray pdf = Contents(path);
    EXPECT_TRUE(pdf.startsWith("%PDF-1."));
    EXPECT_TRUE(pdf.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(pdf.count("/Type /Page\n"), 1);
    EXPECT_TRUE(QString::fromLatin1(pdf).contains(
        QRegularExpression("/MediaBox \\[0 0 90[.0]* 60[.0]*\\]")));
}

TEST(VectorFiles, AreNotWrittenWhereTheyCannotBe) {
    EXPECT_FALSE(WriteSvg("/proc/no folder/a.svg", Sample()));
    EXPECT_FALSE(WritePdf("/proc/no folder/a.pdf", Sample()));
    const QTemporaryDir folder;
    for (const DrawList& list : {DrawList{0, 10, {}}, DrawList{10, -1, {}}}) {
        EXPECT_FALSE(WriteSvg(folder.filePath("a.svg"), list));
        EXPECT_FALSE(WritePdf(folder.filePath("a.pdf"), list));
    }
    for (const PictureFormat& format : PictureFormats()) {
        const auto fill = [&](const TakeBytes& take) { return format.make(Sample(), {}, take); };
        EXPECT_EQ(WriteFileOrStream("/dev/full", fill).failure, "No space left on device")
            << format.suffix;
        EXPECT_TRUE(WriteFileOrStream("/dev/null", fill)) << format.suffix;
        EXPECT_FALSE(WritePicture(format, "/dev/null", Sample())) << format.suffix;
    }
    EXPECT_FALSE(QFileInfo("/dev/full").isFile()) << "a device is not replaced by a file";
    EXPECT_FALSE(QFileInfo("/dev/null").isFile());
}

TEST(PictureFormat, GoesByTheEnding) {
    const struct {
        const char* path;
        std::string_view suffix;  ///< of the format; empty: none
    } rows[] = {
        {"a.png", "png"}, {"/x.y/a.SVG", "svg"}, {"a.b.Pdf", "pdf"},
        {"a.bmp", "bmp"}, {"a.Txt", "txt"},      {"a", ""},
        {"a.jpg", ""},    {"/folder.png/a", ""}, {"", ""},
        {"a.png ", ""},
    };
    for (const auto& row : rows) {
        const PictureFormat* format = PictureFormatOf(row.path, FormatsOf::Tool);
        EXPECT_EQ(format != nullptr ? format->suffix : "", row.suffix) << row.path;
    }
    EXPECT_EQ(PictureEndings(FormatsOf::Tool), ".png, .svg, .pdf, .bmp or .txt");
    EXPECT_EQ(PictureEndings(FormatsOf::Windows), ".png, .svg, .pdf or .bmp");
    EXPECT_EQ(PictureFormatOf("a.txt", FormatsOf::Windows), nullptr);
    EXPECT_NE(PictureFormatOf("a.bmp", FormatsOf::Windows), nullptr);
}

TEST(PictureFormat, WritesWhatItSays) {
    const QTemporaryDir folder;
    const struct {
        std::string_view suffix;
        const char* start;
        bool inWindows;
    } rows[] = {{"png", "\x89PNG", true},
                {"svg", "<?xml", true},
                {"pdf", "%PDF", true},
                {"bmp", "BM", true},
                {"txt", "picture\t120\t80\n", false}};
    ASSERT_EQ(PictureFormats().size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const PictureFormat& format = PictureFormats()[i];
        const QString path = folder.filePath("picture");
        EXPECT_EQ(format.suffix, rows[i].suffix);
        EXPECT_EQ(IsOffered(format, FormatsOf::Windows), rows[i].inWindows) << format.suffix;
        EXPECT_TRUE(WritePicture(format, path.toStdString(), Sample())) << format.suffix;
        EXPECT_TRUE(Contents(path).startsWith(rows[i].start)) << format.suffix;
    }
}

}  // namespace
}  // namespace kalvex
