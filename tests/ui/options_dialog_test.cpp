// The Options dialog by real events, from both windows.
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QScrollArea>

#include "graph/pick.h"
#include "ui/form_dialog.h"
#include "ui/touch.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

struct OptionsProgram : TestProgram {
    QPointer<QDialog> dialog;

    void Find(QWidget& window) {
        dialog = window.findChild<QDialog*>("optionsDialog");
        QVERIFY(dialog != nullptr);
        QTRY_COMPARE(QApplication::focusWidget(), List(1036));
    }
    void Open() {
        if (!application.editor) Start();
        Editor().OpenMenu();
        QMenu* const menu = OpenedMenu(Editor(), "mainMenu");
        ActionOf(*menu, CommandId::Options)->trigger();
        menu->close();
        Find(Editor());
    }
    void OpenGraphWith(int type, const char* text) {
        Start();
        ClearLines();
        Entry(1).type = type;
        Entry(1).selected = 1;
        Editor().ShowLines();
        Line(1)->setText(text);
        OpenGraph();
        QTest::qWait(30);
    }
    void OpenInGraph() {
        Graph().OpenMenu();
        QMenu* const menu = OpenedMenu(Graph(), "graphMenu");
        ActionOf(*menu, CommandId::Options)->trigger();
        menu->close();
        Find(Graph());
    }
    template <typename Control>
    Control* Of(int id) {
        for (Control* const control : dialog->findChildren<Control*>()) {
            if (control->property("controlId").toInt() == id) return control;
        }
        return nullptr;
    }
    QComboBox* List(int id) { return Of<QComboBox>(id); }
    QLineEdit* Field(int id) { return Of<QLineEdit>(id); }
    QCheckBox* Box(int id) { return Of<QCheckBox>(id); }
    QCheckBox* PolarGrid() { return dialog->findChild<QCheckBox*>("polarGrid"); }
    void Tap(QCheckBox* box) {
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(10, box->height() / 2));
    }
    void Choose(int id, const char* text) {
        List(id)->setFocus();
        QTest::keyClicks(List(id), text);
        QCOMPARE(List(id)->currentText(), QString(text));
    }
    void Fill(int id, const char* text) {
        Field(id)->setFocus();
        Field(id)->selectAll();
        QTest::keyClicks(Field(id), text);
    }
    void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void Save() { Click(*dialog, "saveKey"); }
    void SaveAndClose() {
        Save();
        QTRY_VERIFY(!dialog);
    }
    Options& Now() { return application.workspace.options; }
    int Stored(const char* name) { return store.registry.readNumber("", name).value_or(-1); }
};

struct FieldRow {
    const char* caption;
    const char* tip;
    int captionId;
    int fieldId;
};

constexpr FieldRow kFields[] = {
    {"Wight of graph line:", "You can choose the width of the line graphs of functions", 1079,
     1036},
    {"Max angle in polar mode:",
     "You can choose the value of the maximum angle in the construction of graph of the function "
     "in polar coordinates",
     0, 1037},
    {"Text size:", "You can choose the font size of names of functions on the screen", 0, 1071},
    {"Min value of parametr:",
     "You can choose the minimum value of the parameter in constructing the graph of a function "
     "defined parametrically",
     0, 1000},
    {"Max value of parametr:",
     "You can choose the maximum value of the parameter in constructing the graph of a function "
     "defined parametrically",
     0, 1001},
    {"Interpolation type:", "Choose the type of interpolation", 0, 1052},
};

struct BoxRow {
    const char* caption;
    const char* tip;
    int id;
};

constexpr BoxRow kBoxes[] = {
    {"Colour equ's in Graph Table",
     "Determine whether function names are displayed color, which is constructed of schedule",
     1049},
    {"Labels", "Determine whether function names are displayed on the screen", 1019},
    {"Coords", "Determine whether to show the signature of coordinates on the axis on the screen",
     1022},
    {"Grid", "Determine whether to display the grid on the screen", 1021},
    {"Deriv.", "Determine whether to show the derivative on the screen in Trace mjde", 1023},
    {"Axes", "Determine whether to show the coordinate axes on the screen", 1020},
};

}  // namespace

