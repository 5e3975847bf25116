// The modes of the graph: how they begin and end, and what pen, finger and keys do in each. A
// cursor pixel marks the point that will be picked; moving it never redraws the curves.
#pragma once

#include <optional>
#include <string>

#include "base/message_box.h"
#include "graph/graph_state.h"

namespace kalvex {

/// What must be drawn again after an event. A larger value includes the smaller ones.
enum class PictureChange {
    None,
    Overlay,  ///< the cursor and its texts have changed
    Curves    ///< the visible rectangle has changed: compute everything anew
};

/// What a pick has done. A refused one shows a box; box mode lasts until that has been answered.
struct PickResult {
    PictureChange change = PictureChange::None;
    std::optional<MessageBox> refusal;  ///< to be shown, and LeaveRefusedBox called afterwards
};

/// Least distance (pixels along x or y) between press and lift for one drag to pick both corners.
inline constexpr std::int32_t kBoxDragDistance = 20;

/// Pixels of sliding in the upper band that change the trace function by one.
inline constexpr std::int32_t kSlideDistance = 40;

/// Returns to panning; bounds and trace function stay.
void EnterNormalMode(GraphState& state);

/// Lets the user pick a box. Saves the present window as the previous one and puts the cursor in
/// the middle.
void EnterBoxMode(GraphState& state);

/// Lets the user pick the centre of a zoom, with the same preparations.
void EnterCentreMode(GraphState& state, ZoomDirection direction);

/// Starts the trace at the cursor's present sample. Changes nothing and returns false when no
/// function can be traced.
[[nodiscard]] bool EnterTraceMode(GraphState& state, const FunctionList& functions);

/// The window's title in the present mode: "Kalvex", a prompt, or the trace function's text.
[[nodiscard]] std::u16string TitleOf(const GraphState& state, const FunctionList& functions);

/// Rows of the two bands of trace mode: the highest and the lowest sixth of the picture.
[[nodiscard]] std::int32_t UpperBandEnd(const Viewport& viewport);
[[nodiscard]] std::int32_t LowerBandStart(const Viewport& viewport);

/// A pen, a finger or the left button comes down at a pixel, moves, is lifted. In box mode the
/// first corner is where it comes down first; the second one is where the next tap, or the same
/// drag when it is long enough, ends. In centre mode lifting zooms.
[[nodiscard]] PictureChange PressPointer(GraphState& state, const FunctionList& functions,
                                         PixelPoint at);
[[nodiscard]] PictureChange MovePointer(GraphState& state, const FunctionList& functions,
                                        PixelPoint at);
[[nodiscard]] PickResult LiftPointer(GraphState& state, const FunctionList& functions,
                                     PixelPoint at);

/// Forgets a pointer that is down without picking anything: a popup opens, or a second finger comes
/// down.
void DropPointer(GraphState& state);

/// Moves the cursor of a pick mode back into the picture after the picture became smaller.
void KeepCursorOnPicture(GraphState& state);

/// Moves the cursor of a pick mode by pixels, inside the picture.
[[nodiscard]] PictureChange MoveCursorBy(GraphState& state, std::int32_t columns,
                                         std::int32_t rows);

/// Picks the cursor's pixel as a tap there would.
[[nodiscard]] PickResult PickAtCursor(GraphState& state);

/// Ends box mode after the refusal of its second corner.
[[nodiscard]] PictureChange LeaveRefusedBox(GraphState& state);

}  // namespace kalvex
