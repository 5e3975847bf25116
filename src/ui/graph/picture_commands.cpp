// All of them take the picture that the canvas has at the moment. Only a page that is to be filled
// is drawn anew, on copies, so that trace and analysis keep their samples.
#include "ui/graph/picture_commands.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <utility>

#include "base/interruption.h"
#include "graph/graph.h"
#include "painter/painter.h"
#include "resources/strings.h"
#include "ui/graph/graph_canvas.h"
#include "ui/graph/graph_window.h"
#include "ui/graph/picture_export.h"
#include "ui/graph/picture_size_dialog.h"
#include "ui/graph/pulse.h"
#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

GraphCanvas& CanvasOf(const PictureSource& source) {
    return source.window.Canvas();
}

PixelSize SizeSeen(const PictureSource& source) {
    const DrawList& picture = CanvasOf(source).Picture();
    return {qMax(picture.width, 1), qMax(picture.height, 1)};
}

/// Tells in the picture where a file is now.
void TellWhere(const PictureSource& source, const QString& path) {
    const QFileInfo file(path);
    CanvasOf(source).ShowNote(
        TextOf(StringId::PictureSavedNote,
               {FromQString(file.fileName()), FromQString(file.absolutePath())}));
}

void SaveShownPicture(const PictureSource& source, const QString& path, double ratio) {
    const PictureStyle style{PlayingOf(source.workspace.options), ratio};
    if (SavePicture(CanvasOf(source).Picture(), style, path, source.show)) TellWhere(source, path);
}

/// A PNG picture can have any size; an SVG drawing and a PDF page have none in pixels, and a bitmap
/// is always as it is seen.
void TakePath(const PictureSource& source, const QString& path) {
    source.lastFolder = QFileInfo(path).absolutePath();
    const PictureFormat* const format = PictureFormatOf(path.toStdString(), FormatsOf::Windows);
    if (format == nullptr || format->playing) return SaveShownPicture(source, path, 1.0);
    const PixelSize seen = SizeSeen(source);
    OpenPictureSizeDialog(&source.window, seen, source.choices.size, source.show,
                          [source, path, seen] {
                              SaveShownPicture(source, path, RatioOf(source.choices.size, seen));
                          });
}

/// Draws what is shown at another size; an empty list when that takes too long.
DrawList DrawAgain(const PictureSource& source, const QSize& size) {
    constexpr int kMost = 1500;  // milliseconds
    GraphState graph = source.graph;
    FunctionList functions = source.workspace.functions;
    LayoutViewport(graph.viewport, size.width(), size.height());
    graph.mode = GraphMode::Normal;
    graph.contours = true;
    QElapsedTimer sinceStart;
    sinceStart.start();
    Interruption interruption;
    interruption.goOn = [&sinceStart] { return sinceStart.elapsed() < kMost; };
    Pulse pulse;
    pulse.Start(interruption.due);
    DrawList list = DrawGraph(graph, functions, source.workspace.options, PainterTextMeasure(), {},
                              &interruption);
    pulse.Stop();
    return graph.incomplete ? DrawList{} : std::move(list);
}

}  // namespace

void ExportShownPicture(const PictureSource& source) {
    ExportPicture(CanvasOf(source).Picture(), source.workspace.options, source.registry,
                  source.pictureFolder, source.show,
                  [source](const QString& path) { TellWhere(source, path); });
}

void AskForPicture(const PictureSource& source) {
    const QString last = source.lastFolder;
    const QString folder = last.isEmpty() ? source.pictureFolder : last;
    OpenSavePictureDialog(&source.window, folder,
                          [source](const QString& path) { TakePath(source, path); });
}

void CopyShownPicture(const PictureSource& source) {
    const GraphCanvas& canvas = CanvasOf(source);
    CopyPicture(canvas.Picture(),
                {PlayingOf(source.workspace.options), canvas.devicePixelRatioF()});
}

void PrintShownGraph(const PictureSource& source) {
    // A drag may have left a quick picture, or a key one that is due.
    static_cast<void>(CanvasOf(source).BringUpToDate());
    const DrawList& seen = CanvasOf(source).Picture();
    // What was stopped before its end is printed as it is seen.
    const bool isWhole = !source.graph.incomplete;
    const auto drawAt = [source, isWhole](const QSize& size) {
        return isWhole ? DrawAgain(source, size) : DrawList{};
    };
    OpenPrintPreview(
        &source.window, {seen, drawAt, source.choices.print},
        {source.show, [source](const PrintChoices& choices) { source.choices.print = choices; },
         [source](const QString& path) { TellWhere(source, path); }});
}

}  // namespace kalvex
