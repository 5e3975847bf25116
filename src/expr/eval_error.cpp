// Name and message of a code come from the row of its function in the table of functions. Three
// codes belong to no function; their texts are here.
#include "expr/eval_error.h"

#include <optional>
#include <string_view>

#include "expr/function_table.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"

namespace kalvex {

thread_local std::int32_t EvalError = 0;

namespace {

/// The texts of a code: the name that appears in the title, and the message.
struct ErrorText {
    std::u16string_view name;
    StringId message;
};

/// The texts of the codes that belong to no function. Their spelling is part of the interface.
std::optional<ErrorText> OtherText(EvalCode code) {
    switch (code) {
        case EvalCode::Divide:
            return ErrorText{u"Devide", StringId::DivisionByZero};
        case EvalCode::Power:
            return ErrorText{u"Pow", StringId::FractionalPower};
        case EvalCode::NoValue:
            return ErrorText{u"Interpolation", StringId::NoExtrapolation};
        default:
            return std::nullopt;
    }
}

std::optional<ErrorText> TextOf(EvalCode code) {
    for (const Function& function : kFunctions) {
        if (function.code == code && function.message) {
            return ErrorText{function.name, *function.message};
        }
    }
    return OtherText(code);
}

}  // namespace

void DescribeEvalError(std::int32_t code, std::u16string& title, std::u16string& message,
                       const ShowMessage& show) {
    std::u16string_view name = u"Unknown";
    if (const std::optional<ErrorText> text = TextOf(static_cast<EvalCode>(code))) {
        name = text->name;
        message = Text(text->message);
    } else if (show) {
        // KEEP: this box is how an unknown code is noticed in the field, 0 included.
        show(UnknownCodeBox(code));
    }
    title = FillIn(Text(StringId::EvalErrorTitle), {name});
}

}  // namespace kalvex
