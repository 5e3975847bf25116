// The rewriting is defined as a scan that inserts characters into the text and goes on behind them.
// An inserted "*" or "0" never causes another insertion, and the rules look at one character ahead
// only. One pass that builds a new text from the old one therefore gives the same result, in linear
// time. The box of the explicit normaliser shows the text as the in-place scan would hold it at
// that moment: the new text so far, followed by the rest of the old one.
#include "expr/normaliser.h"

#include <cstddef>
#include <string_view>
#include <type_traits>

#include "resources/message_boxes.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

/// Called with the new text so far and the rest of the old one after each "*" behind ")".
template <typename Function>
concept ProductReport = std::is_invocable_v<Function, const std::u16string&, std::u16string_view>;

constexpr bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

constexpr bool IsLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// Whether a variable directly followed by `next` is a product; `otherVariable` is 0 where the
/// language has one variable only.
constexpr bool IsVariableProduct(char16_t next, char16_t otherVariable) {
    return next == u'(' || (otherVariable != 0 && next == otherVariable);
}

bool IsExplicitProduct(char16_t c, char16_t next) {
    if (IsDigit(c)) return IsLetter(next) || next == u'(';
    if (c == u'x') return IsVariableProduct(next, 0);
    if (c == u')') return IsDigit(next) || IsLetter(next) || next == u'(';
    return false;
}

bool IsImplicitProduct(char16_t c, char16_t next) {
    if (c == u'x') return IsVariableProduct(next, u'y');
    if (c == u'y') return IsVariableProduct(next, u'x');
    return IsExplicitProduct(c, next);
}

template <ProductReport Report>
std::u16string InsertProducts(std::u16string_view text, bool (*isProduct)(char16_t, char16_t),
                              const Report& report) {
    std::u16string result;
    result.reserve(text.size() + text.size() / 2);
    for (std::size_t i = 0; i < text.size(); ++i) {
        result.push_back(text[i]);
        if (i + 1 == text.size() || !isProduct(text[i], text[i + 1])) continue;
        result.push_back(u'*');
        if (text[i] == u')') report(result, text.substr(i + 1));
    }
    return result;
}

/// A minus behind "(" or "," gets a "0" in front.
std::u16string InsertZeros(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size() + text.size() / 2);
    for (std::size_t i = 0; i < text.size(); ++i) {
        result.push_back(text[i]);
        const bool opens = text[i] == u'(' || text[i] == u',';
        if (opens && i + 1 < text.size() && text[i + 1] == u'-') result.push_back(u'0');
    }
    return result;
}

/// A text with more products behind ")" has more tokens than the checker accepts and is rejected in
/// any case. The limit spares the user from answering thousands of boxes first.
constexpr std::size_t kMostBoxes = 255;

bool BeginsWithSign(std::u16string_view text) {
    return !text.empty() && (text.front() == u'-' || text.front() == u'+');
}

}  // namespace

void NormaliseExplicit(std::u16string& text, const ShowMessage& show) {
    if (text.empty()) return;
    // KEEP: users expect this box for a product behind ")". It comes before the steps that put a
    // "0" in front of minus signs, so it shows these signs as typed.
    std::size_t shown = 0;
    const auto showTest = [&](const std::u16string& front, std::u16string_view rest) {
        if (!show || ++shown > kMostBoxes) return;
        std::u16string whole = front;
        whole += rest;
        show(BoxOf(StringId::TestTitle, whole, MessageIcon::None));
    };
    text = InsertZeros(InsertProducts(text, IsExplicitProduct, showTest));
    if (BeginsWithSign(text)) text.insert(0, 1, u'0');
}

void NormaliseImplicit(std::u16string& text) {
    if (text.empty()) return;
    const auto silent = [](const std::u16string&, std::u16string_view) {};
    text = InsertZeros(InsertProducts(text, IsImplicitProduct, silent));
    if (BeginsWithSign(text)) text.insert(0, 1, u'0');
    text.insert(0, u"x*0+");
}

}  // namespace kalvex
