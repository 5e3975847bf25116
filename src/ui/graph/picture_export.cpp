// The counter goes up and is stored for every picture, also for one that could not be written. Only
// a picture whose font is missing is not tried at all.
#include "ui/graph/picture_export.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QMimeData>
#include <QScreen>
#include <QStandardPaths>
#include <memory>
#include <utility>

#include "base/complete_file.h"
#include "base/encoding.h"
#include "painter/painter.h"
#include "painter/picture_file.h"
#include "painter/vector_file.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "ui/parts/file_dialogs.h"
#include "ui/parts/file_name.h"
#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

/// The next number; after the largest one counting starts over at the smallest.
std::int32_t Successor(std::int32_t counter) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(counter) + 1U);
}

QString SuffixOf(const PictureFormat& format) {
    return QString::fromLatin1(format.suffix.data(), static_cast<qsizetype>(format.suffix.size()));
}

MessageBox NotWrittenBox(const QString& path) {
    return ErrorBox(FillIn(Text(StringId::PictureNotWritten), {FromQString(path)}));
}

}  // namespace

QString DefaultPictureFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

void ExportPicture(const DrawList& picture, Options& options, const Registry& registry,
                   const QString& folder, const ShowBox& show, const PathSaved& saved) {
    const QString name = "Kalvex_" + QString::number(options.Screen) + ".bmp";
    const QString path = QDir(folder).filePath(name);
    if (!HasFontsOf(picture)) return static_cast<void>(Tell(show, {NotWrittenBox(path)}));
    options.Screen = Successor(options.Screen);
    if (!FileNameOf(folder).empty()) QDir().mkpath(folder);
    // KEEP: "Save" is the text and "Info" the caption, shown even when no file could be made.
    const bool isWritten{WriteCompleteFile(FileNameOf(path), [&picture](const TakeBytes& take) {
        return MakeBitmap(PaintPicture(picture), take);
    })};
    // The picture counts, not its number: a failure of the store is not told.
    static_cast<void>(StoreOption(registry, "Screen", options.Screen));
    Tell(show,
         {BoxOf(StringId::PictureSavedCaption, Text(StringId::PictureSavedText),
                MessageIcon::Exclamation)},
         [isWritten, saved, path] {
             if (isWritten && saved) saved(path);
         });
}

void OpenSavePictureDialog(QWidget* parent, const QString& folder,
                           std::function<void(const QString& path)> chosen) {
    auto* const dialog = new FileDialog(parent, TextOf(StringId::SavePictureTitle), folder);
    dialog->setObjectName("savePictureDialog");
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const PictureFormat& format : PictureFormats())
        if (format.filter) filters += TextOf(*format.filter);
    dialog->setNameFilters(filters);
    dialog->setDefaultSuffix(SuffixOf(PictureFormats().front()));
    dialog->selectFile("Kalvex.png");
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& filter) {
        for (const PictureFormat& format : PictureFormats()) {
            if (format.filter && filter == TextOf(*format.filter))
                dialog->setDefaultSuffix(SuffixOf(format));
        }
    });
    WhenChosen(*dialog, std::move(chosen));
    FitFileDialog(*dialog, dialog->screen()->availableGeometry().size());
    dialog->open();
}

bool SavePicture(const DrawList& picture, const PictureStyle& style, const QString& path,
                 const ShowBox& show) {
    const PictureFormat* format = PictureFormatOf(path.toStdString(), FormatsOf::Windows);
    if (format == nullptr) {
        const std::u16string endings = Widen(PictureEndings(FormatsOf::Windows));
        Tell(show, {ErrorBox(FillIn(Text(StringId::PictureEnding), {endings, FromQString(path)}))});
    } else if (!WritePicture(*format, FileNameOf(path), picture, style)) {
        Tell(show, {NotWrittenBox(path)});
    } else {
        return true;
    }
    return false;
}

void CopyPicture(const DrawList& picture, const PictureStyle& style) {
    QByteArray drawing;
    const bool isDrawn = MakeSvg(picture, [&drawing](std::string_view bytes) {
        drawing.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
        return true;
    });
    auto contents = std::make_unique<QMimeData>();
    contents->setImageData(PaintPicture(picture, style.ratio, style.playing));
    if (isDrawn) contents->setData("image/svg+xml", drawing);
    QGuiApplication::clipboard()->setMimeData(contents.release());
}

}  // namespace kalvex
