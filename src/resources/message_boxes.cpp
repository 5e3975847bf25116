#include "resources/message_boxes.h"

#include <string>

namespace kalvex {

MessageBox BoxOf(StringId caption, std::u16string_view text, MessageIcon icon,
                 MessageButtons buttons) {
    return {std::u16string(Text(caption)), std::u16string(text), icon, buttons};
}

MessageBox ErrorBox(std::u16string_view text) {
    return BoxOf(StringId::Error, text, MessageIcon::Stop);
}

MessageBox WarningBox(std::u16string_view text) {
    return BoxOf(StringId::Warning, text, MessageIcon::Exclamation);
}

}  // namespace kalvex
