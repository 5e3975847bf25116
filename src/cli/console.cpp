// Output goes unchanged through the C streams. A box that asks a question is answered with No,
// because there is nobody to ask.
#include "cli/console.h"

#include <cstdio>

#include "base/encoding.h"
#include "expr/shape_tokens.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

/// The box of the normaliser repeats the whole text at each product. A text that already has more
/// tokens than the check takes will be rejected, so its further products are not told: a text of
/// megabytes would be written hundreds of times.
bool IsProductOfLongText(const MessageBox& box) {
    return box.caption == Text(StringId::TestTitle) && ShapeLength(box.text) > kShapeCapacity;
}

}  // namespace

ExitStatus ForEachText(const std::optional<std::string>& argument, std::istream& input,
                       const HandleText& handle) {
    if (argument) return handle(ToUtf16(*argument));
    ExitStatus status = ExitStatus::Done;
    for (std::string line; std::getline(input, line);)
        status = Worse(status, handle(ToUtf16(line)));
    if (input.bad()) {
        std::fputs("Standard input could not be read.\n", stderr);
        status = Worse(status, ExitStatus::Rejected);
    }
    return status;
}

bool WriteOut(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    return std::ferror(stdout) == 0;
}

bool WriteOutNow(std::string_view text) {
    return WriteOut(text) && std::fflush(stdout) == 0;
}

void PrintText(std::string_view text) {
    static_cast<void>(WriteOut(text));  // the stream keeps the failure
}

ExitStatus FinishOutput() {
    const bool flushed = std::fflush(stdout) == 0;
    if (flushed && std::ferror(stdout) == 0) return ExitStatus::Done;
    std::fputs("Standard output could not be written.\n", stderr);
    return ExitStatus::NotWritten;
}

MessageAnswer ShowOnStandardError(const MessageBox& box) {
    if (IsProductOfLongText(box)) return MessageAnswer::Ok;
    return WriteMessageLine(box);
}

}  // namespace kalvex
