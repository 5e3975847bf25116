// The picture as a file or on the clipboard.
#pragma once

#include <QString>
#include <functional>

#include "base/flow.h"
#include "graph/draw_list.h"
#include "painter/write_picture.h"
#include "settings/registry.h"
#include "workspace/options.h"

class QWidget;

namespace kalvex {

/// The user's pictures folder.
[[nodiscard]] QString DefaultPictureFolder();

/// Learns of a file that was written.
using PathSaved = std::function<void(const QString& path)>;

/// Writes the picture as Kalvex_%d.bmp with the counter `Screen` into a folder (made when it is
/// missing), at one pixel per logical pixel, and then stores the next number. The message "Save"
/// is shown even when the file could not be written. A picture whose font cannot be loaded is not
/// written: a message says so, and the number stays. `saved` runs after the message when there is a
/// file.
void ExportPicture(const DrawList& picture, Options& options, const Registry& registry,
                   const QString& folder, const ShowBox& show, const PathSaved& saved = {});

/// Asks for a file (PNG, SVG, PDF or bitmap; by its ending) and hands the path to `chosen`.
/// `folder` is where the dialog starts; returns at once.
void OpenSavePictureDialog(QWidget* parent, const QString& folder,
                           std::function<void(const QString& path)> chosen);

/// Writes the picture in the format of the path's ending. On failure a message says whether the
/// ending is unknown or the file could not be written, and the result is false.
bool SavePicture(const DrawList& picture, const PictureStyle& style, const QString& path,
                 const ShowBox& show);

/// Puts the picture on the clipboard as pixels and as an SVG drawing; a program that takes it
/// chooses.
void CopyPicture(const DrawList& picture, const PictureStyle& style);

}  // namespace kalvex
