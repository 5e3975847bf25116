// How a run of the tool ends.
#pragma once

namespace kalvex {

enum class ExitStatus : int {
    Done = 0,
    Rejected = 1,    ///< a text was rejected or an input was unreadable; standard error says so
    WrongUsage = 2,  ///< arguments that the subcommand does not accept
    NotWritten = 3,  ///< a file, or standard output, could not be written
};

/// The more serious of two results, so that a later success does not hide an earlier failure.
[[nodiscard]] constexpr ExitStatus Worse(ExitStatus a, ExitStatus b) {
    return static_cast<int>(a) > static_cast<int>(b) ? a : b;
}

}  // namespace kalvex
