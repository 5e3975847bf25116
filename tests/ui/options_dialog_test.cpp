// The controls of the Options dialog: texts, numbers, order, sizes.
#include <QGroupBox>
#include <QScrollArea>

#include "options_fixture.h"
#include "ui/parts/touch.h"
#include "workspace/option_rows.h"

using namespace kalvex;

namespace {

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
    {"Fine grid",
     "Draw the lines of the grid at the steps of the numbers, with lighter lines between them",
     1080},
    {"Smooth", "Draw curves at their true positions with soft edges instead of pixel by pixel",
     1081},
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
        std::vector<int> expected;
        for (const OptionRow* const row : RowsInOrder(PlaceInDialog)) {
            if (row->control.kind == ControlKind::HiddenList) continue;
            if (row->control.id == 1080) expected.push_back(0);  // "Polar grid"
            expected.push_back(row->control.id);
        }
        expected.insert(expected.end(), {32838, 32840, expected.front()});
        std::vector<int> order;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            order.push_back(QApplication::focusWidget()->property("controlId").toInt());
            program.Press(Qt::Key_Tab);
        }
        QCOMPARE(order, expected);
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
            QCOMPARE(program.Box(row.id)->isChecked(), row.id != 1022 && row.id != 1080);
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
};

QTEST_MAIN(OptionsDialogTest)
#include "options_dialog_test.moc"
