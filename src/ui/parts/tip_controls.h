// The two kinds of controls that carry a tip in their text ("caption~~tip"). Each has the name of
// its kind as the property "controlClass".
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <string_view>

namespace kalvex {

class TipWatch;

/// Kind "TTSTATIC": a caption in front of a field. It breaks into lines where it has no room.
class TipCaption final : public QLabel {
  public:
    TipCaption(std::u16string_view text, QWidget* parent);

    /// Makes it the caption of a field, which gets its name, its tip as a description, and shows
    /// the tip like the caption itself.
    void SetField(QWidget* field);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  private:
    TipWatch* watch;
};

/// Kind "TTBUTTON": a check box.
class TipCheckBox final : public QCheckBox {
  public:
    TipCheckBox(std::u16string_view text, QWidget* parent);
};

}  // namespace kalvex
