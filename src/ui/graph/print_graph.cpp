// The printer belongs to the preview and then to the print dialog; both keep it until they are
// deleted. The preview has no print dialog in front of it: it closes first.
#include "ui/graph/print_graph.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinterInfo>
#include <QScreen>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <memory>
#include <utility>

#include "base/complete_file.h"
#include "painter/page.h"
#include "painter/painter.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "ui/parts/asking_dialog.h"
#include "ui/parts/bottom_bar.h"
#include "ui/parts/file_dialogs.h"
#include "ui/parts/file_name.h"
#include "ui/parts/front_dialog.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/tip_controls.h"
#include "ui/parts/touch.h"

namespace kalvex {
namespace {

constexpr double kMargin = 15.0;         // millimetres
constexpr QSize kPreviewSize(640, 720);  // logical pixels, where the screen has that much room
constexpr QSize kFrame(8, 40);           // what a window manager may add
constexpr int kGap = 10;

struct Page {
    QPrinter printer{QPrinter::HighResolution};
    PrintJob job;
    PrintActions actions;
};
using SharedPage = std::shared_ptr<Page>;

/// The printer with the program's margins. Where there is none, it is a PDF file in the user's
/// documents.
void SetUp(QPrinter& printer, const DrawList& picture) {
    printer.setDocName(TextOf(StringId::Title));
    printer.setCreator(TextOf(StringId::Title));
    printer.setPageOrientation(picture.width > picture.height ? QPageLayout::Landscape
                                                              : QPageLayout::Portrait);
    printer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        printer.setOutputFileName(QDir(StartFolder({})).filePath("Kalvex.pdf"));
}

bool PrintsIntoFile(const QPrinter& printer) {
    return printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty();
}

/// Whether a PDF file has everything up to its last line.
bool IsWhole(const QByteArray& pdf) {
    return pdf.startsWith("%PDF") && pdf.trimmed().endsWith("%%EOF");
}

void Print(Page& page) {
    const bool intoFile = PrintsIntoFile(page.printer);
    const QString path = page.printer.outputFileName();
    if (PrintPage(page.job, page.printer)) {
        if (intoFile) page.actions.saved(path);
        return;
    }
    const std::u16string text = intoFile
                                    ? FillIn(Text(StringId::PictureNotWritten), {FromQString(path)})
                                    : std::u16string(Text(StringId::PictureNotPrinted));
    Tell(page.actions.show, {ErrorBox(text)});
}

/// Keeps the page until the widget is gone, with everything that its own destructor does.
void Keep(const QWidget& widget, const SharedPage& page) {
    QObject::connect(&widget, &QObject::destroyed, [page] {});
}

void OpenPrintDialog(QWidget* parent, const SharedPage& page) {
    auto* const dialog = new AskingDialog<QPrintDialog>(&page->printer, parent);
    dialog->setObjectName("printDialog");
    dialog->setWindowTitle(TextOf(StringId::PrintTitle));
    // There is one page, and no part of it is selected.
    dialog->setOptions(QAbstractPrintDialog::PrintToFile |
                       QAbstractPrintDialog::PrintCollateCopies |
                       QAbstractPrintDialog::PrintShowPageSize);
    Keep(*dialog, page);
    QObject::connect(
        dialog, &QDialog::finished, parent,
        [page](int result) {
            if (result == QDialog::Accepted) Print(*page);
        },
        Qt::SingleShotConnection);
    dialog->open();
}

QCheckBox* AddBox(QHBoxLayout& row, StringId text, bool checked) {
    auto* const box = new TipCheckBox(Text(text), nullptr);
    box->setChecked(checked);
    box->setMinimumHeight(kTouchTarget);
    row.addWidget(box);
    return box;
}

/// The boxes below the page. A change is shown at once.
QLayout* NewChoices(const SharedPage& page, QPrintPreviewWidget& preview) {
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(kGap, 0, kGap, 0);
    QCheckBox* const fills = AddBox(*row, StringId::PrintFillsPage, page->job.choices.fillsPage);
    fills->setObjectName("fillsPage");
    const bool isLandscape = page->printer.pageLayout().orientation() == QPageLayout::Landscape;
    QCheckBox* const landscape = AddBox(*row, StringId::PrintLandscape, isLandscape);
    landscape->setObjectName("landscape");
    QObject::connect(fills, &QCheckBox::toggled, &preview, [page, &preview](bool checked) {
        page->job.choices.fillsPage = checked;
        preview.updatePreview();
    });
    QObject::connect(landscape, &QCheckBox::toggled, &preview, [&preview](bool checked) {
        preview.setOrientation(checked ? QPageLayout::Landscape : QPageLayout::Portrait);
    });
    return row;
}

QPrintPreviewWidget* NewPreview(const SharedPage& page, QWidget* parent) {
    auto* const preview = new QPrintPreviewWidget(&page->printer, parent);
    preview->setObjectName("printedPage");
    preview->setAccessibleName(TextOf(StringId::PrintPage));
    preview->setViewMode(QPrintPreviewWidget::SinglePageView);
    preview->fitInView();
    // The whole page is in view, so that there is nothing to do in it with the keyboard.
    if (auto* const view = preview->findChild<QGraphicsView*>()) view->setFocusPolicy(Qt::NoFocus);
    Keep(*preview, page);
    QObject::connect(preview, &QPrintPreviewWidget::paintRequested, preview,
                     [page](QPrinter* printer) {
                         // A failure shows as an empty page here; printing tells it.
                         static_cast<void>(PaintJob(page->job, *printer));
                     });
    return preview;
}

BottomBar* NewKeys(FrontDialog& dialog) {
    auto* const keys =
        new BottomBar(TextOf(StringId::PrintKey), TextOf(StringId::CancelKey), &dialog);
    keys->menuButton()->setObjectName("printKey");
    keys->actionButton()->setObjectName("cancelKey");
    keys->menuButton()->setDefault(true);
    for (QPushButton* const key : {keys->menuButton(), keys->actionButton()}) {
        key->setAutoDefault(true);
        key->setFocusPolicy(Qt::StrongFocus);
    }
    QObject::connect(keys->menuButton(), &QPushButton::clicked, &dialog, &QDialog::accept);
    QObject::connect(keys->actionButton(), &QPushButton::clicked, &dialog, &QDialog::reject);
    return keys;
}

}  // namespace

bool PaintJob(const PrintJob& job, QPrinter& printer) {
    if (!job.choices.fillsPage) return PaintPage(printer, job.seen, PageFit::Inside);
    const QSizeF room(printer.width(), printer.height());
    if (room.isEmpty()) return false;
    const DrawList drawn = job.drawAt(SizeForPage(QSize(job.seen.width, job.seen.height), room));
    return PaintPage(printer, drawn.width > 0 ? drawn : job.seen, PageFit::Stretched);
}

bool PrintPage(const PrintJob& job, QPrinter& printer) {
    if (!HasFontsOf(job.seen)) return false;
    if (!PrintsIntoFile(printer))
        return PaintJob(job, printer) && printer.printerState() != QPrinter::Error;
    // A printer does not tell when its file cannot be written, so it gets one of its own first.
    const QString path = printer.outputFileName();
    const QTemporaryDir folder;
    QFile made(folder.filePath("page.pdf"));
    printer.setOutputFileName(made.fileName());
    const bool painted = PaintJob(job, printer);
    printer.setOutputFileName(path);
    if (!painted || !made.open(QIODevice::ReadOnly)) return false;
    const QByteArray pdf = made.readAll();
    return IsWhole(pdf) &&
           WriteCompleteFile(
               FileNameOf(path),
               std::string_view(pdf.constData(), static_cast<std::size_t>(pdf.size())));
}

void OpenPrintPreview(QWidget* parent, PrintJob job, const PrintActions& actions) {
    const auto page = std::make_shared<Page>();
    SetUp(page->printer, job.seen);
    page->job = std::move(job);
    page->actions = actions;
    auto* const dialog = new FrontDialog(parent);
    dialog->setObjectName("printPreview");
    dialog->setWindowTitle(TextOf(StringId::PrintTitle));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAttribute(Qt::WA_KeyboardFocusChange);  // the focus shows from the start
    auto* const whole = new QVBoxLayout(dialog);
    whole->setContentsMargins(0, 0, 0, 0);
    QPrintPreviewWidget* const preview = NewPreview(page, dialog);
    whole->addWidget(preview, 1);
    whole->addLayout(NewChoices(page, *preview));
    BottomBar* const keys = NewKeys(*dialog);
    whole->addWidget(keys);
    keys->menuButton()->setFocus(Qt::OtherFocusReason);
    QObject::connect(
        dialog, &QDialog::finished, parent,
        [parent, page](int result) {
            if (result != QDialog::Accepted) return;
            page->actions.chosen(page->job.choices);
            OpenPrintDialog(parent, page);
        },
        Qt::SingleShotConnection);
    dialog->resize(kPreviewSize.boundedTo(dialog->screen()->availableGeometry().size() - kFrame));
    dialog->open();
}

}  // namespace kalvex
