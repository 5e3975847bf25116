// A timer of no length runs after all waiting input, so drags and resizes that arrive while a slow
// picture is being computed end in one more computation, not in many. The first computation waits
// for the first paint: the window stands, white, and the progress bar of an implicit curve is seen
// growing on it. Between two steps of the bar waiting events are handled behind a gate that holds
// all input back, so the window repaints and a key can stop the computation, but nothing changes
// what is being drawn and no second computation starts inside the first.
#include "ui/graph_canvas.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "painter/painter.h"
#include "ui/input_gate.h"
#include "ui/qt_text.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

constexpr int kProgressInterval = 15;  // milliseconds: about a frame of the screen
constexpr int kProgressRows = 4;

}  // namespace

GraphCanvas::GraphCanvas(GraphState& shownGraph, Workspace& shown, QWidget* parent)
    : QWidget(parent), graph(shownGraph), workspace(shown) {
    setObjectName("canvas");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName("Graph");
    redrawTimer.setSingleShot(true);
    redrawTimer.setInterval(0);
    connect(&redrawTimer, &QTimer::timeout, this, &GraphCanvas::Redraw);
}

GraphCanvas::~GraphCanvas() = default;

void GraphCanvas::Stop() {
    if (gate) gate->Stop();
}

void GraphCanvas::ScheduleRedraw() {
    if (shownOnce) redrawTimer.start();
}

void GraphCanvas::Redraw() {
    if (gate) {
        redrawAgain = true;
        return;
    }
    gate = std::make_unique<InputGate>();
    LayoutViewport(graph.viewport, width(), height());
    progress.clear();
    sinceProgress.start();
    list = DrawGraph(graph, workspace.functions, workspace.options, PainterTextMeasure(),
                     [this](const ProgressStretch& stretch) { return ShowProgress(stretch); });
    const bool stopped = gate->Stopped();
    gate.reset();
    progress.clear();
    image = PaintPicture(list, devicePixelRatioF());
    ++redrawCount;
    Describe(stopped);
    update();
    if (std::exchange(redrawAgain, false)) redrawTimer.start();
}

bool GraphCanvas::ShowProgress(const ProgressStretch& stretch) {
    progress.push_back(stretch);
    if (sinceProgress.elapsed() >= kProgressInterval) {
        repaint(0, 0, width(), kProgressRows);
        gate->Poll();
        sinceProgress.start();
    }
    return !gate->Stopped();
}

void GraphCanvas::Describe(bool stopped) {
    QStringList drawn;
    for (const FunctionEntry& entry : workspace.functions) {
        if (entry.selected != 1) continue;
        drawn += (ToQString(LabelOf(entry.type)) + ToQString(entry.text)).trimmed();
    }
    const ViewWindow& view = graph.viewport.view;
    const QString bounds = QString("x %1 to %2, y %3 to %4")
                               .arg(view.Xmin)
                               .arg(view.Xmax)
                               .arg(view.Ymin)
                               .arg(view.Ymax);
    setAccessibleDescription(drawn.join("; ") + ". " + bounds + (stopped ? ". Stopped" : ""));
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
    const bool otherScreen = !image.isNull() && image.devicePixelRatio() != devicePixelRatioF();
    if (shownOnce && !otherScreen) return;
    shownOnce = true;
    redrawTimer.start();
}

void GraphCanvas::resizeEvent(QResizeEvent*) {
    LayoutViewport(graph.viewport, width(), height());
    ScheduleRedraw();
}

void GraphCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    dragging = true;
    last = event->position().toPoint();
    setCursor(Qt::ClosedHandCursor);
}

void GraphCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging || !(event->buttons() & Qt::LeftButton)) return;
    const QPoint now = event->position().toPoint();
    if (now == last) return;
    PanBy(graph.viewport, now.x() - last.x(), now.y() - last.y());
    last = now;
    ScheduleRedraw();
}

void GraphCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    dragging = false;
    unsetCursor();
}

}  // namespace kalvex
