// A UTF-8 character has up to four bytes, and a CR can be judged only with the byte after it. So
// decoding waits until five bytes are there or the end is reached.
#include "interp/line_pieces.h"

#include <cstdint>

#include "base/encoding.h"

namespace kalvex {
namespace {

constexpr std::size_t kLookAhead = 5;

bool IsComplete(const std::u16string& piece) {
    return piece.size() >= kPieceLength || (!piece.empty() && piece.back() == u'\n');
}

void TakeCharacter(LinePieces& pieces) {
    const Utf8Character character = DecodeUtf8(pieces.waiting, pieces.at);
    if (character.codePoint == U'\r' && pieces.at + 1 < pieces.waiting.size() &&
        pieces.waiting[pieces.at + 1] == '\n') {
        ++pieces.at;
        return;
    }
    const auto byte = static_cast<std::uint8_t>(pieces.waiting[pieces.at]);
    pieces.at += character.length;
    const bool mark = !pieces.started && character.codePoint == U'\uFEFF';
    pieces.started = true;
    if (mark) return;
    const char32_t value = character.wellFormed ? character.codePoint : byte;
    pieces.piece.push_back(value < 0x10000 ? static_cast<char16_t>(value) : u'\uFFFD');
}

}  // namespace

void Feed(LinePieces& pieces, std::string_view bytes) {
    pieces.waiting.erase(0, pieces.at);
    pieces.at = 0;
    pieces.waiting += bytes;
}

void EndFeed(LinePieces& pieces) {
    pieces.ended = true;
}

bool NextPiece(LinePieces& pieces) {
    if (pieces.given) pieces.piece.clear();
    pieces.given = false;
    while (pieces.waiting.size() - pieces.at >= (pieces.ended ? 1 : kLookAhead)) {
        TakeCharacter(pieces);
        pieces.given = IsComplete(pieces.piece);
        if (pieces.given) return true;
    }
    pieces.given = pieces.ended && !pieces.piece.empty();
    return pieces.given;
}

}  // namespace kalvex
