// Collects message boxes instead of showing them.
#pragma once

#include <memory>
#include <vector>

#include "base/message_box.h"

namespace kalvex {

/// Keeps every box and answers it.
struct ShownBoxes {
    std::shared_ptr<std::vector<MessageBox>> boxes = std::make_shared<std::vector<MessageBox>>();
    /// The answer to boxes with the buttons Yes and No.
    std::shared_ptr<MessageAnswer> answer = std::make_shared<MessageAnswer>(MessageAnswer::Yes);
    ShowMessage show = [list = boxes, reply = answer](const MessageBox& box) {
        list->push_back(box);
        return box.buttons == MessageButtons::YesNo ? *reply : MessageAnswer::Ok;
    };
};

}  // namespace kalvex
