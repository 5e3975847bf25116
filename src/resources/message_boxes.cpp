#include "resources/message_boxes.h"

#include <string>

namespace kalvex {

MessageBox BoxOf(StringId caption, std::u16string_view text, MessageIcon icon,
                 MessageButtons buttons) {
    return {std::u16string(Text(caption)), std::u16string(text), icon, buttons};
}

MessageBox UnknownCodeBox(std::int32_t code) {
    return {FillIn(Text(StringId::UnknownCodeTitle), {NumberText(code)}),
            std::u16string(Text(StringId::UnknownCodeText))};
}

MessageBox ErrorBox(std::u16string_view text) {
    return BoxOf(StringId::Error, text, MessageIcon::Stop);
}

MessageBox WarningBox(std::u16string_view text) {
    return BoxOf(StringId::Warning, text, MessageIcon::Exclamation);
}

}  // namespace kalvex
