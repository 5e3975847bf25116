// Output goes through the C streams and is not converted on the way.
#include "cli/console.h"

#include <cstdio>

#include "base/encoding.h"

namespace kalvex {

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

MessageAnswer ShowOnStandardError(const MessageBox& box) {
    return WriteMessageLine(box);
}

}  // namespace kalvex
