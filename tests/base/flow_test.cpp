#include "base/flow.h"

#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <stdexcept>
#include <string>

namespace kalvex {
namespace {

/// Counts the frames that hold one.
struct InFrame {
    int* count;
    explicit InFrame(int& counter) : count(&counter) { ++*count; }
    InFrame(const InFrame& other) : count(other.count) { ++*count; }
    InFrame& operator=(const InFrame&) = delete;
    ~InFrame() { --*count; }
};

/// Shows two boxes and writes down what happens.
Flow TwoBoxes(ShowBox show, InFrame frame, std::string& steps) {
    static_cast<void>(frame);
    steps += "a";
    const MessageBox first{u"first", {}, MessageIcon::None, MessageButtons::YesNo};
    const MessageAnswer answer = co_await show(first);
    steps += answer == MessageAnswer::Yes ? "y" : "n";
    const MessageBox second{u"second", {}};
    co_await show(second);
    steps += "e";
}

/// Boxes that stay open until the test answers or drops them.
struct OpenBoxes {
    std::vector<std::u16string> captions;
    TakeAnswer answered;

    ShowBox Show() {
        return ShowBox::Opening([this](const MessageBox& box, const TakeAnswer& take) {
            captions.push_back(box.caption);
            answered = take;
        });
    }
    void Answer(MessageAnswer answer) { std::exchange(answered, nullptr)(answer); }
};

/// Shows a box, then fails.
Flow FailsBehindABox(ShowBox show, InFrame frame) {
    static_cast<void>(frame);
    const MessageBox box{u"first", {}};
    co_await show(box);
    throw std::runtime_error("behind");
}

TEST(Flow, ThatFailsEndsAndTellsWhoAnswered) {
    OpenBoxes boxes;
    int frames = 0;
    FailsBehindABox(boxes.Show(), InFrame(frames));
    EXPECT_EQ(frames, 1);
    EXPECT_THROW(boxes.Answer(MessageAnswer::Ok), std::runtime_error);
    EXPECT_EQ(frames, 0);
    const auto atOnce = [](const MessageBox&) { return MessageAnswer::Ok; };
    EXPECT_THROW(FailsBehindABox(ShowBox(atOnce), InFrame(frames)), std::runtime_error);
    EXPECT_EQ(frames, 0);
    const auto soon = ShowBox::Opening(
        [](const MessageBox&, const TakeAnswer& take) { take(MessageAnswer::Ok); });
    EXPECT_THROW(FailsBehindABox(soon, InFrame(frames)), std::runtime_error);
    EXPECT_EQ(frames, 0);
}

TEST(Flow, EndsWhenItsBoxCannotBeOpened) {
    for (const int opened : {0, 1}) {
        OpenBoxes boxes;
        int count = 0;
        const auto show = ShowBox::Opening([&](const MessageBox&, const TakeAnswer& take) {
            if (count++ == opened) throw std::bad_alloc();
            boxes.answered = take;
        });
        std::string steps;
        int frames = 0;
        const auto run = [&] {
            TwoBoxes(show, InFrame(frames), steps);
            boxes.Answer(MessageAnswer::Yes);
        };
        EXPECT_THROW(run(), std::bad_alloc);
        EXPECT_EQ(steps, opened == 0 ? "a" : "ay");
        EXPECT_EQ(frames, 0);
    }
}

TEST(Flow, RunsThroughWhenBoxesAreAnsweredAtOnce) {
    for (const MessageAnswer answer : {MessageAnswer::Yes, MessageAnswer::No}) {
        std::string steps;
        int frames = 0;
        std::vector<std::u16string> shown;
        const auto show = [&](const MessageBox& box) {
            shown.push_back(box.caption);
            return answer;
        };
        TwoBoxes(show, InFrame(frames), steps);
        EXPECT_EQ(steps, answer == MessageAnswer::Yes ? "aye" : "ane");
        EXPECT_EQ(shown, (std::vector<std::u16string>{u"first", u"second"}));
        EXPECT_EQ(frames, 0);
    }
}

TEST(Flow, WaitsAtEveryOpenBox) {
    std::string steps;
    int frames = 0;
    OpenBoxes boxes;
    TwoBoxes(boxes.Show(), InFrame(frames), steps);
    EXPECT_EQ(steps, "a");
    EXPECT_EQ(frames, 1);
    boxes.Answer(MessageAnswer::No);
    EXPECT_EQ(steps, "an");
    boxes.Answer(MessageAnswer::Ok);
    EXPECT_EQ(steps, "ane");
    EXPECT_EQ(frames, 0);
    EXPECT_EQ(boxes.captions, (std::vector<std::u16string>{u"first", u"second"}));
}

TEST(Flow, EndsWhenItsBoxIsDropped) {
    for (const int answered : {0, 1}) {
        std::string steps;
        int frames = 0;
        OpenBoxes boxes;
        TwoBoxes(boxes.Show(), InFrame(frames), steps);
        if (answered == 1) boxes.Answer(MessageAnswer::Yes);
        boxes.answered = nullptr;
        EXPECT_EQ(steps, answered == 1 ? "ay" : "a");
        EXPECT_EQ(frames, 0) << answered;
    }
}

TEST(Flow, TakesOneAnswer) {
    std::string steps;
    int frames = 0;
    OpenBoxes boxes;
    TwoBoxes(boxes.Show(), InFrame(frames), steps);
    const TakeAnswer first = boxes.answered;
    first(MessageAnswer::Yes);
    first(MessageAnswer::No);
    EXPECT_EQ(steps, "ay");
    boxes.Answer(MessageAnswer::Ok);
    first(MessageAnswer::No);
    EXPECT_EQ(steps, "aye");
}

TEST(Flow, MayBeAnsweredWhileItsBoxOpens) {
    std::string steps;
    int frames = 0;
    const ShowBox show = ShowBox::Opening(
        [](const MessageBox&, const TakeAnswer& take) { take(MessageAnswer::No); });
    TwoBoxes(show, InFrame(frames), steps);
    EXPECT_EQ(steps, "ane");
    EXPECT_EQ(frames, 0);
}

TEST(Flow, CollectsTheBoxesOfTheEngine) {
    std::vector<MessageAnswer> answers;
    const auto boxes = BoxesOf([&](const ShowMessage& show) {
        answers.push_back(show({u"told", {}}));
        answers.push_back(show({u"asked", {}, MessageIcon::None, MessageButtons::YesNo}));
    });
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].caption, u"told");
    EXPECT_EQ(boxes[1].caption, u"asked");
    EXPECT_EQ(answers, (std::vector{MessageAnswer::Ok, MessageAnswer::Yes}));
}

}  // namespace
}  // namespace kalvex
