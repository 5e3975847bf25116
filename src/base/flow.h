// Flows: what the program does in several steps with message boxes between them. A flow is a
// coroutine. It owns its data (parameters are copies, locals live in its frame) and stops at
// `co_await show(box)` until the box has been answered. Whoever shows the box owns the waiting flow
// and either answers, which runs the next steps, or drops it, which ends it there.
#pragma once

#include <coroutine>
#include <exception>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/message_box.h"

namespace kalvex {

/// The result type of a flow. A call runs it to its first open box, or to its end. Whoever calls it
/// keeps nothing: the frame is freed at its end. An exception that leaves a flow ends it and goes
/// to whoever called it or has answered its last box.
struct Flow {
    struct promise_type {
        std::exception_ptr* failure = nullptr;  ///< where an answer waits for an exception; or null
        Flow get_return_object() noexcept { return {}; }
        std::suspend_never initial_suspend() noexcept { return {}; }
        std::suspend_never final_suspend() noexcept { return {}; }
        void return_void() noexcept {}
        void unhandled_exception() {
            // The frame of a flow that was resumed is freed only if nothing is thrown here.
            if (failure == nullptr) throw;
            *failure = std::current_exception();
        }
    };
};

using FlowFrame = std::coroutine_handle<Flow::promise_type>;

/// Takes the answer of a box. Only the first call counts.
using TakeAnswer = std::function<void(MessageAnswer)>;

/// Opens a box and returns; `answered` is called once, when it has been answered. Destroying every
/// copy of `answered` without a call ends the flow that waits.
using OpenBox = std::function<void(const MessageBox& box, const TakeAnswer& answered)>;

/// A flow that waits for an answer.
struct WaitingFlow {
    explicit WaitingFlow(FlowFrame flow) : frame(flow) {}
    WaitingFlow(const WaitingFlow&) = delete;
    WaitingFlow& operator=(const WaitingFlow&) = delete;
    ~WaitingFlow() {
        if (frame) frame.destroy();
    }

    FlowFrame frame;        ///< null once it has gone on
    bool isOpening = true;  ///< the function that opens the box has not returned
    bool isAnswered = false;
};

/// Runs the flow up to its next box.
inline void GoOn(WaitingFlow& waiting) {
    std::exception_ptr failure;
    const FlowFrame frame = std::exchange(waiting.frame, nullptr);
    frame.promise().failure = &failure;
    frame.resume();
    if (failure) std::rethrow_exception(failure);
}

/// How boxes are shown: by opening them, or by a function that returns with the answer.
class ShowBox final {
  public:
    ShowBox() = default;
    /// From anything that can be called like a ShowMessage, which need not be named.
    template <typename Show>
    requires std::is_convertible_v<Show, ShowMessage> ShowBox(Show show) : now(std::move(show)) {}
    [[nodiscard]] static ShowBox Opening(OpenBox open) {
        ShowBox result;
        result.later = std::move(open);
        return result;
    }

    /// What a flow waits for. It lives in the flow's frame, and so does its box.
    class Waiting final {
      public:
        Waiting(const ShowBox& by, const MessageBox& shown) : how(by), box(shown) {}
        [[nodiscard]] bool await_ready() {
            if (how.now) answer = how.now(box);
            return static_cast<bool>(how.now);
        }
        /// False when the box was answered before the function that opens it returned: the flow
        /// then goes on without having waited. The same when that function throws.
        bool await_suspend(FlowFrame flow) {
            const auto waiting = std::make_shared<WaitingFlow>(flow);
            try {
                how.later(box, [this, waiting](MessageAnswer given) {
                    if (!waiting->frame || waiting->isAnswered) return;
                    answer = given;
                    waiting->isAnswered = true;
                    if (!waiting->isOpening) GoOn(*waiting);
                });
            } catch (...) {
                waiting->frame = nullptr;
                throw;
            }
            waiting->isOpening = false;
            if (waiting->isAnswered) {
                waiting->frame = nullptr;
                return false;
            }
            flow.promise().failure = nullptr;
            return true;
        }
        /// Most boxes have one answer only, so that it may be ignored.
        MessageAnswer await_resume() const noexcept { return answer; }

      private:
        const ShowBox& how;
        const MessageBox& box;
        MessageAnswer answer = MessageAnswer::Ok;
    };

    /// To be awaited by a flow, which gets the answer.
    Waiting operator()(const MessageBox& box) const { return {*this, box}; }

  private:
    ShowMessage now;
    OpenBox later;
};

/// Shows boxes one after the other; `after` runs when the last one has been answered.
inline Flow Tell(ShowBox show, std::vector<MessageBox> boxes, std::function<void()> after = {}) {
    for (const MessageBox& box : boxes)
        co_await show(box);
    if (after) after();
}

/// The boxes that a part of the engine shows, instead of showing them: `work` gets a ShowMessage
/// that answers every box at once, a question with Yes. A flow shows them afterwards. Only for a
/// part that neither stores nor writes anything, so that it does not matter that it runs first.
template <typename Work>
[[nodiscard]] std::vector<MessageBox> BoxesOf(const Work& work) {
    std::vector<MessageBox> boxes;
    work(ShowMessage([&boxes](const MessageBox& box) {
        boxes.push_back(box);
        return box.buttons == MessageButtons::YesNo ? MessageAnswer::Yes : MessageAnswer::Ok;
    }));
    return boxes;
}

}  // namespace kalvex
