#include "ui/editor/line_texts.h"

#include <QTest>
#include <tuple>

using namespace kalvex;

class LineTextsTest final : public QObject {
    Q_OBJECT
  private slots:
    void Names() {
        const std::pair<int, const char*> rows[] = {
            {0, "Function 3 Y(x)="}, {1, "Function 3 r(x)="}, {2, "Function 3 Y(x)="},
            {3, "Function 3 X;Y="},  {4, "Function 3 F="},    {5, "Function 3 G(x,y)="},
        };
        for (const auto& [type, name] : rows) {
            FunctionEntry entry;
            entry.type = static_cast<EquationType>(type);
            QCOMPARE(NameOfLine(2, entry), QString(name));
        }
    }
    void Descriptions() {
        const std::tuple<int, int, const char*, const char*> rows[] = {
            {1, 0, "", "Red, not selected"},
            {1, 1, "", "Red, selected"},
            {9, 1, "", "Great, selected"},
            {0, 1, "", "selected"},
            {10, 0, "", "not selected"},
            {-2147483647, 0, "", "not selected"},
            {5, 0, "cut", "Blue, not selected, cut"},
        };
        for (const auto& [color, selected, hint, described] : rows) {
            FunctionEntry entry;
            entry.color = color;
            entry.selected = static_cast<std::uint8_t>(selected);
            QCOMPARE(DescriptionOfLine(entry, hint), QString(described));
        }
    }
    void Hints() {
        QVERIFY(HintOfLine(std::u16string(49, u'x')).isEmpty());
        QCOMPARE(HintOfLine(std::u16string(50, u'x')),
                 QString("only the first 50 characters are kept for the next start"));
    }
};

QTEST_APPLESS_MAIN(LineTextsTest)
#include "line_texts_test.moc"