class OptionsDialogTest final : public QObject {
    Q_OBJECT
  private slots:
    void Captions() {
        OptionsProgram program;
        program.Open();
        QCOMPARE(program.dialog->windowTitle(), QString("Options"));
        for (const FieldRow& row : kFields) {
            QLabel* caption = nullptr;
            for (QLabel* const label : program.dialog->findChildren<QLabel*>()) {
                if (label->text() == row.caption) caption = label;
            }
            QVERIFY2(caption != nullptr, row.caption);
            QCOMPARE(caption->property("controlClass").toString(), QString("TTSTATIC"));
            QCOMPARE(caption->property("controlId").toInt(), row.captionId);
            QCOMPARE(caption->toolTip(), QString(row.tip));
            QWidget* const field = caption->buddy();
            QVERIFY(field != nullptr);
            QCOMPARE(field->property("controlId").toInt(), row.fieldId);
            QCOMPARE(field->accessibleName() + ":", QString(row.caption));
            QCOMPARE(field->accessibleDescription(), QString(row.tip));
            const bool hidden = row.fieldId == 1052;
            QCOMPARE(caption->isVisible(), !hidden);
            QCOMPARE(field->isVisible(), !hidden);
        }
        for (const BoxRow& row : kBoxes) {
            const QCheckBox* const box = program.Box(row.id);
            QVERIFY2(box != nullptr && box->isVisible(), row.caption);
            QCOMPARE(box->property("controlClass").toString(), QString("TTBUTTON"));
            QCOMPARE(box->text(), QString(row.caption));
            QCOMPARE(box->toolTip(), QString(row.tip));
            QCOMPARE(box->accessibleDescription(), QString(row.tip));
        }
        QCOMPARE(program.Of<QGroupBox>(1069)->title(), QString("Show on graph window"));
        QCOMPARE(program.PolarGrid()->text(), QString("Polar grid"));
        QVERIFY(program.PolarGrid()->property("controlId").isNull());
        QCOMPARE(program.Of<QPushButton>(32838)->text(), QString("Save"));
        QCOMPARE(program.Of<QPushButton>(32840)->text(), QString("Cancel"));
    }
    void TheFocusRunsInTheirOrder() {
        OptionsProgram program;
        program.Open();
        QCOMPARE(QApplication::focusWidget(), program.List(1036));
        std::vector<int> order;
        for (int i = 0; i < 15; ++i) {
            order.push_back(QApplication::focusWidget()->property("controlId").toInt());
            program.Press(Qt::Key_Tab);
        }
        QCOMPARE(order, (std::vector<int>{1036, 1037, 1071, 1000, 1001, 1049, 1019, 1022, 1021,
                                          1023, 1020, 0, 32838, 32840, 1036}));
    }
    void Lists() {
        OptionsProgram program;
        program.Open();
        const auto entries = [&](int id) {
            QStringList texts;
            for (int i = 0; i < program.List(id)->count(); ++i)
                texts += program.List(id)->itemText(i);
            return texts.join(",");
        };
        QCOMPARE(entries(1036), QString("1 pix,2 pix"));
        QCOMPARE(entries(1037), QString("2 pi,4 pi,6 pi,8 pi"));
        QCOMPARE(entries(1071), QString("8 pt,9 pt,10 pt,11 pt,12 pt,13 pt,14 pt,15 pt,16 pt,17 pt,"
                                        "18 pt,19 pt,20 pt,21 pt,22 pt,23 pt,24 pt,25 pt,26 pt,"
                                        "27 pt,28 pt,29 pt"));
        QCOMPARE(entries(1052), QString("Linear,Quadratic"));
    }
    void ShowsTheOptions() {
        OptionsProgram program;
        program.Start();
        program.Now() = {};
        program.Now().Wight = 2;
        program.Now().MaxAngle = 3.0;
        program.Now().TextSize = 8;
        program.Now().InterpolationType = 1;
        program.Now().Coord = 0;
        program.Now().MinParam = -2.0 / 3.0;
        program.Now().MaxParam = 1e6;
        program.Open();
        QCOMPARE(program.List(1036)->currentText(), QString("2 pix"));
        QCOMPARE(program.List(1037)->currentText(), QString("6 pi"));
        QCOMPARE(program.List(1071)->currentText(), QString("8 pt"));
        QCOMPARE(program.List(1052)->currentText(), QString("Quadratic"));
        QCOMPARE(program.Field(1000)->text(), QString("-0.666667"));
        QCOMPARE(program.Field(1001)->text(), QString("1000000.000000"));
        for (const BoxRow& row : kBoxes)
            QCOMPARE(program.Box(row.id)->isChecked(), row.id != 1022);
        QVERIFY(!program.PolarGrid()->isChecked() && program.PolarGrid()->isEnabled());
    }
    void ADamagedStoreChoosesNothingAndIsKept() {
        OptionsProgram program;
        program.Start();
        program.Now().Wight = 5;
        program.Now().TextSize = 300;
        program.Now().MaxAngle = -7.0;
        program.Now().InterpolationType = 9;
        program.Open();
        for (const int id : {1036, 1037, 1071, 1052})
            QCOMPARE(program.List(id)->currentIndex(), -1);
        QCOMPARE(QApplication::focusWidget(), program.List(1036));
        program.Save();
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Now().Wight, 5);
        QCOMPARE(program.Now().TextSize, 300);
        QCOMPARE(program.Now().MaxAngle, -7.0);
        QCOMPARE(program.Now().InterpolationType, 9);
        QCOMPARE(program.Stored("MaxAngle"), -7);
    }
    void SavesByKeyboardAlone() {
        OptionsProgram program;
        program.Open();
        program.Press(Qt::Key_Down);  // 2 pix
        program.Press(Qt::Key_Tab);
        program.Press(Qt::Key_End);  // 8 pi
        program.Press(Qt::Key_Tab);
        program.Press(Qt::Key_Home);  // 8 pt
        program.Press(Qt::Key_Tab);
        QTest::keyClicks(QApplication::focusWidget(), "-1.5");  // what stood there is selected
        program.Press(Qt::Key_Tab);
        QTest::keyClicks(QApplication::focusWidget(), "2.5");
        program.Press(Qt::Key_Tab);
        program.Press(Qt::Key_Space);
        program.Press(Qt::Key_Return);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Stored("Wight"), 2);
        QCOMPARE(program.Stored("MaxAngle"), 4);
        QCOMPARE(program.Stored("TextSize"), 8);
        QCOMPARE(program.Stored("ColorText"), 0);
        QCOMPARE(program.Now().MinParam, -1.5);
        QCOMPARE(program.Now().MaxParam, 2.5);
        QVERIFY(program.shown.boxes->empty());
    }
    void EachBoxIsStoredUnderItsName() {
        const std::pair<int, const char*> rows[] = {{1049, "ColorText"}, {1019, "Label"},
                                                    {1022, "Coord"},     {1021, "Setka"},
                                                    {1023, "Diff"},      {1020, "Axex"}};
        for (const auto& [id, name] : rows) {
            OptionsProgram program;
            program.Open();
            program.Tap(program.Box(id));
            program.Save();
            for (const auto& [other, otherName] : rows)
                QCOMPARE(program.Stored(otherName), other == id ? 0 : 1);
        }
    }
    void TheGridAndItsKind() {
        OptionsProgram program;
        program.Open();
        program.Tap(program.PolarGrid());
        program.SaveAndClose();
        QCOMPARE(program.Stored("Setka"), 2);
        program.Open();  // the fixed box leaves the kind alone
        QVERIFY(program.Box(1021)->isChecked() && program.PolarGrid()->isChecked());
        program.SaveAndClose();
        QCOMPARE(program.Stored("Setka"), 2);
        program.Open();  // off and on again: the kind is still there
        program.Tap(program.Box(1021));
        QVERIFY(!program.PolarGrid()->isEnabled());
        program.Tap(program.PolarGrid());
        program.Tap(program.Box(1021));
        QVERIFY(program.PolarGrid()->isEnabled() && program.PolarGrid()->isChecked());
        program.SaveAndClose();
        QCOMPARE(program.Stored("Setka"), 2);
        program.Open();
        program.Tap(program.Box(1021));
        program.SaveAndClose();
        QCOMPARE(program.Stored("Setka"), 0);
        QCOMPARE(int{program.Now().Setka}, 0);
        program.Open();
        QVERIFY(!program.PolarGrid()->isEnabled() && !program.PolarGrid()->isChecked());
        program.Tap(program.Box(1021));
        program.SaveAndClose();
        QCOMPARE(program.Stored("Setka"), 1);
    }
    void ARefusedRangeLeavesTheRestStored() {
        OptionsProgram program;
        program.Open();
        program.Choose(1036, "2 pix");
        program.Fill(1000, "3");
        program.Fill(1001, "3.0");
        program.Press(Qt::Key_Return);
        QVERIFY(program.dialog && program.dialog->isVisible());
        QCOMPARE(program.shown.boxes->size(), std::size_t{1});
        QVERIFY(program.LastBox().text == u"MaxParam must be greater than MinParam!");
        QVERIFY(program.LastBox().caption == u"Error!");
        QVERIFY(program.LastBox().icon == MessageIcon::Stop);
        QCOMPARE(QApplication::focusWidget(), program.Field(1001));
        QCOMPARE(program.Field(1001)->selectedText(), QString("3.0"));
        QCOMPARE(program.Stored("Wight"), 2);
        QCOMPARE(program.Now().MinParam, 0.0);
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Now().Wight, 2);
        QCOMPARE(program.Stored("Wight"), 2);
        QCOMPARE(program.Now().MinParam, 0.0);
        QCOMPARE(program.Now().MaxParam, 6.283185);
    }
    void WhatIsNoNumberIsZero() {
        const struct {
            const char* least;
            const char* largest;
            bool taken;
        } rows[] = {{"none", "1", true},  {"-1", "none", true},  {"none", "none", false},
                    {"1", "none", false}, {"nan", "nan", false}, {"0", "1e400", true}};
        for (const auto& row : rows) {
            OptionsProgram program;
            program.Open();
            program.Fill(1000, row.least);
            program.Fill(1001, row.largest);
            program.Press(Qt::Key_Return);
            QCOMPARE(program.shown.boxes->empty(), row.taken);
        }
    }
    void CancelChangesNothing() {
        for (const int way : {0, 1, 2}) {
            OptionsProgram program;
            program.Open();
            program.store.log->clear();
            program.Choose(1036, "2 pix");
            program.Tap(program.Box(1020));
            program.Fill(1000, "-9");
            if (way == 0) program.Press(Qt::Key_Escape);
            if (way == 1) program.Click(*program.dialog, "cancelKey");
            if (way == 2) program.dialog->close();
            QTRY_VERIFY(!program.dialog);
            QCOMPARE(program.Now().Wight, 1);
            QCOMPARE(int{program.Now().Axex}, 1);
            QCOMPARE(program.Now().MinParam, 0.0);
            QVERIFY(program.store.log->empty());
            QVERIFY(program.Editor().isVisible());
        }
    }
    void AFailingStoreIsSilent() {
        OptionsProgram program;
        program.Open();
        *program.store.fails = [](const std::string&) { return true; };
        program.Choose(1036, "2 pix");
        program.Save();
        QTRY_VERIFY(!program.dialog);
        QVERIFY(program.shown.boxes->empty());
        QCOMPARE(program.Now().Wight, 2);
    }
    void TheLinesShowTheirColoursAtOnce() {
        OptionsProgram program;
        program.Start();
        program.Entry(5).color = 1;
        program.Entry(5).selected = 0;
        program.Editor().ShowLines();
        QCOMPARE(program.Label(5)->TextColor(), QColor(255, 0, 0));
        program.Open();
        program.Tap(program.Box(1049));
        program.Save();
        QCOMPARE(program.Label(5)->TextColor(), program.Label(5)->palette().windowText().color());
    }
    void AnOpenGraphIsDrawnOnce() {
        OptionsProgram program;
        program.OpenGraphWith(2, "x");
        const std::size_t records = program.Canvas().Picture().records.size();
        int count = program.Canvas().RedrawCount();
        program.OpenInGraph();
        program.Tap(program.Box(1021));
        program.Save();
        QTRY_VERIFY(!program.dialog);
        QTRY_COMPARE(program.Canvas().RedrawCount(), count + 1);
        QTest::qWait(50);
        QCOMPARE(program.Canvas().RedrawCount(), count + 1);
        QVERIFY(program.Canvas().Picture().records.size() < records);
        count = program.Canvas().RedrawCount();
        program.OpenInGraph();
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        QTest::qWait(50);
        QCOMPARE(program.Canvas().RedrawCount(), count);
        QVERIFY(program.Graph().isVisible());
    }
    void ARefusedRangeIsDrawnToo() {
        OptionsProgram program;
        program.OpenGraphWith(2, "x");
        const int count = program.Canvas().RedrawCount();
        program.OpenInGraph();
        program.Tap(program.Box(1021));
        program.Fill(1000, "99");
        program.Save();
        QVERIFY(program.dialog);
        QTRY_COMPARE(program.Canvas().RedrawCount(), count + 1);
    }
    void EndsEveryMode() {
        for (const CommandId command : {CommandId::ZoomBox, CommandId::ZoomIn, CommandId::Trace}) {
            OptionsProgram program;
            program.OpenGraphWith(2, "x");
            program.Graph().Run(command);
            program.OpenInGraph();
            QVERIFY(program.application.graph.mode == GraphMode::Normal);
            QCOMPARE(program.Graph().windowTitle(), QString("Kalvex"));
        }
    }
    // KEEP: the range reaches the store with the view, not at once.
    void TheRangeIsStoredWithTheView() {
        OptionsProgram program;
        program.OpenGraphWith(3, "x;x");
        const auto stored = [&] {
            return QString::fromStdU16String(
                program.store.registry.readText("", "MaxParam").value_or(u""));
        };
        program.OpenInGraph();
        program.Fill(1001, "4");
        program.Save();
        QCOMPARE(stored(), QString("6.283185"));
        QTest::qWait(30);
        QCOMPARE(program.Entry(1).samples[1].parameter, 4.0 / program.Canvas().width());
        program.Graph().Run(CommandId::GraphTable);
        QCOMPARE(stored(), QString("4.000000"));
    }
    void ShortCuts() {
        OptionsProgram program;
        program.Start();
        QTest::keyClick(program.Line(1), Qt::Key_Comma, Qt::ControlModifier);
        program.Find(program.Editor());
        QTest::keyClick(program.List(1036), Qt::Key_Comma, Qt::ControlModifier);
        QCOMPARE(program.Editor().findChildren<QDialog*>().size(), 1);
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        QTRY_VERIFY(program.Editor().isActiveWindow());
        program.Entry(1).selected = 1;
        program.OpenGraph();
        QTest::keyClick(&program.Graph(), Qt::Key_Comma, Qt::ControlModifier);
        program.Find(program.Graph());
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        program.Graph().OpenMenu();
        QMenu* const menu = OpenedMenu(program.Graph(), "graphMenu");
        QTest::keyClick(menu, Qt::Key_Comma, Qt::ControlModifier);
        QVERIFY(program.Graph().findChild<QDialog*>() == nullptr);
        menu->close();
    }
    void FitsSmallScreens() {
        OptionsProgram program;
        program.Open();
        QVERIFY(program.dialog->height() <= 600);
        QVERIFY(program.dialog->minimumSizeHint().width() <= 480);
        QVERIFY(program.dialog->findChild<QScrollArea*>() == nullptr);
        for (QWidget* const control : program.dialog->findChildren<QWidget*>()) {
            const bool tapped = qobject_cast<QCheckBox*>(control) != nullptr ||
                                qobject_cast<QLineEdit*>(control) != nullptr ||
                                qobject_cast<QComboBox*>(control) != nullptr ||
                                qobject_cast<QPushButton*>(control) != nullptr;
            if (tapped && control->isVisible() && control->window() == program.dialog)
                QVERIFY2(control->height() >= kTouchTarget, qPrintable(control->objectName()));
        }
    }
    void TheFieldsScrollWhereTheScreenIsLow() {
        FormDialog dialog("Low", nullptr);
        std::vector<QLineEdit*> fields;
        for (int i = 0; i < 8; ++i)
            fields.push_back(dialog.AddText("Field:", "text"));
        dialog.FitInto(2000);
        QVERIFY(dialog.findChild<QScrollArea*>() == nullptr);
        dialog.FitInto(300);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(dialog.height(), 300);
        QVERIFY(dialog.rect().contains(
            QRect(dialog.SaveKey()->mapTo(&dialog, QPoint(0, 0)), dialog.SaveKey()->size())));
        fields[0]->setFocus();
        for (int i = 0; i < 7; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), fields[7]);
        QTRY_COMPARE(fields[7]->visibleRegion().boundingRect(), fields[7]->rect());
    }
};

QTEST_MAIN(OptionsDialogTest)
#include "options_dialog_test.moc"
