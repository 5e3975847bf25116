// The fields keep their natural width. The keys look like the soft keys of the windows, but Tab
// reaches them, because in a dialog no line has to keep the focus.
#include "ui/parts/form_dialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "resources/message_boxes.h"
#include "ui/parts/bottom_bar.h"
#include "ui/parts/touch.h"

namespace kalvex {
namespace {

constexpr int kLeastDialogWidth = 320;  // where the screen has that much room
constexpr int kMargin = 16;
constexpr int kNarrowMargin = 8;
constexpr int kGap = 10;
constexpr int kTitleHeight = 36;  // for the title that a window manager may add
constexpr int kFrameWidth = 4;    // for the frame at the sides

}  // namespace

FormDialog::FormDialog(const QString& title, QWidget* parent, const QString& saveWord)
    : FrontDialog(parent) {
    setWindowTitle(title);
    setModal(true);
    const int room = screen()->availableGeometry().width();
    const int margin = room < kLeastDialogWidth ? kNarrowMargin : kMargin;
    setMinimumWidth(qMin(kLeastDialogWidth, room));
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    page = new QWidget(this);
    column = new QVBoxLayout(page);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(kGap);
    form = new QFormLayout;
    form->setSpacing(kGap);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    column->addLayout(form);
    whole->addWidget(page);
    AddKeys(saveWord);
}

void FormDialog::AddKeys(const QString& saveWord) {
    auto* const bar = new BottomBar(saveWord, TextOf(StringId::CancelKey), this);
    saveKey = bar->menuButton();
    cancelKey = bar->actionButton();
    saveKey->setObjectName("saveKey");
    cancelKey->setObjectName("cancelKey");
    saveKey->setDefault(true);
    cancelKey->setAutoDefault(true);  // Enter presses it while it has the focus
    for (QPushButton* const key : {saveKey, cancelKey})
        key->setFocusPolicy(Qt::StrongFocus);
    connect(saveKey, &QPushButton::clicked, this, [this] {
        if (MayRun(*this) && (!save || save())) accept();
    });
    connect(cancelKey, &QPushButton::clicked, this, &QDialog::reject);
    layout()->addWidget(bar);
}

void FormDialog::AddPair(QLabel* caption, QWidget* field) {
    caption->setMinimumHeight(kTouchTarget);
    field->setMinimumHeight(kTouchTarget);
    form->addRow(caption, field);
}

void FormDialog::AddWide(QWidget* field) {
    form->addRow(field);
}

void FormDialog::AddRow(const QString& label, QWidget* field, const QString& tip) {
    auto* const caption = new QLabel(label, this);
    caption->setBuddy(field);
    caption->setToolTip(tip);
    field->setToolTip(tip);
    field->setAccessibleName(QString(label).remove(':'));
    field->setAccessibleDescription(tip);
    AddPair(caption, field);
}

QLineEdit* FormDialog::AddText(const QString& label, const QString& text, const QString& tip) {
    auto* const field = new QLineEdit(text, this);
    field->setCursorPosition(0);
    AddRow(label, field, tip);
    return field;
}

QComboBox* FormDialog::AddChoice(const QString& label, const QStringList& entries, int index,
                                 const QString& tip) {
    auto* const field = new QComboBox(this);
    field->addItems(entries);
    field->setCurrentIndex(index);
    AddRow(label, field, tip);
    return field;
}

void FormDialog::AddNote(const QString& text) {
    auto* const note = new QLabel(text, this);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    column->insertWidget(column->indexOf(form), note);
}

QLabel* FormDialog::AddMeaning() {
    auto* const meaning = new QLabel(this);
    meaning->setTextFormat(Qt::PlainText);
    meaning->setWordWrap(true);
    form->addRow(meaning);
    return meaning;
}

// The width is computed first and the height follows from it, because texts may have several rows
// and fonts any size. Qt's own first size of a dialog is at most two thirds of the screen, which
// would cut a larger form.
int FormDialog::NaturalWidth(int room) const {
    const int wanted = qMax(sizeHint().width(), layout()->totalMinimumSize().width());
    return qMin(qMax(wanted, minimumWidth()), room);
}

void FormDialog::FitInto(const QSize& room) {
    const int wide = NaturalWidth(room.width());
    const int needed = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(wide)
                                                     : layout()->totalSizeHint().height();
    resize(wide, qMin(needed, room.height()));
    setMinimumWidth(qMin(layout()->totalMinimumSize().width(), room.width()));
    if (needed <= room.height()) return;
    QWidget* const focused = focusWidget();  // moving it into the area takes the focus from it
    auto* const area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setMinimumWidth(page->minimumSizeHint().width() +
                          area->verticalScrollBar()->sizeHint().width());
    delete layout()->replaceWidget(page, area);
    area->setWidget(page);
    resize(NaturalWidth(room.width()), room.height());
    if (focused == nullptr) return;
    focused->setFocus(Qt::OtherFocusReason);
    // The place of the field is known only after the area has been laid out.
    QTimer::singleShot(0, area, [area, focused] { area->ensureWidgetVisible(focused, 0, 0); });
}

void FormDialog::FitToScreen() {
    if (std::exchange(fitted, true)) return;
    FitInto(screen()->availableGeometry().size() - QSize(kFrameWidth, kTitleHeight));
}

void FormDialog::OpenOverParent() {
    FitToScreen();
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_KeyboardFocusChange);  // the focus shows from the start
    // A window manager does this, but there may be none.
    connect(this, &QDialog::finished, parentWidget(), &QWidget::activateWindow);
    open();
}

void PointAt(QLineEdit& field) {
    field.setFocus(Qt::OtherFocusReason);
    field.selectAll();
}

Flow RefuseText(ShowBox show, std::u16string reason, QLineEdit* field,
                std::function<void()> after) {
    const MessageBox box = ErrorBox(reason);
    co_await show(box);
    PointAt(*field);
    if (after) after();
}

}  // namespace kalvex
