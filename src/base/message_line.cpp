// Output goes through the C streams and is not converted on the way.
#include "base/message_line.h"

#include <cstdio>
#include <string_view>

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

std::string MessageLine(const MessageBox& box) {
    std::string line;
    AppendEscaped(line, ToUtf8(box.caption));
    line += ": ";
    AppendEscaped(line, ToUtf8(box.text));
    return line;
}

MessageAnswer WriteMessageLine(const MessageBox& box) {
    const std::string line = MessageLine(box) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
    return box.buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
}

}  // namespace kalvex
