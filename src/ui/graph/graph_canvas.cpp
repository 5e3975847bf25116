// A redraw is started by a timer of length 0, which runs after all waiting input. Drags and resizes
// that arrive during a slow computation therefore cause one more computation, not many. The first
// computation starts after the first paint: the window shows, white, and the progress bar of a slow
// curve grows on it. At every pulse (Pulse) the waiting events are handled behind a gate
// (InputGate) that holds back all input. So the window is repainted and a key can stop the
// computation, but nothing changes the state that is being drawn, and no second computation starts
// inside the first. A hidden canvas computes nothing until it is shown again.
//
// While a drag moves a picture whose implicit curves take long, they are shown as pixels, without
// their contours, so that the picture follows; the whole one comes when the pointer rests.
#include "ui/graph/graph_canvas.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScopeGuard>
#include <QStyleHints>
#include <algorithm>
#include <new>
#include <utility>

#include "graph/graph.h"
#include "painter/painter.h"
#include "ui/graph/input_gate.h"
#include "ui/graph/overlay_painter.h"
#include "ui/graph/picture_note.h"
#include "ui/parts/qt_text.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

constexpr int kSlow = 300;  // milliseconds until the stop key shows, so that it does not flicker
constexpr int kProgressRows = 4;
constexpr int kFrame = 16;  // milliseconds that a picture may take to follow a drag smoothly
constexpr int kRest = 120;  // milliseconds without a movement after which a pointer rests
constexpr int kGesturePause = 400;  // milliseconds without a turn of the wheel that end a gesture

}  // namespace

GraphCanvas::GraphCanvas(GraphState& shownGraph, Workspace& shown, IsStopKey stopKey, ShowBox show,
                         QWidget* parent)
    : QWidget(parent),
      graph(shownGraph),
      workspace(shown),
      isStopKey(std::move(stopKey)),
      showBox(std::move(show)) {
    setObjectName("canvas");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAccessibleName(TextOf(StringId::GraphPicture));
    note = new PictureNote(this);
    redrawTimer.setSingleShot(true);
    redrawTimer.setInterval(0);
    connect(&redrawTimer, &QTimer::timeout, this, &GraphCanvas::Redraw);
    holdTimer.setSingleShot(true);
    holdTimer.setInterval(QGuiApplication::styleHints()->mousePressAndHoldInterval());
    connect(&holdTimer, &QTimer::timeout, this, &GraphCanvas::Hold);
    rest.setSingleShot(true);
    rest.setInterval(kRest);
    connect(&rest, &QTimer::timeout, this, [this] {
        if (!graph.contours) ScheduleRedraw();
    });
    wheelPause.setSingleShot(true);
    wheelPause.setInterval(kGesturePause);
    connect(&wheelPause, &QTimer::timeout, this, [this] { wheelGesture = {}; });
}

GraphCanvas::~GraphCanvas() = default;

void GraphCanvas::Stop() {
    if (gate) gate->Stop();
}

void GraphCanvas::ScheduleRedraw() {
    if (shownOnce) redrawTimer.start();
}

bool GraphCanvas::BringUpToDate() {
    if (gate || !isVisible()) return false;
    rest.stop();
    bool due = redrawTimer.isActive() || redrawAgain || image.isNull() || !graph.contours;
    // A change of the window's size during the computation ends it and is held back meanwhile. It
    // has to take place before the next one.
    constexpr int kMostTries = 10;
    for (int i = 0; due && isVisible() && i < kMostTries; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::Resize);
        redrawTimer.stop();
        Redraw();
        due = redrawAgain;
    }
    return !redrawAgain;
}

void GraphCanvas::StartAfresh() {
    list = {};
    image = {};
    shownOnce = false;
    redrawTimer.stop();
    rest.stop();
    EndGestures();
    update();
}

void GraphCanvas::Apply(PictureChange change) {
    if (change == PictureChange::Curves && graph.pointer.use == PointerUse::Pan) rest.start();
    if (change == PictureChange::Curves) ScheduleRedraw();
    if (change == PictureChange::Overlay) update();
    ShowMode();
    // When a redraw is due, the description waits for the new picture.
    if (change != PictureChange::Curves && !redrawTimer.isActive()) Describe();
}

void GraphCanvas::ShowNote(const QString& text) {
    note->ShowText(text);
    Describe();
}

void GraphCanvas::ApplyPick(const PickResult& picked) {
    if (!picked.refusal) return Apply(picked.change);
    Tell(showBox, {*picked.refusal}, [this] { Apply(LeaveRefusedBox(graph)); });
}

void GraphCanvas::ShowMode() {
    const bool picks = graph.mode == GraphMode::Box || graph.mode == GraphMode::Centre;
    if (graph.pointer.use == PointerUse::Pan) {
        setCursor(Qt::ClosedHandCursor);
    } else if (picks) {
        setCursor(Qt::CrossCursor);
    } else {
        unsetCursor();
    }
    emit Changed();
}

