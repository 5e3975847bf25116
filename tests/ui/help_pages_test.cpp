// The help pages: well-formed, complete, and with the same contents in both languages.
#include <QDirIterator>
#include <QFile>
#include <QImageReader>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>
#include <set>

#include "expr/names.h"
#include "resources/edit_popup.h"
#include "resources/menus.h"
#include "resources/methods.h"
#include "resources/short_cuts.h"
#include "resources/strings.h"
#include "ui/parts/qt_text.h"

using namespace kalvex;

namespace {

/// The parts of a page that are compared.
struct Page {
    QString error;      ///< of the XML reader
    QString words;      ///< all that a reader sees, blanks simplified
    QStringList codes;  ///< contents of <code>
    QStringList bold;   ///< contents of <b>
    QStringList cells;  ///< contents of <td>
    QStringList ids;
    QStringList links;
    QStringList pictures;
    QStringList tags;
    QStringList unknownStyles;
};

QString PagePath(const QString& language) {
    return QString(KALVEX_HELP) + "/" + language + "/index.html";
}

void TakeStart(Page& page, const QXmlStreamReader& xml) {
    const QString tag = xml.name().toString();
    const QXmlStreamAttributes attributes = xml.attributes();
    page.tags += tag;
    if (attributes.hasAttribute("id")) page.ids += attributes.value("id").toString();
    if (tag == "a") page.links += attributes.value("href").toString();
    if (tag == "img") {
        page.pictures += attributes.value("src").toString();
        if (attributes.value("alt").isEmpty()) page.unknownStyles += "img without alt";
    }
    for (const char* const colour : {"style", "color", "bgcolor", "width", "height"})
        if (attributes.hasAttribute(colour)) page.unknownStyles += tag + " " + colour;
}

Page ReadPage(const QString& language) {
    Page page;
    QFile file(PagePath(language));
    if (!file.open(QIODevice::ReadOnly)) {
        page.error = "cannot be read";
        return page;
    }
    QXmlStreamReader xml(&file);
    QStringList open;
    QString inside;
    QString cell;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            open += xml.name().toString();
            TakeStart(page, xml);
            if (open.last() == "code" || open.last() == "b") inside.clear();
            if (open.last() == "td") cell.clear();
        } else if (xml.isCharacters()) {
            if (!open.contains("head")) page.words += xml.text();
            inside += xml.text();
            cell += xml.text();
        } else if (xml.isEndElement()) {
            if (open.last() == "code") page.codes += inside.simplified();
            if (open.last() == "b") page.bold += inside.simplified();
            if (open.last() == "td") page.cells += cell.simplified();
            open.removeLast();
        }
    }
    page.error = xml.errorString();
    page.words = page.words.simplified();
    return page;
}

void CollectWords(const Menu& menu, QStringList& words) {
    for (const MenuEntry& entry : menu) {
        if (!entry.text.empty()) words += ToQString(entry.text).trimmed();
        CollectWords(entry.children, words);
    }
}

const QStringList kLanguages = {"0409", "0419"};

}  // namespace

class HelpPagesTest final : public QObject {
    Q_OBJECT

