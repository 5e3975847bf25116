// A walk through the whole program with the pointer alone: presses, moves and releases.
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTreeView>

#include "whole_program.h"

using namespace kalvex;

namespace {

struct PointerProgram : WholeProgram {
    void Tap(QWidget* target, QPoint at) { QTest::mouseClick(target, Qt::LeftButton, {}, at); }
    void Tap(QWidget* target) { Tap(target, target->rect().center()); }
    void TapKey(const char* name) { Tap(Front()->findChild<QPushButton*>(name)); }
    /// Taps an entry of the menu in front, opening submenus on the way.
    void Choose(CommandId command) {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu != nullptr);
        QAction* action = DirectAction(*menu, command);
        while (action->menu() != nullptr) {
            Tap(menu, menu->actionGeometry(action).center());
            menu = action->menu();
            QTRY_VERIFY(menu->isVisible());
            action = DirectAction(*menu, command);
        }
        Tap(menu, menu->actionGeometry(action).center());
    }
    void ChooseInMenu(CommandId command) {
        TapKey("menuKey");
        Choose(command);
    }
    void Drag(QWidget* target, QPoint from, QPoint to) {
        QTest::mousePress(target, Qt::LeftButton, {}, from);
        QTest::mouseMove(target, (from + to) / 2);
        QTest::mouseMove(target, to);
        QTest::mouseRelease(target, Qt::LeftButton, {}, to);
    }
    void DoubleTap(QWidget* target) {
        Tap(target);
        QTest::mouseDClick(target, Qt::LeftButton);
    }
    /// Chooses an entry of a list box that drops down.
    void ChooseFrom(QComboBox* list, int row) {
        Tap(list);
        QTRY_VERIFY(list->view()->isVisible());
        QTest::qWait(QApplication::doubleClickInterval() + 50);
        const QRect place = list->view()->visualRect(list->model()->index(row, 0));
        Tap(list->view()->viewport(), place.center());
    }
    /// Taps the file of a name in a file dialog, then the button that accepts it.
    void TapFile(const char* dialogName, const QString& file) {
        auto* const dialog = qobject_cast<QFileDialog*>(Front());
        QVERIFY(dialog != nullptr && dialog->objectName() == dialogName);
        dialog->setDirectory(folder.path());
        auto* const list = dialog->findChild<QListView*>("listView");
        auto* const tree = dialog->findChild<QTreeView*>("treeView");
        QAbstractItemView* const view =
            list->isVisible() ? static_cast<QAbstractItemView*>(list) : tree;
        QModelIndex found;
        QTRY_VERIFY((found = IndexOf(*view, file)).isValid());
        view->scrollTo(found);
        Tap(view->viewport(), view->visualRect(found).center());
        TapAccept(*dialog);
    }
    void TapAccept(QFileDialog& dialog) {
        auto* const box = dialog.findChild<QDialogButtonBox*>("buttonBox");
        QPushButton* accept = box->button(QDialogButtonBox::Open);
        if (accept == nullptr) accept = box->button(QDialogButtonBox::Save);
        QVERIFY(accept != nullptr);
        Tap(accept);
    }
    GraphMode Mode() { return application.graph.mode; }
    ViewWindow& View() { return application.graph.viewport.view; }

  private:
    static QAction* DirectAction(QMenu& menu, CommandId command) {
        for (QAction* const action : menu.actions()) {
            if (action->isSeparator()) continue;
            if (action->menu() != nullptr ? ActionOf(*action->menu(), command) != nullptr
                                          : action->data().toInt() == static_cast<int>(command))
                return action;
        }
        return nullptr;
    }
    static QModelIndex IndexOf(const QAbstractItemView& view, const QString& file) {
        const QModelIndex root = view.rootIndex();
        for (int row = 0; row < view.model()->rowCount(root); ++row) {
            const QModelIndex index = view.model()->index(row, 0, root);
            if (index.data().toString() == file) return index;
        }
        return {};
    }
};

}  // namespace

class PointerRunTest final : public QObject {
    Q_OBJECT
    std::unique_ptr<PointerProgram> program;

