#include <QComboBox>
#include <QFileDialog>
#include <QImage>

#include "boxes_fixture.h"
#include "ui/graph/picture_size_dialog.h"
#include "ui/parts/form_dialog.h"

using namespace kalvex;

namespace {

/// A program whose graph shows one line.
struct SizeProgram : BoxesProgram {
    SizeProgram() {
        StartWith("x");
        OpenGraph();
    }
    /// Chooses the name of a file in the dialog of `Save Picture As`.
    QString SaveAs(const QString& name) {
        application.windowState.folder = folder.path();
        Graph().Run(CommandId::SavePictureAs);
        QDialog* const dialog = OpenDialog("savePictureDialog");
        auto* const field = dialog->findChild<QLineEdit*>("fileNameEdit");
        field->setText(name);
        QTest::keyClick(field, Qt::Key_Return);
        return folder.filePath(name);
    }
    static QDialog* Form() {
        static_cast<void>(
            QTest::qWaitFor([] { return OpenDialog("pictureSizeDialog") != nullptr; }, 2000));
        return OpenDialog("pictureSizeDialog");
    }
};

QComboBox* Choice() {
    return SizeProgram::Form()->findChild<QComboBox*>("sizeChoice");
}

QLineEdit* OwnWidth() {
    return SizeProgram::Form()->findChild<QLineEdit*>("ownWidth");
}

QString Meaning() {
    return SizeProgram::Form()->findChild<QLabel*>("madeSize")->text();
}

}  // namespace

class PictureSizeTest final : public QObject {
    Q_OBJECT
  private slots:
    void ThePictureHasTheChosenSize() {
        SizeProgram program;
        const QSize seen = program.Canvas().size();
        const struct {
            const char* name;
            SizeChoice choice;
            const char* width;
            QSize size;
        } rows[] = {
            {"seen.png", SizeChoice::AsSeen, "", seen},
            {"twice.png", SizeChoice::Twice, "", seen * 2},
            {"four.PNG", SizeChoice::FourTimes, "", seen * 4},
            {"own.png",
             SizeChoice::OwnWidth,
             "1000",
             {1000, qRound(seen.height() * 1000.0 / seen.width())}},
        };
        for (const auto& row : rows) {
            const QString path = program.SaveAs(row.name);
            QVERIFY2(SizeProgram::Form() != nullptr, row.name);
            QVERIFY2(!QFileInfo::exists(path), row.name);
            Choice()->setCurrentIndex(static_cast<int>(row.choice));
            QCOMPARE(OwnWidth()->isEnabled(), row.choice == SizeChoice::OwnWidth);
            if (OwnWidth()->isEnabled()) OwnWidth()->setText(row.width);
            QCOMPARE(Meaning(),
                     QString("%1 x %2 pixels").arg(row.size.width()).arg(row.size.height()));
            QTest::keyClick(OwnWidth(), Qt::Key_Return);
            QTRY_VERIFY2(QFileInfo::exists(path), row.name);
            QCOMPARE(QImage(path).size(), row.size);
            QTRY_VERIFY(OpenDialog("pictureSizeDialog") == nullptr);
            QVERIFY(BoxInFront() == nullptr);
        }
        // The next time it shows the last choice.
        program.SaveAs("next.png");
        QCOMPARE(Choice()->currentIndex(), static_cast<int>(SizeChoice::OwnWidth));
        QCOMPARE(OwnWidth()->text(), QString("1000"));
        PressByAction(*SizeProgram::Form(), "cancelKey");
    }
    void OnlyAPngPictureIsAskedFor() {
        SizeProgram program;
        for (const char* const name : {"a.svg", "a.pdf", "a.bmp"}) {
            const QString path = program.SaveAs(name);
            QTRY_VERIFY2(QFileInfo::exists(path), name);
            QVERIFY2(OpenDialog("pictureSizeDialog") == nullptr, name);
        }
    }
    void CancelWritesNothing() {
        SizeProgram program;
        const QString path = program.SaveAs("a.png");
        QVERIFY(SizeProgram::Form() != nullptr);
        Choice()->setCurrentIndex(1);
        PressByAction(*SizeProgram::Form(), "cancelKey");
        QTRY_VERIFY(OpenDialog("pictureSizeDialog") == nullptr);
        QTest::qWait(20);
        QVERIFY(!QFileInfo::exists(path));
        QVERIFY(program.application.pictureChoices.size.choice == SizeChoice::AsSeen);
    }
    void WhatCannotBeMadeIsRefused() {
        SizeProgram program;
        const QString path = program.SaveAs("a.png");
        QVERIFY(SizeProgram::Form() != nullptr);
        Choice()->setCurrentIndex(static_cast<int>(SizeChoice::OwnWidth));
        for (const char* const width : {"", "wide", "1", "32768", "1e9"}) {
            OwnWidth()->setText(width);
            QCOMPARE(Meaning(), QString());
            QTest::keyClick(OwnWidth(), Qt::Key_Return);
            QTRY_VERIFY2(BoxInFront() != nullptr, width);
            QVERIFY2(TextInFront().startsWith("The width must be a whole number from "), width);
            BoxInFront()->accept();
            QTRY_VERIFY2(BoxInFront() == nullptr, width);
            QCOMPARE(SizeProgram::Form()->focusWidget(), OwnWidth());
        }
        QVERIFY(!QFileInfo::exists(path));
        QVERIFY(program.application.pictureChoices.size.choice == SizeChoice::AsSeen);
        PressByAction(*SizeProgram::Form(), "cancelKey");
    }
    void AListEntryThatIsTooLargeIsRefused() {
        SizeProgram program;
        PictureSize size;
        int chosen = 0;
        OpenPictureSizeDialog(&program.Graph(), {9000, 100}, size, program.application.show,
                              [&chosen] { ++chosen; });
        Choice()->setCurrentIndex(static_cast<int>(SizeChoice::FourTimes));
        PressByAction(*SizeProgram::Form(), "saveKey");
        QTRY_VERIFY(TextInFront().startsWith("A picture of 36000 x 400 pixels cannot be made."));
        BoxInFront()->accept();
        QTRY_COMPARE(SizeProgram::Form()->focusWidget(), Choice());
        QCOMPARE(chosen, 0);
        Choice()->setCurrentIndex(static_cast<int>(SizeChoice::Twice));
        PressByAction(*SizeProgram::Form(), "saveKey");
        QTRY_COMPARE(chosen, 1);
        QVERIFY(size.choice == SizeChoice::Twice);
    }
    void FitsASmallScreen() {
        SizeProgram program;
        program.SaveAs("a.png");
        auto* const form = static_cast<FormDialog*>(SizeProgram::Form());
        QVERIFY(form->sizeHint().width() <= 480 && form->height() <= 600);
        for (const QWidget* const field : std::initializer_list<QWidget*>{Choice(), OwnWidth()})
            QVERIFY(!field->accessibleName().isEmpty());
        PressByAction(*form, "cancelKey");
    }
};

QTEST_MAIN(PictureSizeTest)
#include "picture_size_test.moc"
