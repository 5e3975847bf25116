// An open file of the system.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <utility>

namespace kalvex {

/// Owns the number of an open file and closes it.
class Descriptor final {
  public:
    Descriptor() = default;
    /// Takes what a system call returned; -1 means that nothing is open.
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number, other.number);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] bool IsOpen() const { return number >= 0; }
    [[nodiscard]] int Number() const { return number; }

    void Close() {
        if (number >= 0) close(std::exchange(number, -1));
    }

    /// Moves a file off the numbers 0 to 2. A program that was started without standard output or
    /// standard error would otherwise print into this file.
    void LeaveStandardNumbers() {
        if (number < 0 || number > 2) return;
        const int higher = fcntl(number, F_DUPFD_CLOEXEC, 3);
        Close();
        number = higher;
    }

  private:
    int number = -1;
};

}  // namespace kalvex