  private slots:
    void initTestCase() {
        program = std::make_unique<PointerProgram>();
        program->Start();
        program->ClearLines();
        program->application.windowState.folder = program->folder.path();
    }
    void WritesALineFromTheMenu() {
        PointerProgram& p = *program;
        p.Tap(p.Line(2));
        QVERIFY(p.Line(2)->hasFocus());
        p.TapKey("insertKey");
        p.Choose(CommandId::InsertPsi);
        QCOMPARE(p.Line(2)->text(), QString("Psi("));
        p.ChooseInMenu(CommandId::Delete);
        QCOMPARE(p.Line(2)->text(), QString());
        // An on-screen keyboard would type digits and brackets; here the text is set.
        p.Line(2)->setText("4cos(x)");
        p.Line(1)->setText("x^2-5");
        p.TapKey("insertKey");
        p.Choose(CommandId::SelectText);
        QCOMPARE(p.Line(2)->selectedText(), QString("4cos(x)"));
        p.TapKey("insertKey");
        p.Choose(CommandId::Copy);
        p.Tap(p.Line(3));
        p.TapKey("insertKey");
        p.Choose(CommandId::Paste);
        QCOMPARE(p.Line(3)->text(), QString("4cos(x)"));
        p.TapKey("insertKey");
        p.Choose(CommandId::Undo);
        QCOMPARE(p.Line(3)->text(), QString());
    }
    void SelectsLines() {
        PointerProgram& p = *program;
        p.DoubleTap(p.Label(1));
        QCOMPARE(int(p.Entry(1).selected), 1);
        QTest::mousePress(p.Line(2), Qt::LeftButton);  // a hold
        QTRY_COMPARE(int(p.Entry(2).selected), 1);
        QTest::mouseRelease(p.Line(2), Qt::LeftButton);
        p.ChooseInMenu(CommandId::Green);
        QCOMPARE(p.Entry(2).color, 4);
        p.ChooseInMenu(CommandId::UnselectAll);
        QCOMPARE(int(p.Entry(1).selected), 0);
        p.DoubleTap(p.Line(1));
        p.DoubleTap(p.Label(2));
        QCOMPARE(int(p.Entry(1).selected) + int(p.Entry(2).selected), 2);
    }
    void UsesTheDialogs() {
        PointerProgram& p = *program;
        p.ChooseInMenu(CommandId::Options);
        QVERIFY(p.IsInFront("optionsDialog"));
        QComboBox* width = nullptr;
        for (QComboBox* const list : p.Front()->findChildren<QComboBox*>())
            if (list->property("controlId").toInt() == 1036) width = list;
        p.ChooseFrom(width, 1);
        QTRY_COMPARE(width->currentText(), QString("2 pix"));
        p.TapKey("saveKey");
        QTRY_COMPARE(p.application.workspace.options.Wight, 2);
        QVERIFY(p.IsInFront("editor"));
        p.ChooseInMenu(CommandId::Help);
        QVERIFY(p.IsInFront("helpWindow"));
        auto* const page = p.Front()->findChild<QTextBrowser*>("helpPage");
        const int top = page->verticalScrollBar()->value();
        p.Tap(page->verticalScrollBar(), QPoint(page->verticalScrollBar()->width() / 2,
                                                page->verticalScrollBar()->height() * 3 / 4));
        QVERIFY(page->verticalScrollBar()->value() > top);
        p.TapKey("okKey");
        QVERIFY(p.IsInFront("editor"));
        p.ChooseInMenu(CommandId::About);
        QVERIFY(p.IsInFront("aboutBox"));
        p.TapKey("okKey");
        QVERIFY(p.IsInFront("editor"));
    }
    void DrawsPansAndZooms() {
        PointerProgram& p = *program;
        p.TapKey("actionKey");
        QTRY_VERIFY(p.application.graphWindow && p.Canvas().RedrawCount() > 0);
        QVERIFY(p.IsInFront("graph"));
        p.WaitForPicture();
        p.Drag(&p.Canvas(), QPoint(100, 100), QPoint(150, 100));
        QVERIFY(p.View().Xmin < -10.0);
        p.WaitForPicture();
        p.ChooseInMenu(CommandId::QuickStandart);
        QCOMPARE(p.View().Xmin, -10.0);
        p.WaitForPicture();
        p.ChooseInMenu(CommandId::ZoomBox);
        p.Drag(&p.Canvas(), QPoint(100, 100), QPoint(200, 250));
        QVERIFY(p.View().Xmax - p.View().Xmin < 10.0);
        p.WaitForPicture();
        p.ChooseInMenu(CommandId::ZoomPre);
        p.WaitForPicture();
        p.ChooseInMenu(CommandId::ZoomIn);
        p.Tap(&p.Canvas(), QPoint(120, 130));
        QCOMPARE(p.View().Xmax - p.View().Xmin, 10.0);
        p.WaitForPicture();
        p.ChooseInMenu(CommandId::ViewWindowDialog);
        QVERIFY(p.IsInFront("viewWindowDialog"));
        p.TapKey("cancelKey");
        QVERIFY(p.IsInFront("graph"));
        p.ChooseInMenu(CommandId::Calculator);
        QVERIFY(p.IsInFront("calculatorDialog"));
        p.TapKey("cancelKey");
        QVERIFY(p.IsInFront("graph"));
        p.ChooseInMenu(CommandId::QuickStandart);
        p.WaitForPicture();
    }
    void TracesAnalysesAndExports() {
        PointerProgram& p = *program;
        p.TapKey("actionKey");
        QVERIFY(p.Mode() == GraphMode::Trace);
        p.Tap(&p.Canvas(), QPoint(77, p.Canvas().height() - 3));
        QCOMPARE(p.application.graph.trace.index, 77);
        p.TapKey("actionKey");
        QVERIFY(p.IsInFront("report"));
        auto* const pages = p.Front()->findChild<QTabWidget*>("reportPages");
        p.Tap(pages->tabBar(), pages->tabBar()->tabRect(2).center());
        QCOMPARE(pages->currentIndex(), 2);
        p.TapKey("actionKey");
        p.Choose(CommandId::FunctionToFile);
        QVERIFY(p.IsInFront("saveResultDialog"));
        p.TapAccept(*qobject_cast<QFileDialog*>(p.Front()));
        QTRY_VERIFY(p.Contents(p.folder.filePath("result.kx")).startsWith("-10.0"));
        QVERIFY(p.IsInFront("report"));
        p.TapKey("menuKey");
        QVERIFY(p.IsInFront("graph"));
        p.TapKey("menuKey");  // the key shows "Escape" now
        QVERIFY(p.Mode() == GraphMode::Normal);
    }
    void FillsTheScreen() {
        PointerProgram& p = *program;
        p.ChooseInMenu(CommandId::FullScreen);
        QTRY_VERIFY(p.Graph().isFullScreen());
        p.WaitForPicture();
        QTest::mousePress(&p.Canvas(), Qt::LeftButton, {}, QPoint(60, 60));
        QTRY_VERIFY(OpenedMenu(p.Graph(), "fullScreenPopup") != nullptr);
        QTest::mouseRelease(&p.Canvas(), Qt::LeftButton, {}, QPoint(60, 60));
        p.Choose(CommandId::PopupFullScreen);
        QTRY_VERIFY(!p.Graph().isFullScreen());
        p.WaitForPicture();
        p.ChooseInMenu(CommandId::Picture);
        QTRY_VERIFY(p.LastBox().text == u"Save");
    }
    void DrawsThePointsThatItSaved() {
        PointerProgram& p = *program;
        p.ChooseInMenu(CommandId::GraphTable);
        QVERIFY(p.IsInFront("editor"));
        p.Tap(p.Line(5));
        p.ChooseInMenu(CommandId::File);
        QVERIFY(p.IsInFront("openFileDialog"));
        p.TapFile("openFileDialog", "result.kx");
        QVERIFY(p.IsInFront("editor"));
        QCOMPARE(p.Line(5)->text(), p.folder.filePath("result.kx"));
        p.ChooseInMenu(CommandId::LinearSpline);
        QCOMPARE(p.Entry(5).method.approx, 8);
        p.DoubleTap(p.Label(5));
        p.TapKey("actionKey");
        QVERIFY(p.IsInFront("graph"));
        QTRY_VERIFY(p.Entry(5).samples.size() > 100);
    }
    void Ends() {
        PointerProgram& p = *program;
        p.WaitForPicture();
        p.ChooseInMenu(CommandId::GraphExit);
        QCOMPARE(p.quits, 1);
    }
    void cleanupTestCase() { program.reset(); }
};

QTEST_MAIN(PointerRunTest)
#include "pointer_run_test.moc"
