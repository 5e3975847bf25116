// The counter is stored before the file is tried: whatever fails afterwards, the next picture
// never overwrites this one.
#include "ui/picture_export.h"

#include <QDir>
#include <QStandardPaths>

#include "painter/painter.h"
#include "painter/picture_file.h"
#include "resources/strings.h"
#include "workspace/settings.h"

namespace kalvex {
namespace {

/// The next number; after the largest one counting starts over at the smallest.
std::int32_t Successor(std::int32_t counter) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(counter) + 1U);
}

}  // namespace

QString DefaultPictureFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

void ExportPicture(const DrawList& picture, Options& options, const Registry& registry,
                   const QString& folder, const ShowMessage& show) {
    const QString name = "Kalvex_" + QString::number(options.Screen) + ".bmp";
    options.Screen = Successor(options.Screen);
    StoreOption(registry, "Screen", options.Screen);
    QDir().mkpath(folder);
    WriteBitmap(QDir(folder).filePath(name), PaintPicture(picture, 1.0));
    // KEEP: "Save" is the text and "Info" the caption, shown even when no file could be made.
    show({std::u16string(Text(StringId::PictureSavedCaption)),
          std::u16string(Text(StringId::PictureSavedText)), MessageIcon::Exclamation,
          MessageButtons::Ok});
}

}  // namespace kalvex
