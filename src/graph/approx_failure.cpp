#include "graph/approx_failure.h"

#include "resources/message_boxes.h"

namespace kalvex {

std::string FailureLines(std::span<const ApproxFailure> failures) {
    std::string lines;
    for (const ApproxFailure& failure : failures)
        lines += StandardErrorText(failure.diagnostic);
    return lines;
}

MessageBox OwnBox(const Diagnostic& diagnostic) {
    // KEEP: a caption in small letters and no icon, unlike every other box.
    return BoxOf(StringId::LeastSetCaption, Text(diagnostic.box.value_or(StringId::LeastSetFailed)),
                 MessageIcon::None);
}

std::vector<MessageBox> FailureBoxes(std::span<const ApproxFailure> failures) {
    std::vector<MessageBox> boxes;
    std::u16string reasons;
    for (const auto& [slot, diagnostic] : failures) {
        if (diagnostic.box) boxes.push_back(OwnBox(diagnostic));
        if (!reasons.empty()) reasons += u"\n\n";
        reasons +=
            FillIn(Text(StringId::InFunction), {NumberText(slot + 1), Text(diagnostic.reason)});
    }
    if (reasons.empty()) return boxes;
    boxes.push_back(WarningBox(reasons));
    return boxes;
}

}  // namespace kalvex