  private slots:
    void AreWellFormed() {
        for (const QString& language : kLanguages) {
            const Page page = ReadPage(language);
            QVERIFY2(page.error.isEmpty(), qPrintable(language + ": " + page.error));
            QVERIFY(page.words.size() > 10000);
            // The page sets no colours and sizes, so that those of the desktop apply.
            QCOMPARE(page.unknownStyles, QStringList());
        }
    }
    void UseOnlyWhatTheBrowserKnows() {
        const std::set<QString> known = {
            "html", "head", "meta", "title", "style", "body", "h1",  "h2",    "h3", "p",  "ul",
            "ol",   "li",   "a",    "b",     "code",  "pre",  "img", "table", "tr", "th", "td"};
        for (const QString& language : kLanguages) {
            for (const QString& tag : ReadPage(language).tags)
                QVERIFY2(known.count(tag) == 1, qPrintable(tag));
        }
    }
    void HaveNoDeadLink() {
        for (const QString& language : kLanguages) {
            const Page page = ReadPage(language);
            QVERIFY(page.links.size() > 30);
            for (const QString& link : page.links) {
                QVERIFY2(link.startsWith('#') && page.ids.contains(link.mid(1)), qPrintable(link));
            }
            const std::set<QString> once(page.ids.begin(), page.ids.end());
            QCOMPARE(once.size(), static_cast<std::size_t>(page.ids.size()));
        }
    }
    void HaveEveryPicture() {
        std::set<QString> shown;
        for (const QString& language : kLanguages) {
            for (const QString& picture : ReadPage(language).pictures) {
                const QString path = QFileInfo(PagePath(language)).path() + "/" + picture;
                QVERIFY2(QImageReader(path).canRead(), qPrintable(path));
                shown.insert(QFileInfo(path).fileName());
            }
        }
        // Every installed picture is used by a page.
        QDirIterator files(QString(KALVEX_HELP) + "/images", QDir::Files);
        while (files.hasNext()) {
            const QString name = QFileInfo(files.next()).fileName();
            QVERIFY2(shown.count(name) == 1, qPrintable(name));
        }
    }
    void AreBuiltAlike() {
        const Page english = ReadPage("0409");
        const Page russian = ReadPage("0419");
        QCOMPARE(english.ids, russian.ids);
        QCOMPARE(english.tags, russian.tags);
        QCOMPARE(english.links, russian.links);
        QCOMPARE(english.pictures, russian.pictures);
    }
    void NameEveryFunction() {
        for (const QString& language : kLanguages) {
            const QStringList codes = ReadPage(language).codes;
            for (const FunctionName& function : kFunctionNames) {
                // One row of the table: the call with as many arguments as the function takes.
                const QRegularExpression call("^" + ToQString(function.name) + "\\(([a-z],){" +
                                              QString::number(function.arity - 1) + "}x\\)$");
                const QRegularExpression beta("^Beta\\(a,b\\)$");
                const bool isBeta = function.name == u"Beta";
                QVERIFY2(codes.indexOf(isBeta ? beta : call) >= 0,
                         qPrintable(language + ": " + ToQString(function.name)));
            }
        }
    }
    void NameEveryMenuEntry() {
        QStringList words = {"Draw",     "Trace",  "Analyze", "Ok",   "Escape",
                             "Unselect", "Export", "Calc",    "Save", "Cancel"};
        for (const Menu& menu :
             {MainMenu(), GraphMenu(), FullScreenPopup(), ExportMenuOfPages(), EditPopup()})
            CollectWords(menu, words);
        words.removeDuplicates();
        for (const QString& language : kLanguages) {
            const Page page = ReadPage(language);
            for (const QString& word : words) {
                // A method is the heading of its section, a function stands in the table or the
                // note on the popup menu, everything else is set in bold.
                const QRegularExpression heading("\\d+\\. [^.]*" +
                                                 QRegularExpression::escape(word));
                const QRegularExpression call("^" + QRegularExpression::escape(word) + "(\\(|$)");
                QVERIFY2(page.bold.contains(word) || page.words.contains(heading) ||
                             !page.codes.filter(call).isEmpty(),
                         qPrintable(language + ": " + word));
            }
        }
    }
    void NameEveryMethod() {
        Menu methods;
        for (const MenuEntry& entry : MainMenu()) {
            if (entry.id == CommandId::ApproxTypeMenu) methods = entry.children;
        }
        QStringList words;
        for (const MenuEntry& entry : methods) {
            if (entry.children.empty()) words += ToQString(entry.text);
            for (const MenuEntry& child : entry.children)
                words += ToQString(entry.text) + ", " + ToQString(child.text);
        }
        QCOMPARE(words.size(), qsizetype{kMethodCount});
        for (const QString& language : kLanguages) {
            const Page page = ReadPage(language);
            for (int code = 0; code < kMethodCount; ++code) {
                const QString heading = QString("%1. %2 ").arg(code).arg(words.at(code));
                QVERIFY2(page.words.contains(heading), qPrintable(language + ": " + heading));
                QVERIFY(page.ids.contains("method-" + QString::number(code)));
            }
        }
    }
    void NameEveryShortCut() {
        // Short cuts that differ only in their last key share one row of the page.
        const QRegularExpression run("^(Alt\\+\\d|Ctrl\\+\\d|Ctrl\\+M, .|[1-7])$");
        for (const QString& language : kLanguages) {
            const QStringList cells = ReadPage(language).cells;
            for (const auto table : {EditorShortCuts(), GraphShortCuts(), ReportShortCuts()}) {
                for (const ShortCut& shortCut : table) {
                    const QString keys = ToQString(shortCut.keys);
                    if (run.match(keys).hasMatch()) continue;
                    const QRegularExpression cell("(^|, )" + QRegularExpression::escape(keys) +
                                                  "($|, | \\()");
                    QVERIFY2(!cells.filter(cell).isEmpty(), qPrintable(language + ": " + keys));
                }
            }
            for (const char* const end : {"Alt\\+1 .*Alt\\+9", "Ctrl\\+1 .*Ctrl\\+5",
                                          "Ctrl\\+M, .*0 .*9, A, B, C", "1 .* 7"})
                QVERIFY2(!cells.filter(QRegularExpression(end)).isEmpty(), end);
        }
    }
    void QuoteMessagesAsTheyAre() {
        const StringId ids[] = {
            StringId::EmptyString,        StringId::TooManyClosing,
            StringId::UnevenBrackets,     StringId::BadBeginning,
            StringId::NextTwoCharacters,  StringId::UnknownLexeme,
            StringId::SignBeforeClosing,  StringId::SignAfterOpening,
            StringId::NameWithoutBracket, StringId::WrongNumberOfCommas,
            StringId::CommaPlacement,     StringId::ParametricNeedsTwo,
            StringId::ErrorInFile,
        };
        for (const QString& language : kLanguages) {
            const QString words = ReadPage(language).words;
            for (const StringId id : ids) {
                const QString text = ToQString(Text(id)).simplified();
                QVERIFY2(words.contains(text), qPrintable(language + ": " + text));
            }
        }
    }
};

QTEST_MAIN(HelpPagesTest)
#include "help_pages_test.moc"
