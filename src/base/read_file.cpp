// The file is opened without waiting, so that a pipe in its place does not stop the program.
#include "base/read_file.h"

#include <array>
#include <cerrno>

#include "base/descriptor.h"
#include "base/system_error.h"

namespace kalvex {
namespace {

/// Reads on until the end or until one byte more than allowed has come. 0 or an error number.
int ReadBytes(int file, std::size_t mostBytes, std::string& bytes) {
    std::array<char, 16384> block{};
    while (bytes.size() <= mostBytes) {
        const ssize_t count = read(file, block.data(), block.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        if (count == 0) return 0;
        bytes.append(block.data(), static_cast<std::size_t>(count));
    }
    return 0;
}

}  // namespace

FileContents ReadWholeFile(const std::string& path, std::size_t mostBytes) {
    FileContents contents;
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.IsOpen()) {
        contents.exists = errno != ENOENT && errno != ENOTDIR;
        if (contents.exists) contents.failure = ReasonOf(errno);
        return contents;
    }
    contents.exists = true;
    int error = fstat(file.Number(), &contents.facts) == 0 ? 0 : errno;
    if (error == 0 && !S_ISREG(contents.facts.st_mode)) {
        contents.failure = "not a regular file";
        return contents;
    }
    if (error == 0) error = ReadBytes(file.Number(), mostBytes, contents.bytes);
    if (error != 0) contents.failure = ReasonOf(error);
    contents.isWhole = contents.bytes.size() <= mostBytes;
    if (!contents.isWhole) contents.bytes.resize(mostBytes);
    return contents;
}

}  // namespace kalvex
