// One table: the code's primitive as its title names it, and the message. The spelling of both is
// part of the interface.
#include "expr/eval_error.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "resources/strings.h"

namespace kalvex {

thread_local std::int32_t EvalError = 0;

namespace {

struct ErrorText {
    std::int32_t code;
    std::u16string_view name;
    StringId message;
};

constexpr std::array<ErrorText, 22> kErrorTexts = {{
    {1, u"Devide", StringId::DivisionByZero},
    {2, u"Pow", StringId::FractionalPower},
    {3, u"ln", StringId::LogarithmOfNegative},
    {4, u"lg", StringId::LogarithmOfNegative},
    {5, u"acos", StringId::AcosDomain},
    {6, u"asin", StringId::AsinDomain},
    {7, u"Ci", StringId::CiAtZero},
    {8, u"Chi", StringId::ChiAtZero},
    {9, u"Psi", StringId::PsiDomain},
    {10, u"Ei", StringId::EiDomain},
    {11, u"Beta", StringId::BetaDomain},
    {12, u"J", StringId::BesselDomain},
    {13, u"Y", StringId::BesselDomain},
    {14, u"K", StringId::ModifiedBesselDomain},
    {15, u"I", StringId::ModifiedBesselDomain},
    {16, u"Hyper", StringId::HyperDomain},
    {17, u"log", StringId::LogarithmOfNegative},
    {18, u"Cheb", StringId::ChebDomain},
    {19, u"Hi", StringId::HiDomain},
    {20, u"Lag", StringId::LagDomain},
    {21, u"Leg", StringId::LegDomain},
    {1000, u"Interpolation", StringId::NoExtrapolation},
}};

void ShowUnknownCode(std::int32_t code, const ShowMessage& show) {
    if (!show) return;
    MessageBox box;
    box.caption = FillIn(Text(StringId::UnknownCodeTitle), {NumberText(code)});
    box.text = Text(StringId::UnknownCodeText);
    show(box);
}

}  // namespace

void DescribeEvalError(std::int32_t code, std::u16string& title, std::u16string& message,
                       const ShowMessage& show) {
    const auto found = std::ranges::find(kErrorTexts, code, &ErrorText::code);
    std::u16string_view name = u"Unknown";
    if (found == kErrorTexts.end()) {
        // KEEP: this box is how an unknown code is noticed in the field, 0 included.
        ShowUnknownCode(code, show);
    } else {
        name = found->name;
        message = Text(found->message);
    }
    title = FillIn(Text(StringId::EvalErrorTitle), {name});
}

}  // namespace kalvex
