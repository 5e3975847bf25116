// Keeps the program answering while something slow is being computed on its only thread.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

namespace kalvex {

/// While it lives, Poll handles waiting events (painting, signals, other programs), but no input
/// reaches a window: it is held and handed on, in its order, when the gate goes. Escape, any other
/// key command, closing and resizing a window ask the computation to stop; Escape does nothing
/// more, and a press where `isStopKey` says so (a point of the screen) is the same for the pen.
class InputGate final : public QObject {
  public:
    explicit InputGate(std::function<bool(QPointF)> stopKey);
    ~InputGate() override;
    InputGate(const InputGate&) = delete;
    InputGate& operator=(const InputGate&) = delete;

    void Poll();
    void Stop() { stopped = true; }
    bool Stopped() const { return stopped; }

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    struct HeldEvent {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
    };

    bool PressesStopKey(const QEvent& event) const;
    void Hold(QObject* receiver, const QEvent& event);

    std::function<bool(QPointF)> isStopKey;
    std::vector<HeldEvent> held;
    bool stopped = false;
};

}  // namespace kalvex
