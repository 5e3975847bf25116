// The line below the fields says how many pixels the present choice means.
#include "ui/graph/picture_size_dialog.h"

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <utility>

#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "ui/parts/form_dialog.h"
#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

struct SizeFields {
    QComboBox* choice;
    QLineEdit* width;
    QLabel* meaning;
};

SizeChoice ChoiceOf(const SizeFields& fields) {
    return static_cast<SizeChoice>(fields.choice->currentIndex());
}

/// Reads the fields as they are at the moment.
std::optional<InputProblem> Read(const SizeFields& fields, const PixelSize& seen,
                                 PictureSize& size) {
    return ReadPictureSize(ChoiceOf(fields), FromQString(fields.width->text()), seen, size);
}

void ShowMeaning(const SizeFields& fields, const PixelSize& seen) {
    fields.width->setEnabled(ChoiceOf(fields) == SizeChoice::OwnWidth);
    PictureSize size;
    if (Read(fields, seen, size)) return fields.meaning->clear();
    const PixelSize made = SizeOf(size, seen);
    fields.meaning->setText(
        TextOf(StringId::PicturePixels, {NumberText(made.width), NumberText(made.height)}));
}

bool HasMemoryFor(const PixelSize& size) {
    return !QImage(size.width, size.height, QImage::Format_RGB32).isNull();
}

/// Shows the box and then points at the field that was refused.
Flow Refuse(ShowBox show, MessageBox box, QWidget* field) {
    co_await show(box);
    field->setFocus(Qt::OtherFocusReason);
}

/// Takes what the fields say; false when it is refused.
bool Take(const SizeFields& fields, const PixelSize& seen, PictureSize& size, const ShowBox& show) {
    PictureSize taken = size;
    if (const auto problem = Read(fields, seen, taken)) {
        if (problem->field == 1) {
            RefuseText(show, problem->message, fields.width);
        } else {
            Refuse(show, ErrorBox(problem->message), fields.choice);
        }
        return false;
    }
    if (!HasMemoryFor(SizeOf(taken, seen))) {
        Refuse(show, ErrorBox(Text(StringId::OutOfMemory)), fields.choice);
        return false;
    }
    size = taken;
    return true;
}

SizeFields AddFields(FormDialog& dialog, const PictureSize& size, const PixelSize& seen) {
    const QStringList choices = {TextOf(StringId::PictureAsSeen), TextOf(StringId::PictureTwice),
                                 TextOf(StringId::PictureFourTimes),
                                 TextOf(StringId::PictureOwnWidth)};
    SizeFields fields{};
    fields.choice = dialog.AddChoice(TextOf(StringId::PictureSizeCaption), choices,
                                     static_cast<int>(size.choice));
    fields.choice->setObjectName("sizeChoice");
    const std::int32_t width = size.ownWidth > 0 ? size.ownWidth : seen.width;
    fields.width =
        dialog.AddText(TextOf(StringId::PictureWidthCaption), ToQString(NumberText(width)));
    fields.width->setObjectName("ownWidth");
    fields.width->setInputMethodHints(Qt::ImhPreferNumbers);
    fields.meaning = dialog.AddMeaning();
    fields.meaning->setObjectName("madeSize");
    return fields;
}

}  // namespace

void OpenPictureSizeDialog(QWidget* parent, const PixelSize& seen, PictureSize& size,
                           const ShowBox& show, std::function<void()> chosen) {
    auto* const dialog = new FormDialog(TextOf(StringId::PictureSizeTitle), parent);
    dialog->setObjectName("pictureSizeDialog");
    const SizeFields fields = AddFields(*dialog, size, seen);
    ShowMeaning(fields, seen);
    const auto update = [fields, seen] { ShowMeaning(fields, seen); };
    QObject::connect(fields.choice, &QComboBox::currentIndexChanged, dialog, update);
    QObject::connect(fields.width, &QLineEdit::textChanged, dialog, update);
    dialog->save = [fields, seen, &size, show] { return Take(fields, seen, size, show); };
    // The picture is written when the dialog has left the screen, so that a box about it stands
    // over the graph.
    QObject::connect(
        dialog, &QDialog::finished, parent,
        [chosen = std::move(chosen)](int result) {
            if (result == QDialog::Accepted) chosen();
        },
        Qt::SingleShotConnection);
    fields.choice->setFocus(Qt::OtherFocusReason);
    dialog->OpenOverParent();
}

}  // namespace kalvex
