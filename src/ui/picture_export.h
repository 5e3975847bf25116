// The `Picture` command.
#pragma once

#include <QString>

#include "base/message_box.h"
#include "graph/draw_list.h"
#include "workspace/options.h"
#include "workspace/registry.h"

namespace kalvex {

/// The user's pictures folder.
QString DefaultPictureFolder();

/// Writes the picture as Kalvex_%d.bmp with the counter `Screen` into a folder (made when it is
/// missing), at one pixel per logical pixel, and stores the counter's successor. "Save" follows in
/// any case.
void ExportPicture(const DrawList& picture, Options& options, const Registry& registry,
                   const QString& folder, const ShowMessage& show);

}  // namespace kalvex
