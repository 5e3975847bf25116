// A point is stored at the write position, which then goes on by one; a short line moves it back by
// one. Short lines at the start make it negative; a point at a negative position is dropped. The
// number of points never exceeds the points that are stored, because the position has passed them.
#include "interp/point_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <optional>

#include "interp/line_pieces.h"
#include "numbers/decimal.h"

namespace kalvex {
namespace {

constexpr std::size_t kShortest = 3;  ///< characters of a point line, line feed included

struct Point {
    double x = 0.0;
    double y = 0.0;
};

/// What is read of a file so far.
struct Reading {
    LinePieces pieces;
    PointFile file;
    std::int64_t position = 0;         ///< where the next point is stored
    std::optional<std::size_t> count;  ///< the number of points, set by the last short line
};

std::optional<double> WholeNumber(std::u16string_view text) {
    const DecimalPrefix prefix = ParseDecimalPrefix(text);
    if (prefix.length == 0 || prefix.length != text.size() || !std::isfinite(prefix.value))
        return std::nullopt;
    return prefix.value;
}

std::optional<Point> ParsePoint(std::u16string_view line) {
    const std::size_t first = line.find(u' ');
    if (first == std::u16string_view::npos) return std::nullopt;
    if (line.back() == u'\n') line.remove_suffix(1);
    const std::optional<double> x = WholeNumber(line.substr(0, first));
    const std::u16string_view rest = line.substr(line.rfind(u' ') + 1);
    // KEEP: a missing y is 0; existing files have lines that end in a blank.
    const std::optional<double> y = rest.empty() ? std::optional(0.0) : WholeNumber(rest);
    if (!x || !y) return std::nullopt;
    return Point{*x, *y};
}

void StorePoint(Reading& reading, const Point& point) {
    PointTable& points = reading.file.points;
    const std::int64_t position = reading.position++;
    if (position < 0) return;
    const auto index = static_cast<std::size_t>(position);
    if (index == points.x.size()) {
        points.x.push_back(point.x);
        points.y.push_back(point.y);
    } else {
        points.x[index] = point.x;
        points.y[index] = point.y;
    }
}

/// Takes one piece; false when the file is refused.
bool TakePiece(Reading& reading) {
    const std::u16string& piece = reading.pieces.piece;
    if (++reading.file.line > kMostLines) {
        reading.file.error = PointFileError::TooManyLines;
        return false;
    }
    if (piece.size() < kShortest) {
        // KEEP: the number of points stays what it is here, and the position goes back, so that the
        // next point replaces the last one; existing files are read by this rule.
        reading.count = static_cast<std::size_t>(std::max<std::int64_t>(reading.position, 0));
        --reading.position;
        return true;
    }
    const std::optional<Point> point = ParsePoint(piece);
    if (!point) {
        reading.file.error = PointFileError::Malformed;
        return false;
    }
    StorePoint(reading, *point);
    return true;
}

bool TakePieces(Reading& reading) {
    while (NextPiece(reading.pieces))
        if (!TakePiece(reading)) return false;
    return true;
}

PointFile Finish(Reading& reading) {
    PointFile& file = reading.file;
    if (file.error == PointFileError::None) {
        EndFeed(reading.pieces);
        TakePieces(reading);
    }
    if (file.error != PointFileError::None) {
        file.points = {};
        return std::move(file);
    }
    file.line = 0;
    const std::size_t count = reading.count.value_or(file.points.x.size());
    file.points.x.resize(count);
    file.points.y.resize(count);
    return std::move(file);
}

/// A descriptor that closes itself.
struct Descriptor {
    int number = -1;
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor() {
        if (number >= 0) close(number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
};

/// Without O_NONBLOCK opening a pipe would wait for its other end.
int OpenRegular(const std::string& path) {
    if (path.find('\0') != std::string::npos) return -1;
    const int opened = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (opened < 0) return -1;
    struct stat status {};
    if (fstat(opened, &status) == 0 && S_ISREG(status.st_mode)) return opened;
    close(opened);
    return -1;
}

}  // namespace

PointFile ReadPointText(std::string_view bytes) {
    Reading reading;
    Feed(reading.pieces, bytes);
    TakePieces(reading);
    return Finish(reading);
}

PointFile ReadPointFile(const std::string& path) {
    Reading reading;
    const Descriptor descriptor(OpenRegular(path));
    if (descriptor.number < 0) {
        reading.file.error = PointFileError::Unreadable;
        return Finish(reading);
    }
    std::array<char, 65536> block{};
    while (reading.file.error == PointFileError::None) {
        const ssize_t size = read(descriptor.number, block.data(), block.size());
        if (size < 0 && errno == EINTR) continue;
        if (size < 0) reading.file.error = PointFileError::Unreadable;
        if (size <= 0) break;
        Feed(reading.pieces, {block.data(), static_cast<std::size_t>(size)});
        TakePieces(reading);
    }
    return Finish(reading);
}

}  // namespace kalvex
