// What Qt writes, handed on piece by piece.
#pragma once

#include <QIODevice>

#include "base/complete_file.h"

namespace kalvex {

/// A device to write to that hands its bytes to a function. When the function fails, it is not
/// called again and the rest is dropped: a device that fails would make some writers print a line
/// of their own on standard error.
class TakingDevice final : public QIODevice {
  public:
    explicit TakingDevice(const TakeBytes& taker) : take(taker) {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }
    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] bool HasFailed() const { return failed; }

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* bytes, qint64 size) override {
        if (!failed) failed = !take({bytes, static_cast<std::size_t>(size)});
        return size;
    }

  private:
    const TakeBytes& take;
    bool failed = false;
};

}  // namespace kalvex
