// The graph on paper: the preview of the page, the print dialog, the printing.
#pragma once

#include <QPrinter>
#include <QSize>
#include <QString>
#include <functional>

#include "base/flow.h"
#include "graph/draw_list.h"

class QWidget;

namespace kalvex {

/// What is chosen in the preview.
struct PrintChoices {
    bool fillsPage = false;  ///< else the picture keeps its proportions
};

struct PrintJob {
    DrawList seen;
    /// Draws the same bounds at another size in logical pixels, for a page that is to be filled. An
    /// empty list when that takes too long; the picture that is seen is stretched then.
    std::function<DrawList(const QSize& size)> drawAt;
    PrintChoices choices;
};

/// Where the printing reports what has happened.
struct PrintActions {
    ShowBox show;  ///< gets the box about a failure
    std::function<void(const PrintChoices& choices)> chosen;
    std::function<void(const QString& path)> saved;  ///< printed into a file
};

/// Paints the job on the page of a printer. False when that fails.
[[nodiscard]] bool PaintJob(const PrintJob& job, QPrinter& printer);

/// Prints the job, as the printer is set: on paper, or into a file that is written as a whole or
/// not at all. False when that fails.
[[nodiscard]] bool PrintPage(const PrintJob& job, QPrinter& printer);

/// Opens the preview and returns at once. Its key "Print..." leads to the print dialog of the
/// platform. A page is landscape at first when the picture is wider than high.
void OpenPrintPreview(QWidget* parent, PrintJob job, const PrintActions& actions);

}  // namespace kalvex
