// Reports and point tables as files.
#pragma once

#include <QString>
#include <functional>
#include <string_view>

#include "base/message_box.h"

class QWidget;

namespace kalvex {

/// Asks where a result goes, starting in `folder` (empty: the documents) with the name "result.kx",
/// and hands the path to `chosen`; nothing when it is cancelled. Returns at once.
void OpenSaveResultDialog(QWidget* parent, const QString& folder,
                          std::function<void(const QString& path)> chosen);

/// Writes the bytes into a file. When that fails "file error" is shown and an old file survives;
/// "Saved!" follows in any case. Says whether the file is there.
[[nodiscard]] bool SaveResult(const QString& path, std::string_view bytes, const ShowMessage& show);

}  // namespace kalvex
