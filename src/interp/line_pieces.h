// Cuts the bytes of a text file into the lines by which a point file is read.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kalvex {

/// Characters of the longest piece, its line feed included.
inline constexpr std::size_t kPieceLength = 255;

/// Cuts a stream of bytes into pieces: each ends behind its line feed or after kPieceLength
/// characters, so a longer line is several pieces. CR LF is one line feed, before anything is
/// counted; a CR elsewhere is a character. The text is UTF-8; a byte that is not becomes the
/// Latin-1 character of its value. A byte-order mark at the very start is left out. A character
/// beyond U+FFFF counts once and stands as U+FFFD: no number holds one. Memory: the bytes of one
/// Feed and one piece.
struct LinePieces {
    std::string waiting;   ///< bytes that are not decoded yet
    std::size_t at = 0;    ///< the first of them
    bool started = false;  ///< past the place where a byte-order mark can stand
    bool ended = false;    ///< no more bytes will come
    bool given = false;    ///< `piece` was returned; the next call begins a new one
    std::u16string piece;
};

/// Appends further bytes; bytes that are already decoded are dropped.
void Feed(LinePieces& pieces, std::string_view bytes);

/// Says that there are no more bytes.
void EndFeed(LinePieces& pieces);

/// Puts the next piece into `piece`. False when more bytes are needed or, after EndFeed, none is
/// left.
[[nodiscard]] bool NextPiece(LinePieces& pieces);

}  // namespace kalvex
