#include "faults/whole_picture.h"

#include <QByteArray>
#include <QImage>
#include <QXmlStreamReader>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string_view>
#include <vector>

namespace kalvex {
namespace {

bool IsWholeBitmap(const std::string& picture, const std::string& good) {
    return picture.size() == good.size() && picture.starts_with("BM");
}

bool IsWholePng(const std::string& picture, const std::string& good) {
    constexpr std::string_view kEnd("IEND\xAE\x42\x60\x82");
    const auto size = [](const std::string& bytes) {
        return QImage::fromData(QByteArray::fromStdString(bytes), "PNG").size();
    };
    return picture.ends_with(kEnd) && size(good).isValid() && size(picture) == size(good);
}

/// The attribute viewBox of a complete SVG, else nothing.
QString ViewBoxOf(const std::string& svg) {
    QXmlStreamReader reader(QByteArray::fromStdString(svg));
    QString box;
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement &&
            reader.name() == QLatin1String("svg"))
            box = reader.attributes().value(QLatin1String("viewBox")).toString();
    return reader.hasError() ? QString() : box;
}

bool IsWholeSvg(const std::string& picture, const std::string& good) {
    return !ViewBoxOf(good).isEmpty() && ViewBoxOf(picture) == ViewBoxOf(good);
}

std::string MediaBoxOf(const std::string& pdf) {
    const std::size_t at = pdf.find("/MediaBox");
    return at == pdf.npos ? "" : pdf.substr(at, pdf.find('\n', at) - at);
}

/// Whether the place of the table of objects, which a PDF names at its end, is right.
bool EndsWithTable(const std::string& pdf) {
    constexpr std::string_view kStart = "startxref\n";
    const std::size_t at = pdf.rfind(kStart);
    if (at == pdf.npos || pdf.find("%%EOF", at) == pdf.npos) return false;
    const std::size_t table = std::strtoul(pdf.c_str() + at + kStart.size(), nullptr, 10);
    return pdf.compare(table, 5, "xref\n") == 0;
}

bool IsWholePdf(const std::string& picture, const std::string& good) {
    return picture.starts_with("%PDF-") && EndsWithTable(picture) && EndsWithTable(good) &&
           !MediaBoxOf(good).empty() && MediaBoxOf(picture) == MediaBoxOf(good);
}

std::string WithoutTexts(const std::string& records) {
    std::istringstream lines(records);
    std::string rest;
    for (std::string line; std::getline(lines, line);)
        if (!line.starts_with("text\t")) rest += line + '\n';
    return rest;
}

/// A number of the x axis on a picture that is 120 pixels wide and shows x from -10 to 10.
struct Number {
    std::size_t length = 0;
    int x = 0;
    int y = 0;
    int value = 0;
};

std::vector<Number> NumbersOf(const std::string& records) {
    std::istringstream lines(records);
    std::vector<Number> numbers;
    for (std::string line; std::getline(lines, line);) {
        int x = 0, y = 0, value = 0;
        if (std::sscanf(line.c_str(), "text numbers - %*s - %d,%d %*d %d", &x, &y, &value) == 3 &&
            value != 0)
            numbers.push_back({line.size() - line.rfind('\t'), x, y, value});
    }
    return numbers;
}

/// Whether numbers of the same length, which are about equally wide in any font, have the same
/// distance from their ticks. One of them that was measured wrongly has not.
bool StandAtTheirTicks(const std::vector<Number>& numbers) {
    constexpr int kPixelsPerUnit = 6;
    const auto shift = [](const Number& n) { return n.x - kPixelsPerUnit * n.value; };
    for (const Number& a : numbers)
        for (const Number& b : numbers)
            if (a.y == b.y && a.length == b.length && std::abs(shift(a) - shift(b)) > 1)
                return false;
    return true;
}

bool IsWholeList(const std::string& picture, const std::string& good) {
    return picture.ends_with('\n') && WithoutTexts(picture) == WithoutTexts(good) &&
           StandAtTheirTicks(NumbersOf(picture));
}

}  // namespace

bool IsWholePicture(const std::string& name, const std::string& picture, const std::string& good) {
    constexpr struct {
        std::string_view ending;
        bool (*isWhole)(const std::string& picture, const std::string& good);
    } kFormats[] = {{".bmp", IsWholeBitmap},
                    {".png", IsWholePng},
                    {".svg", IsWholeSvg},
                    {".pdf", IsWholePdf},
                    {".txt", IsWholeList}};
    for (const auto& format : kFormats)
        if (name.ends_with(format.ending)) return format.isWhole(picture, good);
    return false;
}

std::string WithoutTime(std::string bytes) {
    constexpr std::string_view kName = "/CreationDate (D:";
    const std::size_t at = bytes.find(kName);
    if (at == bytes.npos || !bytes.starts_with("%PDF-")) return bytes;
    for (std::size_t i = at + kName.size(); i < bytes.size() && bytes[i] != ')'; ++i)
        bytes[i] = '0';
    return bytes;
}

}  // namespace kalvex
