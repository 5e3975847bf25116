// Corners and centres are kept as world points, so a zoom between two taps does not move them. What
// a pointer does is decided when it comes down and stays so until it is lifted. A change of the
// mode in between makes the pointer do nothing more.
#include "graph/pick.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "graph/legend.h"
#include "graph/trace.h"
#include "graph/zoom.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

constexpr std::size_t kLongestTitle = 200;
constexpr std::int32_t kBandShare = 6;

PixelPoint OnPicture(const Viewport& viewport, const PixelPoint& at) {
    return {std::clamp(at.x, 0, std::max(viewport.ClientWidth - 1, 0)),
            std::clamp(at.y, 0, std::max(viewport.ClientHeight - 1, 0))};
}

bool IsPicking(const GraphState& state) {
    return state.mode == GraphMode::Box || state.mode == GraphMode::Centre;
}

WorldPoint CursorPoint(const GraphState& state) {
    return ScreenToWorld(state.viewport, state.trace.pixel.x, state.trace.pixel.y);
}

void EnterPickMode(GraphState& state, GraphMode mode) {
    SaveAsPrevious(state.viewport);
    EnterNormalMode(state);
    state.mode = mode;
    state.trace.pixel = MiddleOf(state.viewport);
}

PointerUse UseInTrace(const Viewport& viewport, std::int32_t row) {
    if (row >= LowerBandStart(viewport)) return PointerUse::Coordinates;
    if (row < UpperBandEnd(viewport)) return PointerUse::Slide;
    return PointerUse::None;
}

PointerUse UseOf(const GraphState& state, const PixelPoint& at) {
    switch (state.mode) {
        case GraphMode::Trace:
            return UseInTrace(state.viewport, at.y);
        case GraphMode::Box:
        case GraphMode::Centre:
            return PointerUse::Pick;
        default:
            return PointerUse::Pan;
    }
}

PictureChange Pan(GraphState& state, const PixelPoint& at) {
    Pointer& pointer = state.pointer;
    if (at == pointer.last) return PictureChange::None;
    // Computed in 64 bits, since pixels may be any 32-bit numbers. The bound only leaves out what
    // cannot be seen.
    const auto difference = [](std::int32_t to, std::int32_t from) {
        constexpr std::int64_t kFarthest = 1'000'000;
        const std::int64_t distance = std::int64_t{to} - from;
        return static_cast<std::int32_t>(std::clamp(distance, -kFarthest, kFarthest));
    };
    PanBy(state.viewport, difference(at.x, pointer.last.x), difference(at.y, pointer.last.y));
    pointer.last = at;
    LayoutViewport(state.viewport);
    return PictureChange::Curves;
}

PictureChange Slide(GraphState& state, const FunctionList& functions, const PixelPoint& at) {
    // A pointer is on a screen. Larger coordinates cannot come from a user.
    constexpr std::int64_t kFarthest = std::int64_t{100} * kSlideDistance;
    const std::int64_t distance = std::int64_t{at.x} - state.pointer.last.x;
    const std::int64_t steps = std::clamp(distance, -kFarthest, kFarthest) / kSlideDistance;
    if (steps == 0) return PictureChange::None;
    for (std::int64_t i = 0; i < std::abs(steps); ++i)
        ChangeTraceFunction(state, functions, steps > 0 ? 1 : -1);
    state.pointer.last.x += static_cast<std::int32_t>(steps * kSlideDistance);
    return PictureChange::Overlay;
}

/// The second corner at the cursor: the end of box mode, whether the box is one or not. While the
/// box of a refusal is open, the window still has the title and the keys of box mode.
PictureChange FinishBox(GraphState& state, const ShowMessage& show) {
    const WorldPoint second = CursorPoint(state);
    if (!ZoomToBox(state.viewport, *state.firstCorner, second)) {
        show(ErrorBox(Text(StringId::SamePoints)));
    }
    EnterNormalMode(state);
    LayoutViewport(state.viewport);
    return PictureChange::Curves;
}

PictureChange FinishCentre(GraphState& state) {
    ZoomAbout(state.viewport, CursorPoint(state), state.direction);
    LayoutViewport(state.viewport);
    EnterNormalMode(state);
    return PictureChange::Curves;
}

bool IsLongDrag(const Pointer& pointer, const PixelPoint& at) {
    return std::abs(std::int64_t{at.x} - pointer.pressed.x) >= kBoxDragDistance ||
           std::abs(std::int64_t{at.y} - pointer.pressed.y) >= kBoxDragDistance;
}

}  // namespace

