// The arrow keys of all modes share one table of directions.
#include "ui/graph/graph_keys.h"

#include "graph/trace.h"

namespace kalvex {
namespace {

constexpr int kLongStep = 10;

/// Direction of an arrow key: columns to the right, rows downward.
std::optional<PixelPoint> ArrowOf(int key) {
    switch (key) {
        case Qt::Key_Left:
            return PixelPoint{-1, 0};
        case Qt::Key_Right:
            return PixelPoint{1, 0};
        case Qt::Key_Up:
            return PixelPoint{0, -1};
        case Qt::Key_Down:
            return PixelPoint{0, 1};
        default:
            return std::nullopt;
    }
}

PictureChange RunArrow(GraphState& state, const FunctionList& functions, const PixelPoint& arrow,
                       int step) {
    if (state.mode == GraphMode::Normal) return PanByTenths(state, arrow.x, -arrow.y);
    if (state.mode != GraphMode::Trace) return MoveCursorBy(state, arrow.x * step, arrow.y * step);
    if (arrow.y != 0) {
        ChangeTraceFunction(state, functions, arrow.y);
    } else {
        MoveTraceTo(state, functions,
                    std::int64_t{state.trace.index} + std::int64_t{arrow.x} * step);
    }
    return PictureChange::Overlay;
}

std::optional<PictureChange> RunEnd(GraphState& state, const FunctionList& functions, bool first) {
    if (state.mode == GraphMode::Trace) {
        MoveTraceTo(state, functions, first ? 0 : INT32_MAX);
        return PictureChange::Overlay;
    }
    if (!first || state.mode != GraphMode::Normal) return std::nullopt;
    const ShowMessage none;  // a fixed window is never refused
    return RunExploreCommand(state, functions, CommandId::QuickInit, none);
}

}  // namespace

bool IsPickKey(const GraphState& state, const GraphKey& key) {
    const bool picking = state.mode == GraphMode::Box || state.mode == GraphMode::Centre;
    const bool picks =
        key.key == Qt::Key_Return || key.key == Qt::Key_Enter || key.key == Qt::Key_Space;
    return picking && picks && !key.repeated;
}

std::optional<PictureChange> RunGraphKey(GraphState& state, const FunctionList& functions,
                                         ZoomGesture& gesture, const GraphKey& key) {
    if (const auto arrow = ArrowOf(key.key)) {
        const bool far = key.modifiers.testFlag(Qt::ControlModifier);
        return RunArrow(state, functions, *arrow, far ? kLongStep : 1);
    }
    const bool zooms =
        key.key == Qt::Key_Plus || key.key == Qt::Key_Equal || key.key == Qt::Key_Minus;
    if (key.repeated && !zooms) return std::nullopt;
    if (!key.repeated) gesture = {};
    switch (key.key) {
        case Qt::Key_Home:
        case Qt::Key_End:
            return RunEnd(state, functions, key.key == Qt::Key_Home);
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            return StepGestureByFactors(state, gesture, ZoomDirection::In);
        case Qt::Key_Minus:
            return StepGestureByFactors(state, gesture, ZoomDirection::Out);
        default:
            return std::nullopt;
    }
}

}  // namespace kalvex
