// What the window program does when memory runs out or a library gives up.
#pragma once

#include <QApplication>
#include <functional>

namespace kalvex {

/// An application in which a handler of an event that runs out of memory ends with a message
/// instead of ending the program: a line on standard error and, soon afterwards, a call of
/// `tellLackOfMemory`, unless an earlier message has not been answered. What the handler has done
/// until then stays.
class SafeApplication final : public QApplication {
  public:
    SafeApplication(int& count, char** arguments) : QApplication(count, arguments) {}
    bool notify(QObject* receiver, QEvent* event) override;

    /// Opens a message and calls `answered` later. May be empty.
    std::function<void(std::function<void()> answered)> tellLackOfMemory;

  private:
    bool telling = false;
};

/// Writes a line about the lack of memory to standard error, without using memory.
void WriteLackOfMemory();

/// From now on a failure that nobody handles ends the process with the status 1 and a line on
/// standard error, without a memory dump. Files that were being written stay as they were. Such
/// failures are an exception that leaves a function which must not throw, and Qt's fatal messages,
/// for example about a platform plugin that cannot be loaded.
void EndWithALineOnFatalErrors();

}  // namespace kalvex
