// Run: scripts/fuzz
//
// Feeds arbitrary UTF-16 to the normalisers and the checker. Nothing may crash, and an accepted
// text is not empty. Normalising inserts at most one character per character, and "0" or "x*0+"
// once at the start.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "expr/checker.h"
#include "expr/normaliser.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void Check(const std::u16string& text) {
    for (const auto mode : {kalvex::CheckMode::OneVariable, kalvex::CheckMode::TwoVariables}) {
        const kalvex::CheckResult result = kalvex::CheckExpression(text, mode);
        Require(!result.message.empty());
        Require(result.code < 0 || !text.empty());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < size; i += 2)
        text.push_back(static_cast<char16_t>(data[i] | data[i + 1] << 8));
    Check(text);
    std::u16string rewritten = text;
    std::size_t boxes = 0;
    kalvex::NormaliseExplicit(rewritten, [&](const kalvex::MessageBox& box) {
        ++boxes;
        Require(box.text.size() >= text.size() + boxes);
        return kalvex::MessageAnswer::Ok;
    });
    Require(rewritten.size() >= text.size() + boxes);
    Require(rewritten.size() <= 2 * text.size() + 1);
    Check(rewritten);
    rewritten = text;
    kalvex::NormaliseImplicit(rewritten);
    Require(rewritten.size() <= 2 * text.size() + 5);
    Check(rewritten);
    return 0;
}
