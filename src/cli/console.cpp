// Output goes unchanged through the C streams. A box that asks a question is answered with No,
// because there is nobody to ask.
#include "cli/console.h"

#include <cstdio>

#include "base/encoding.h"

namespace kalvex {
namespace {

void AppendEscaped(std::string& line, std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (pair) continue;
        if (text[i] == '\n' || text[i] == '\r')
            line += "\\n";
        else
            line += text[i];
    }
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

ExitStatus FinishOutput() {
    const bool flushed = std::fflush(stdout) == 0;
    if (flushed && std::ferror(stdout) == 0) return ExitStatus::Done;
    std::fputs("Standard output could not be written.\n", stderr);
    return ExitStatus::NotWritten;
}

std::string MessageLine(const MessageBox& box) {
    std::string line;
    AppendEscaped(line, ToUtf8(box.caption));
    line += ": ";
    AppendEscaped(line, ToUtf8(box.text));
    return line;
}

MessageAnswer ShowOnStandardError(const MessageBox& box) {
    const std::string line = MessageLine(box) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
    return box.buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
}

}  // namespace kalvex
