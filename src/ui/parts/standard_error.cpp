// Standard error is shared with other programs, so it must not be made non-blocking. Instead each
// write is preceded by the question whether there is room. A pipe that has room takes at least
// PIPE_BUF bytes at once, so no write is larger.
#include "ui/parts/standard_error.h"

#include "base/message_line.h"

#if defined(__unix__) || defined(__APPLE__)
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#else
#include <cstdio>
#endif

namespace kalvex {

#if defined(__unix__) || defined(__APPLE__)
namespace {

bool HasRoom() {
    pollfd standardError = {STDERR_FILENO, POLLOUT, 0};
    return poll(&standardError, 1, 0) == 1 && (standardError.revents & POLLOUT) != 0;
}

}  // namespace

void WriteToStandardError(std::string_view text) noexcept {
    while (!text.empty() && HasRoom()) {
        const std::string_view piece = text.substr(0, PIPE_BUF);
        const ssize_t written = write(STDERR_FILENO, piece.data(), piece.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}
#else
void WriteToStandardError(std::string_view text) noexcept {
    std::fwrite(text.data(), 1, text.size(), stderr);
}
#endif

MessageAnswer WriteMessageLineNow(const MessageBox& box) {
    WriteToStandardError(MessageLine(box) + '\n');
    return box.buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
}

}  // namespace kalvex
