// Keeps the windows alive while something slow is being computed on the only thread.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

namespace kalvex {

/// As long as it exists, Poll handles waiting events (painting, signals, other programs), but no
/// input reaches a window: input is held back and delivered in its order when the gate is
/// destroyed. Escape, any other command of the keyboard, and closing or resizing a window ask the
/// computation to stop. Escape is not delivered later; nor is a press of the pointer at a point of
/// the screen for which `stopKey` is true, which stops the computation like Escape.
class InputGate final : public QObject {
  public:
    explicit InputGate(std::function<bool(QPointF)> stopKey);
    ~InputGate() override;
    InputGate(const InputGate&) = delete;
    InputGate& operator=(const InputGate&) = delete;

    void Poll();
    void Stop() { stopped = true; }
    [[nodiscard]] bool Stopped() const { return stopped || resized; }
    /// Whether the person or the end of the program wanted the stop. A resize alone does not mean
    /// that the picture is not wanted: when the window has kept its size after all, nothing else
    /// asks for a new one.
    [[nodiscard]] bool IsUnwanted() const { return stopped; }

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    struct HeldEvent {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
    };

    [[nodiscard]] bool PressesStopKey(const QEvent& event) const;
    void Hold(QObject* receiver, const QEvent& event);

    std::function<bool(QPointF)> isStopKey;
    std::vector<HeldEvent> held;
    bool stopped = false;
    bool resized = false;
};

}  // namespace kalvex
