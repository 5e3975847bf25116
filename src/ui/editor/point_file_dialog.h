// The "Open File" dialog of a File line.
#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace kalvex {

/// Asks for a point file, starting in `folder` (empty: where the platform starts), and hands its
/// full path to `chosen`; nothing when it is cancelled. The folder of the samples stands among the
/// places at the side. Returns at once.
void OpenPointFileDialog(QWidget* parent, const QString& folder,
                         std::function<void(const QString& path)> chosen);

}  // namespace kalvex
