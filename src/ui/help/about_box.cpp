// The box is one centred column, as large as its texts need.
#include "ui/help/about_box.h"

#include <QLabel>
#include <QVBoxLayout>

#include "resources/strings.h"
#include "ui/parts/bottom_bar.h"
#include "ui/parts/front_dialog.h"
#include "ui/parts/qt_text.h"
#include "ui/program_icon.h"

namespace kalvex {
namespace {

constexpr int kLeastWidth = 320;
constexpr int kMargin = 20;
constexpr int kGap = 12;
constexpr int kPictureSize = 96;
constexpr double kNameScale = 1.8;

QLabel* AddText(QVBoxLayout& column, const QString& text) {
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignHCenter);
    label->setWordWrap(true);
    column.addWidget(label);
    return label;
}

void AddTexts(QVBoxLayout& column, double density) {
    QLabel* const picture = AddText(column, {});
    picture->setObjectName("picture");
    picture->setPixmap(ProgramIcon().pixmap(QSize(kPictureSize, kPictureSize), density));
    picture->setFixedHeight(kPictureSize);
    picture->setAccessibleName(TextOf(StringId::AboutPicture));
    QLabel* const name = AddText(column, TextOf(StringId::Title));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * kNameScale);
    large.setWeight(QFont::DemiBold);
    name->setFont(large);
    for (const StringId text :
         {StringId::AboutVersion, StringId::AboutInvitation, StringId::AboutLicence})
        AddText(column, TextOf(text));
}

BottomBar* NewKey(QDialog* box) {
    auto* const bar = new BottomBar(TextOf(StringId::AboutOk), {}, box);
    bar->menuButton()->setObjectName("okKey");
    bar->menuButton()->setFocusPolicy(Qt::StrongFocus);
    bar->menuButton()->setDefault(true);
    bar->ShowOneKey();
    QObject::connect(bar->menuButton(), &QPushButton::clicked, box, &QDialog::accept);
    return bar;
}

}  // namespace

void OpenAboutBox(QWidget* parent) {
    auto* const box = new FrontDialog(parent);
    box->setObjectName("aboutBox");
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(TextOf(StringId::Title));
    box->setMinimumWidth(kLeastWidth);
    auto* const whole = new QVBoxLayout(box);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    auto* const column = new QVBoxLayout;
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kGap);
    whole->addLayout(column);
    AddTexts(*column, parent->devicePixelRatioF());
    whole->addWidget(NewKey(box));
    // By default Qt makes a dialog at most two thirds as high as the screen, too low on a small
    // one.
    const int width = qMax(kLeastWidth, whole->totalMinimumSize().width());
    box->resize(width, whole->totalHeightForWidth(width));
    box->open();
}

}  // namespace kalvex
