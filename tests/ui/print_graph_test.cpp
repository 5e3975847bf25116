#include "ui/graph/print_graph.h"

#include <QCheckBox>
#include <QLabel>
#include <QPrintDialog>
#include <QPrintPreviewWidget>

#include "boxes_fixture.h"
#include "pdf_extent.h"
#include "ui/parts/gate.h"

using namespace kalvex;

namespace {

constexpr double kMargin = 15.0 / 25.4 * 72.0;  // points
constexpr double kTolerance = 1.2;              // Qt takes whole points for sizes and margins

/// A picture with a line along each of its edges. Its pixels are much smaller than a point.
DrawList Framed(std::int32_t width, std::int32_t height) {
    const double w = width;
    const double h = height;
    return {
        width,
        height,
        {SegmentsRecord{Pen{{0, 0, 0}, 1},
                        {{{0, 0}, {w, 0}}, {{w, 0}, {w, h}}, {{w, h}, {0, h}}, {{0, h}, {0, 0}}}}}};
}

QByteArray ContentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void SetToFile(QPrinter& printer, const QString& path, QPageLayout::Orientation orientation) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(orientation);
    printer.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
}

struct PageRow {
    QSize picture;
    bool fills;
    QPageLayout::Orientation orientation;
    bool isFullWidth, isFullHeight;  ///< the picture takes all the room of the page
};

/// Whether a file has the page of a row: its size, the picture in the middle, as large as it can
/// be.
void ComparePage(const QByteArray& pdf, const PageRow& row) {
    const QSizeF a4(595.0, 842.0);
    const QSizeF page = row.orientation == QPageLayout::Landscape ? a4.transposed() : a4;
    const QSizeF size = PdfPageSize(pdf);
    QVERIFY(std::abs(size.width() - page.width()) < kTolerance);
    QVERIFY(std::abs(size.height() - page.height()) < kTolerance);
    const QSizeF room = size - QSizeF(2 * kMargin, 2 * kMargin);
    const double proportion = static_cast<double>(row.picture.width()) / row.picture.height();
    const double width = row.isFullWidth ? room.width() : room.height() * proportion;
    const double height = row.isFullHeight ? room.height() : room.width() / proportion;
    const QRectF extent = PdfExtent(pdf);
    const QString told = QString("%1 %2 %3 %4");
    const QByteArray found =
        told.arg(extent.left()).arg(extent.top()).arg(extent.width()).arg(extent.height()).toUtf8();
    QVERIFY2(std::abs(extent.width() - width) < kTolerance, found);
    QVERIFY2(std::abs(extent.height() - height) < kTolerance, found);
    QVERIFY2(std::abs(extent.center().x() - size.width() / 2.0) < kTolerance, found);
    QVERIFY2(std::abs(extent.center().y() - size.height() / 2.0) < kTolerance, found);
}

/// A program whose graph shows one line, and the ways through its dialogs.
struct PrintProgram : BoxesProgram {
    PrintProgram() {
        StartWith("sin(x)");
        OpenGraph();
        QTest::qWait(30);
    }
    static QDialog* Preview() { return OpenDialog("printPreview"); }
    static QPrintDialog* Dialog() { return qobject_cast<QPrintDialog*>(OpenDialog("printDialog")); }
    /// The print dialog with a file as its printer, whatever printers there are.
    QPrintDialog* OpenedDialog(const QString& path) {
        Graph().Run(CommandId::Print);
        PressByAction(*Preview(), "printKey");
        static_cast<void>(QTest::qWaitFor([] { return Dialog() != nullptr; }, 5000));
        if (Dialog() != nullptr) {
            Dialog()->printer()->setOutputFormat(QPrinter::PdfFormat);
            Dialog()->printer()->setOutputFileName(path);
        }
        return Dialog();
    }
};

}  // namespace