void EnterNormalMode(GraphState& state) {
    state.mode = GraphMode::Normal;
    state.firstCorner.reset();
    DropPointer(state);
}

void EnterBoxMode(GraphState& state) {
    EnterPickMode(state, GraphMode::Box);
}

void EnterCentreMode(GraphState& state, ZoomDirection direction) {
    EnterPickMode(state, GraphMode::Centre);
    state.direction = direction;
}

bool EnterTraceMode(GraphState& state, const FunctionList& functions) {
    if (TracedFunction(state, functions) == nullptr) return false;
    EnterNormalMode(state);
    state.mode = GraphMode::Trace;
    RefreshTraceCursor(state, functions);
    return true;
}

std::u16string TitleOf(const GraphState& state, const FunctionList& functions) {
    switch (state.mode) {
        case GraphMode::Trace:
            if (const FunctionEntry* const entry = TracedFunction(state, functions))
                return DisplayText(*entry, kLongestTitle);
            break;
        case GraphMode::Box:
            return std::u16string(
                Text(state.firstCorner ? StringId::ChooseSecondPoint : StringId::ChooseFirstPoint));
        case GraphMode::Centre:
            return std::u16string(Text(StringId::ChooseMiddlePoint));
        default:
            break;
    }
    return std::u16string(Text(StringId::Title));
}

std::int32_t UpperBandEnd(const Viewport& viewport) {
    return std::max(viewport.ClientHeight, 0) / kBandShare;
}

std::int32_t LowerBandStart(const Viewport& viewport) {
    return viewport.ClientHeight - UpperBandEnd(viewport);
}

PictureChange PressPointer(GraphState& state, const FunctionList& functions, PixelPoint at) {
    state.pointer = {UseOf(state, at), at, at};
    if (state.pointer.use == PointerUse::Coordinates) {
        MoveTraceTo(state, functions, at.x);
        return PictureChange::Overlay;
    }
    if (state.pointer.use != PointerUse::Pick) return PictureChange::None;
    state.trace.pixel = OnPicture(state.viewport, at);
    const bool first = state.mode == GraphMode::Box && !state.firstCorner;
    if (first) state.firstCorner = CursorPoint(state);
    // Only the tap that sets the first corner may go on as a drag to the second one.
    state.pointer.use = first ? PointerUse::Box : PointerUse::Pick;
    return PictureChange::Overlay;
}

PictureChange MovePointer(GraphState& state, const FunctionList& functions, PixelPoint at) {
    switch (state.pointer.use) {
        case PointerUse::Pan:
            return Pan(state, at);
        case PointerUse::Coordinates:
            MoveTraceTo(state, functions, at.x);
            return PictureChange::Overlay;
        case PointerUse::Slide:
            return Slide(state, functions, at);
        case PointerUse::Box:
        case PointerUse::Pick:
            state.trace.pixel = OnPicture(state.viewport, at);
            return PictureChange::Overlay;
        default:
            return PictureChange::None;
    }
}

PictureChange LiftPointer(GraphState& state, const FunctionList& functions, PixelPoint at,
                          const ShowMessage& show) {
    const PictureChange moved = MovePointer(state, functions, at);
    const Pointer pointer = state.pointer;
    state.pointer = {};
    if (pointer.use == PointerUse::Box && !IsLongDrag(pointer, at)) return PictureChange::Overlay;
    if (pointer.use == PointerUse::Pick || pointer.use == PointerUse::Box)
        return PickAtCursor(state, show);
    return moved;
}

void DropPointer(GraphState& state) {
    if (state.pointer.use == PointerUse::Box) state.firstCorner.reset();
    state.pointer = {};
}

void KeepCursorOnPicture(GraphState& state) {
    if (IsPicking(state)) state.trace.pixel = OnPicture(state.viewport, state.trace.pixel);
}

PictureChange MoveCursorBy(GraphState& state, std::int32_t columns, std::int32_t rows) {
    if (!IsPicking(state)) return PictureChange::None;
    PixelPoint& pixel = state.trace.pixel;
    pixel = OnPicture(state.viewport, {pixel.x + columns, pixel.y + rows});
    return PictureChange::Overlay;
}

PictureChange PickAtCursor(GraphState& state, const ShowMessage& show) {
    if (state.mode == GraphMode::Centre) return FinishCentre(state);
    if (state.mode != GraphMode::Box) return PictureChange::None;
    if (state.firstCorner) return FinishBox(state, show);
    state.firstCorner = CursorPoint(state);
    return PictureChange::Overlay;
}

}  // namespace kalvex