void GraphCanvas::Redraw() {
    if (gate || !isVisible()) {
        redrawAgain = true;
        return;
    }
    // The timer has run out when the redraw comes from it.
    const bool isMoving = graph.pointer.use == PointerUse::Pan && rest.isActive();
    graph.contours = !(isMoving && contoursAreSlow);
    QElapsedTimer time;
    time.start();
    try {
        Compute();
        image = PaintPicture(list, devicePixelRatioF(), PlayingOf(workspace.options));
        if (image.isNull() && !size().isEmpty()) throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
        GiveUp();
        throw;
    }
    NoteTime(time.elapsed());
    ++redrawCount;
    update();
    ShowMode();
    Describe();
    emit Redrawn();
    if (redrawAgain) redrawTimer.start();
}

void GraphCanvas::NoteTime(qint64 milliseconds) {
    if (!graph.contours) return;
    const auto hasContours = [](const DrawRecord& record) {
        const auto* const curve = std::get_if<PixelRunsRecord>(&record);
        return curve != nullptr && curve->contours;
    };
    contoursAreSlow = milliseconds > kFrame && std::ranges::any_of(list.records, hasContours);
}

/// There is no picture, because there was not enough memory for it.
void GraphCanvas::GiveUp() {
    graph.incomplete = true;
    for (FunctionEntry& entry : workspace.functions)
        entry.samples = {};
    list = {};
    image = {};
    update();
    ShowMode();
    emit Redrawn();  // a command that waits for the end of the computation runs now
}

void GraphCanvas::Compute() {
    redrawAgain = false;
    gate = std::make_unique<InputGate>(isStopKey);
    const auto end = qScopeGuard([this] {
        gate.reset();
        progress.clear();
    });
    LayoutViewport(graph.viewport, width(), height());
    progress.clear();
    sinceStart.start();
    Interruption interruption;
    interruption.goOn = [this] { return Breathe(); };
    const auto quiet = qScopeGuard([this] { pulse.Stop(); });
    pulse.Start(interruption.due);
    list = DrawGraph(
        graph, workspace.functions, workspace.options, PainterTextMeasure(),
        [this](const ProgressStretch& stretch) { return AddProgress(stretch); }, &interruption);
    // A picture that the person has not given up is made again.
    if (graph.incomplete && !gate->IsUnwanted()) redrawAgain = true;
}

bool GraphCanvas::AddProgress(const ProgressStretch& stretch) {
    if (stretch.lastColumn >= stretch.firstColumn) progress.push_back(stretch);
    return !gate->Stopped();
}

/// Handles what has happened since the last time; false when the computation is to stop.
bool GraphCanvas::Breathe() {
    if (sinceStart.elapsed() >= kSlow) emit Slow();
    repaint(0, 0, width(), kProgressRows);
    gate->Poll();
    return !gate->Stopped();
}

void GraphCanvas::Describe() {
    QStringList drawn;
    for (const FunctionEntry& entry : workspace.functions) {
        if (entry.selected != 1) continue;
        drawn += (ToQString(LabelOf(entry.type)) + ToQString(entry.text)).trimmed();
    }
    const ViewWindow& view = graph.viewport.view;
    const QString bounds =
        TextOf(StringId::GraphBounds).arg(view.Xmin).arg(view.Xmax).arg(view.Ymin).arg(view.Ymax);
    QStringList parts;
    if (note->isVisible()) parts += note->accessibleName();
    parts << drawn.join("; ") << bounds;
    for (const std::u16string& text :
         OverlayOf(graph, workspace.functions, workspace.options).texts) {
        parts += ToQString(text);
    }
    if (graph.incomplete) parts += TextOf(StringId::GraphStopped);
    // A screen reader speaks whenever the description is set, so the same text is not set again.
    const QString description = parts.join(". ");
    if (description != accessibleDescription()) setAccessibleDescription(description);
}

void GraphCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool covers = !image.isNull() && image.deviceIndependentSize().toSize() == size();
    if (!covers) painter.fillRect(rect(), Qt::white);
    if (!image.isNull()) painter.drawImage(0, 0, image);
    for (const ProgressStretch& stretch : progress) {
        painter.fillRect(stretch.firstColumn, 0, stretch.lastColumn - stretch.firstColumn + 1,
                         kProgressRows, ToQColor(stretch.color));
    }
    if (graph.mode != GraphMode::Normal) {
        PaintOverlay(painter, OverlayOf(graph, workspace.functions, workspace.options), size(),
                     TextHeightOf(workspace.options));
    }
    const bool otherScreen = !image.isNull() && image.devicePixelRatio() != devicePixelRatioF();
    if (shownOnce && !otherScreen) return;
    shownOnce = true;
    redrawTimer.start();
}

void GraphCanvas::resizeEvent(QResizeEvent*) {
    LayoutViewport(graph.viewport, width(), height());
    KeepCursorOnPicture(graph);
    ScheduleRedraw();
}

void GraphCanvas::showEvent(QShowEvent*) {
    if (redrawAgain) ScheduleRedraw();
}

}  // namespace kalvex
