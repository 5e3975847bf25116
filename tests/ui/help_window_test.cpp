#include "ui/help/help_window.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointingDevice>
#include <QProcess>
#include <QScrollBar>
#include <QScroller>
#include <QTextBlock>
#include <cstdio>
#include <memory>

#include "ui/help/help_browser.h"
#include "ui/parts/contrast.h"
#include "ui/parts/touch.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

const QString kPrintPage = "--print-page";

/// A page for the test: two places far apart, a wide picture, a link to another site.
struct TestPage {
    QTemporaryDir folder;
    QWidget below;

    TestPage() {
        QImage wide(1200, 300, QImage::Format_RGB32);
        wide.fill(Qt::red);
        wide.save(folder.filePath("wide.png"));
        QString text =
            "<html><body><p>needle one <a href='#far'>far</a> "
            "<a href='http://example.invalid/'>away</a> "
            "<a href='other.html#far'>other</a></p>"
            "<p><img src='wide.png'/></p>";
        for (int i = 0; i < 200; ++i)
            text += "<p>line</p>";
        text += "<h2 id='far'>Far</h2><p>needle two</p>";
        for (int i = 0; i < 200; ++i)
            text += "<p>line</p>";
        Write("index.html", text + "</body></html>");
        Write("other.html", "<html><body><p id='far'>other page</p></body></html>");
        below.resize(500, 600);
        below.show();
    }
    void Write(const QString& name, const QString& text) const {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }
    HelpWindow* Open() {
        OpenHelpPage(&below, folder.filePath("index.html"));
        auto* const window = static_cast<HelpWindow*>(below.findChild<QDialog*>("helpWindow"));
        if (window != nullptr && !QTest::qWaitForWindowActive(window)) return nullptr;
        return window;
    }
};

int ScrollOf(const HelpWindow& window) {
    return window.Page().verticalScrollBar()->value();
}

/// Width of the picture as it is laid out.
double PictureWidth(const HelpWindow& window) {
    const QTextDocument& document = *window.Page().document();
    const QUrl name = window.Page().source().resolved(QUrl("wide.png"));
    const auto picture = document.resource(QTextDocument::ImageResource, name).value<QImage>();
    return picture.width() / picture.devicePixelRatio();
}

}  // namespace