class PrintGraphTest final : public QObject {
    Q_OBJECT
  private slots:
    void ThePageHasMarginsAndProportions() {
        const QTemporaryDir folder;
        const PageRow rows[] = {
            {{4000, 4000}, false, QPageLayout::Portrait, true, false},
            {{8000, 4000}, false, QPageLayout::Portrait, true, false},
            {{4000, 8000}, false, QPageLayout::Portrait, false, true},
            {{8000, 4000}, false, QPageLayout::Landscape, true, false},
            {{4000, 4000}, true, QPageLayout::Portrait, true, true},
            {{8000, 4000}, true, QPageLayout::Landscape, true, true},
        };
        for (const PageRow& row : rows) {
            const QString path = folder.filePath("page.pdf");
            QPrinter printer(QPrinter::HighResolution);
            SetToFile(printer, path, row.orientation);
            const PrintJob job{Framed(row.picture.width(), row.picture.height()),
                               [](const QSize&) { return DrawList{}; },
                               {row.fills}};
            QVERIFY(PrintPage(job, printer));
            QCOMPARE(printer.outputFileName(), path);
            ComparePage(ContentsOf(path), row);
        }
    }
    // A page that is filled shows the graph at its own proportions, and no stretched one.
    void AFilledPageIsDrawnAnew() {
        const QTemporaryDir folder;
        QPrinter printer(QPrinter::HighResolution);
        SetToFile(printer, folder.filePath("page.pdf"), QPageLayout::Portrait);
        QSize asked;
        const PrintJob job{Framed(480, 568),
                           [&asked](const QSize& size) {
                               asked = size;
                               return Framed(size.width(), size.height());
                           },
                           {true}};
        QVERIFY(PaintJob(job, printer));
        const double proportion = static_cast<double>(printer.width()) / printer.height();
        QVERIFY(std::abs(static_cast<double>(asked.width()) / asked.height() - proportion) < 0.003);
    }
    void AFileIsWrittenAsAWholeOrNotAtAll() {
        const QTemporaryDir folder;
        const PrintJob job{Framed(100, 100), {}, {}};
        for (const QString& path : {QString("/proc/no folder/a.pdf"), folder.path()}) {
            QPrinter printer;
            SetToFile(printer, path, QPageLayout::Portrait);
            QVERIFY2(!PrintPage(job, printer), qPrintable(path));
        }
        const QString old = folder.filePath("old.pdf");
        QFile file(old);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
        file.close();
        QPrinter printer;
        SetToFile(printer, old, QPageLayout::Portrait);
        QVERIFY(!PrintPage({DrawList{}, {}, {}}, printer));
        QCOMPARE(ContentsOf(old), QByteArray("old"));
        QVERIFY(PrintPage(job, printer));
        QVERIFY(ContentsOf(old).startsWith("%PDF"));
    }
    void FromTheKeyToTheFile() {
        PrintProgram program;
        QTest::keyClick(&program.Graph(), Qt::Key_P, Qt::ControlModifier);
        QVERIFY(PrintProgram::Preview() != nullptr);
        auto* const page = PrintProgram::Preview()->findChild<QPrintPreviewWidget*>();
        QTRY_COMPARE(page->pageCount(), 1);
        auto* const landscape = PrintProgram::Preview()->findChild<QCheckBox*>("landscape");
        const DrawList& picture = program.Canvas().Picture();
        QCOMPARE(landscape->isChecked(), picture.width > picture.height);
        QCOMPARE(page->orientation() == QPageLayout::Landscape, landscape->isChecked());
        QCOMPARE(PrintProgram::Preview()->focusWidget()->objectName(), QString("printKey"));
        landscape->click();
        QCOMPARE(page->orientation() == QPageLayout::Landscape, landscape->isChecked());
        QVERIFY(!program.Graph().Run(CommandId::Print));  // refused while it is open
        auto* const fills = PrintProgram::Preview()->findChild<QCheckBox*>("fillsPage");
        QVERIFY(!fills->isChecked());
        fills->click();
        PressByAction(*PrintProgram::Preview(), "printKey");
        QTRY_VERIFY(PrintProgram::Dialog() != nullptr);
        QVERIFY(PrintProgram::Preview() == nullptr);
        const QString path = program.folder.filePath("graph.pdf");
        QPrinter& printer = *PrintProgram::Dialog()->printer();
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        PrintProgram::Dialog()->done(QDialog::Accepted);
        QTRY_VERIFY(!IsAnythingOpen());
        QVERIFY(ContentsOf(path).startsWith("%PDF"));
        const QLabel& note = *program.Canvas().findChild<QLabel*>("pictureNote");
        QVERIFY(note.isVisible() && note.accessibleName().contains("graph.pdf"));
        // The next preview shows the last choice.
        program.Graph().Run(CommandId::Print);
        QVERIFY(PrintProgram::Preview()->findChild<QCheckBox*>("fillsPage")->isChecked());
        PressByAction(*PrintProgram::Preview(), "cancelKey");
        QTRY_VERIFY(!IsAnythingOpen());
    }
    void TheGraphStaysAsItIs() {
        PrintProgram program;
        program.Graph().Run(CommandId::Trace);
        QTest::keyClick(&program.Graph(), Qt::Key_End);
        const std::int32_t index = program.application.graph.trace.index;
        program.application.pictureChoices.print.fillsPage = true;
        const SampleCache before = program.Entry(1).samples;
        const int width = program.application.graph.viewport.ClientWidth;
        QPrintDialog* const dialog = program.OpenedDialog(program.folder.filePath("a.pdf"));
        QVERIFY(dialog != nullptr);
        dialog->done(QDialog::Accepted);
        QVERIFY(QFileInfo::exists(program.folder.filePath("a.pdf")));
        QCOMPARE(program.application.graph.viewport.ClientWidth, width);
        QVERIFY(index > 0 && program.application.graph.mode == GraphMode::Trace);
        QCOMPARE(program.application.graph.trace.index, index);
        QCOMPARE(program.Entry(1).samples.size(), before.size());
        QCOMPARE(program.Entry(1).samples.back().x, before.back().x);
    }
    void AFailureIsToldOnce() {
        PrintProgram program;
        QPrintDialog* const dialog = program.OpenedDialog("/proc/no folder/a.pdf");
        QVERIFY(dialog != nullptr);
        dialog->done(QDialog::Accepted);
        QTRY_COMPARE(TextInFront(),
                     QString("The picture could not be written:\n/proc/no folder/a.pdf"));
        BoxInFront()->accept();
        QTRY_VERIFY(!IsAnythingOpen());
        QVERIFY(!program.Canvas().findChild<QLabel*>("pictureNote")->isVisible());
    }
    void CancelPrintsNothing() {
        for (const bool inPreview : {true, false}) {
            PrintProgram program;
            const QString path = program.folder.filePath("a.pdf");
            if (inPreview) {
                program.Graph().Run(CommandId::Print);
                QTest::keyClick(PrintProgram::Preview(), Qt::Key_Escape);
            } else {
                QPrintDialog* const dialog = program.OpenedDialog(path);
                QVERIFY(dialog != nullptr);
                QTest::keyClick(dialog, Qt::Key_Escape);
            }
            QTRY_VERIFY(!IsAnythingOpen());
            QVERIFY(!QFileInfo::exists(path));
            QVERIFY(program.Graph().isVisible());
        }
    }
    // The desktop is no place of its own: the dialog belongs to the graph.
    void TheWindowMayGoWhileADialogIsOpen() {
        for (const bool inPreview : {true, false}) {
            PrintProgram program;
            const QPointer<QDialog> dialog = [&]() -> QDialog* {
                if (!inPreview) return program.OpenedDialog(program.folder.filePath("a.pdf"));
                program.Graph().Run(CommandId::Print);
                return PrintProgram::Preview();
            }();
            QVERIFY(dialog);
            program.application.graphWindow.reset();
            QVERIFY(!dialog);
            QVERIFY(!QFileInfo::exists(program.folder.filePath("a.pdf")));
        }
    }
};

QTEST_MAIN(PrintGraphTest)
#include "print_graph_test.moc"
