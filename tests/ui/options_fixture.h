// The program with its Options dialog, driven by real events.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>

#include "window_fixture.h"

namespace kalvex {

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
        Entry(1).type = static_cast<EquationType>(type);
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

}  // namespace kalvex