class HelpWindowTest final : public QObject {
    Q_OBJECT
  private slots:
    void FillsTheWindowBelow() {
        TestPage test;
        HelpWindow* const window = test.Open();
        QVERIFY(window != nullptr);
        QCOMPARE(window->windowTitle(), QString("Kalvex"));
        QVERIFY(window->isModal());
        QCOMPARE(window->size(), test.below.size());
        auto* const key = window->findChild<QPushButton*>("okKey");
        QCOMPARE(key->text(), QString("Ok"));
        for (const QPushButton* const other : window->findChildren<QPushButton*>())
            QVERIFY(other == key || !other->isVisible());
        const HelpBrowser& page = window->Page();
        QCOMPARE(page.geometry().topLeft(), QPoint(0, 0));
        QCOMPARE(page.width(), 500);
        QCOMPARE(page.height() + kBottomBarHeight, 600);
        window->resize(700, 500);
        QTRY_COMPARE(page.width(), 700);
        QCOMPARE(page.height() + kBottomBarHeight, 500);
    }
    void ClosesByKeyAndEscape() {
        for (const bool byKey : {true, false}) {
            TestPage test;
            QPointer<HelpWindow> window = test.Open();
            QVERIFY(window);
            if (byKey) {
                QTest::mouseClick(window->findChild<QPushButton*>("okKey"), Qt::LeftButton);
            } else {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            }
            QTRY_VERIFY(!window);
        }
    }
    void NothingIsShownWithoutAPage() {
        TestPage test;
        test.Write("empty.html", "");
        for (const QString& path : {QString(), QString("/no/such/page.html"),
                                    test.folder.filePath("empty.html"), test.folder.path()}) {
            OpenHelpPage(&test.below, path);
            QVERIFY2(test.below.findChildren<QDialog*>().isEmpty(), qPrintable(path));
            QVERIFY(QApplication::activeModalWidget() == nullptr);
        }
    }
    void LinksStayInThePage() {
        TestPage test;
        HelpWindow* const window = test.Open();
        HelpBrowser& page = window->Page();
        const QUrl source = page.source();
        for (const char* const link : {"http://example.invalid/", "other.html#far", "other.html",
                                       "mailto:a@b", "file:///etc/passwd", "#"}) {
            emit page.anchorClicked(QUrl(link));
            QCOMPARE(page.source(), source);
            QCOMPARE(ScrollOf(*window), 0);
        }
        emit page.anchorClicked(QUrl("#far"));
        QVERIFY(ScrollOf(*window) > 1000);
        QTest::keyClick(&page, Qt::Key_Backspace);
        QCOMPARE(ScrollOf(*window), 0);
        QCOMPARE(page.source(), source);
    }
    void KeysScroll() {
        TestPage test;
        HelpWindow* const window = test.Open();
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(&window->Page()));
        int last = 0;
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End}) {
            QTest::keyClick(QApplication::focusWidget(), key);
            QVERIFY(ScrollOf(*window) > last);
            last = ScrollOf(*window);
        }
        QCOMPARE(last, window->Page().verticalScrollBar()->maximum());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
        QCOMPARE(ScrollOf(*window), 0);
    }
    void FingersScrollAndTap() {
        TestPage test;
        HelpWindow* const window = test.Open();
        QWidget* const page = window->Page().viewport();
        const std::unique_ptr<QPointingDevice> finger(QTest::createTouchDevice());
        QPointingDevice* const device = finger.get();
        QPoint at(200, 400);
        QTest::touchEvent(page, device).press(1, at);
        for (int i = 0; i < 10; ++i) {
            QTest::qWait(10);
            at -= QPoint(0, 30);
            QTest::touchEvent(page, device).move(1, at);
        }
        QTest::touchEvent(page, device).release(1, at);
        QTRY_VERIFY(ScrollOf(*window) > 200);
        QScroller::scroller(page)->stop();
        window->Page().verticalScrollBar()->setValue(0);
        QRect place;  // of the link in the first lines
        for (int x = 0; x < page->width(); ++x) {
            for (int y = 0; y < 60; ++y) {
                if (window->Page().anchorAt({x, y}) == "#far") place |= QRect(x, y, 1, 1);
            }
        }
        const QPoint link = place.center();
        QCOMPARE(window->Page().anchorAt(link), QString("#far"));
        QTest::touchEvent(page, device).press(1, link);
        QTest::qWait(30);
        QTest::touchEvent(page, device).release(1, link);
        QTRY_VERIFY(ScrollOf(*window) > 1000);
    }
    void PicturesFitTheWidth() {
        TestPage test;
        HelpWindow* const window = test.Open();
        const auto fits = [window] {
            return PictureWidth(*window) <= window->Page().viewport()->width() &&
                   window->Page().horizontalScrollBar()->maximum() == 0;
        };
        QVERIFY(fits());
        QVERIFY(PictureWidth(*window) > 400);
        window->resize(300, 600);
        QTRY_VERIFY(PictureWidth(*window) < 300);
        QVERIFY(fits());
        // On a large screen a picture must not fill the whole page.
        window->resize(1600, 600);
        QTRY_COMPARE(PictureWidth(*window), 760.0);
        QVERIFY(fits());
    }
    void AResizeKeepsThePlace() {
        TestPage test;
        HelpWindow* const window = test.Open();
        HelpBrowser& page = window->Page();
        emit page.anchorClicked(QUrl("#far"));
        const auto topBlock = [&page] {
            return page.cursorForPosition(QPoint(20, 20)).block().blockNumber();
        };
        const int before = topBlock();
        window->resize(800, 600);
        QTRY_COMPARE(page.width(), 800);
        QVERIFY(qAbs(topBlock() - before) <= 1);
    }
    void FindsText() {
        TestPage test;
        QPointer<HelpWindow> window = test.Open();
        auto* const line = window->findChild<QLineEdit*>("findText");
        auto* const missing = window->findChild<QLabel*>("notFound");
        QVERIFY(!line->isVisible());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(line->isVisible() && line->hasFocus());
        QTest::keyClicks(line, "NEEDLE");
        QCOMPARE(window->Page().textCursor().selectedText(), QString("needle"));
        const int first = window->Page().textCursor().position();
        QTest::keyClick(line, Qt::Key_Return);
        const int second = window->Page().textCursor().position();
        QVERIFY(second > first);
        QTest::keyClick(line, Qt::Key_Return);  // goes on at the beginning
        QCOMPARE(window->Page().textCursor().position(), first);
        QTest::keyClick(line, Qt::Key_Return, Qt::ShiftModifier);  // goes on at the end
        QCOMPARE(window->Page().textCursor().position(), second);
        QTest::keyClick(line, Qt::Key_F3);
        QCOMPARE(window->Page().textCursor().position(), first);
        QVERIFY(!missing->isVisible());
        QTest::keyClicks(line, "x");
        QVERIFY(missing->isVisible());
        QCOMPARE(window->Page().textCursor().position(), first);
        QTest::keyClick(line, Qt::Key_Backspace);
        QVERIFY(!missing->isVisible());
        QTest::keyClick(line, Qt::Key_Escape);
        QVERIFY(window && window->isVisible() && !line->isVisible());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QTRY_VERIFY(!window);
    }
    void LinksAreReadableInAnyPalette() {
        const QPalette light = QApplication::palette();
        for (const QColor& ground : {QColor(Qt::white), QColor(30, 30, 30), QColor(Qt::black)}) {
            QPalette palette = light;
            palette.setColor(QPalette::Base, ground);
            palette.setColor(QPalette::Link, Qt::blue);
            QApplication::setPalette(palette);
            TestPage test;
            HelpWindow* const window = test.Open();
            const QTextBlock block = window->Page().document()->firstBlock();
            QColor link;
            for (auto place = block.begin(); !place.atEnd(); ++place) {
                const QTextCharFormat format = place.fragment().charFormat();
                if (format.isAnchor()) link = format.foreground().color();
            }
            QVERIFY(ContrastRatio(link, ground) >= 4.4);
        }
        QApplication::setPalette(light);
    }
    void IsInTheLanguageOfTheSystem() {
        const std::pair<const char*, const char*> rows[] = {
            {"en_US.UTF-8", "help/0409/index.html"}, {"ru_RU.UTF-8", "help/0419/index.html"},
            {"ru_UA.UTF-8", "help/0419/index.html"}, {"de_DE.UTF-8", "help/0409/index.html"},
            {"C", "help/0409/index.html"},           {"tlh", "help/0409/index.html"}};
        for (const auto& [locale, page] : rows) {
            // The system's language is read once per process.
            QProcess process;
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.remove("LANGUAGE");
            environment.insert("LC_ALL", locale);
            process.setProcessEnvironment(environment);
            process.start(QCoreApplication::applicationFilePath(), {kPrintPage});
            QVERIFY(process.waitForFinished());
            const QByteArray printed = process.readAllStandardOutput();
            QVERIFY2(printed.endsWith(page), locale + (": " + printed));
        }
    }
    void TheProgramOpensIt() {
        TestProgram program;
        program.Start();
        const auto check = [](QWidget& window) {
            QTest::keyClick(&window, Qt::Key_F1);
            QPointer<QDialog> help = window.findChild<QDialog*>("helpWindow");
            QVERIFY(help && help->isVisible());
            QTest::keyClick(help, Qt::Key_Escape);
            QTRY_VERIFY(!help);
        };
        check(program.Editor());
        QVERIFY(program.Editor().Run(CommandId::EditHelp));
        QPointer<QDialog> help = program.Editor().findChild<QDialog*>("helpWindow");
        QVERIFY(help);
        help->close();
        QTRY_VERIFY(!help);
        program.ClearLines();
        program.Line(1)->setText("x");
        program.Entry(1).selected = 1;
        program.OpenGraph();
        check(program.Graph());
        program.Graph().OpenPopup({10, 10});
        QMenu* const popup = OpenedMenu(program.Graph(), "fullScreenPopup");
        ActionOf(*popup, CommandId::Help)->trigger();
        popup->close();
        QVERIFY(program.Graph().findChild<QDialog*>("helpWindow") != nullptr);
    }
    void EveryPlaceOfTheRealPageIsReached() {
        QWidget below;
        below.resize(480, 640);
        below.show();
        OpenHelpPage(&below, SystemHelpPage());
        auto* const window = static_cast<HelpWindow*>(below.findChild<QDialog*>("helpWindow"));
        QVERIFY(window != nullptr && QTest::qWaitForWindowActive(window));
        HelpBrowser& page = window->Page();
        QCOMPARE(page.horizontalScrollBar()->maximum(), 0);
        int last = 0;
        for (const char* const place :
             {"first-steps", "types",    "popup",    "main-menu", "operators",  "functions",
              "messages",    "points",   "method-0", "method-12", "graph-menu", "zoom",
              "quick",       "limits",   "trace",    "analysis",  "options",    "calculator",
              "files",       "keyboard", "gestures"}) {
            emit page.anchorClicked(QUrl(QString("#") + place));
            QVERIFY2(ScrollOf(*window) > last, place);
            last = ScrollOf(*window);
        }
    }
};

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc == 2 && QString(argv[1]) == kPrintPage) {
        std::fputs(SystemHelpPage().toUtf8().constData(), stdout);
        return 0;
    }
    HelpWindowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "help_window_test.moc"
