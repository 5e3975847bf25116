// Files are written by the function that the windows use for their exports. What was printed before
// is flushed first, so that it stands before a file that goes to standard output too. What a killed
// run left in the folder is removed.
#include "cli/write_file.h"

#include <cstdio>

#include "base/temporary_file.h"
#include "base/write_target.h"

namespace kalvex {

ExitStatus WriteFile(const std::string& path, const FillFile& fill, const std::string& what) {
    std::fflush(stdout);  // a failure is remembered and reported at the end
    if (path != "-") RemoveLeftovers(path.substr(0, path.rfind('/') + 1) + '.');
    const WriteResult result =
        path == "-" ? WriteStream(STDOUT_FILENO, fill) : WriteFileOrStream(path, fill);
    if (result) return ExitStatus::Done;
    const std::string message =
        "The " + what + " could not be written: " + path + ": " + result.failure + '\n';
    std::fputs(message.c_str(), stderr);
    return ExitStatus::NotWritten;
}

ExitStatus WriteFile(const std::string& path, std::string_view bytes, const std::string& what) {
    return WriteFile(
        path, [bytes](const TakeBytes& take) { return take(bytes); }, what);
}

bool IsStandardOutput(const std::string& path) {
    if (path == "-") return true;
    const WriteTarget target = FindWriteTarget(path);
    return target.kind == TargetKind::OpenDescriptor && target.number == STDOUT_FILENO;
}

}  // namespace kalvex
