#include "ui/editor/completion_list.h"

#include <QTest>

using namespace kalvex;

class CompletionListTest final : public QObject {
    Q_OBJECT
  private slots:
    void Places() {
        const QRect room(0, 0, 400, 300);
        const struct {
            QRect line;
            int left;
            QSize wanted;
            QRect place;
        } rows[] = {
            {{100, 20, 300, 40}, 120, {120, 160}, {120, 60, 120, 160}},    // below
            {{100, 200, 300, 40}, 120, {120, 160}, {120, 40, 120, 160}},   // above
            {{100, 140, 300, 40}, 120, {120, 200}, {120, 0, 120, 140}},    // more room above
            {{100, 100, 300, 40}, 120, {120, 200}, {120, 140, 120, 160}},  // more room below
            {{100, 100, 300, 40}, 120, {120, 160}, {120, 140, 120, 160}},  // fits exactly
            {{100, 20, 300, 40}, 390, {120, 80}, {280, 60, 120, 80}},      // right edge
            {{100, 20, 300, 40}, -9, {120, 80}, {0, 60, 120, 80}},
            {{100, 20, 300, 40}, 50, {900, 80}, {0, 60, 400, 80}},
        };
        for (const auto& row : rows) {
            QCOMPARE(PlaceList(row.line, row.left, row.wanted, room), row.place);
            QVERIFY(room.contains(row.place));
        }
    }
    void NoRoom() { QVERIFY(PlaceList({0, 0, 100, 40}, 0, {120, 80}, {0, 0, 100, 40}).isEmpty()); }
    void HighlightingIsNotChoosing() {
        QWidget window;
        CompletionList list(&window);
        QStringList chosen;
        connect(&list, &CompletionList::Chosen, this,
                [&chosen](const QString& name) { chosen += name; });
        list.Fill({u"Ci", u"Chi", u"Cf"});
        QCOMPARE(list.Highlighted(), -1);
        list.Highlight(2);
        QCOMPARE(list.Highlighted(), 2);
        QVERIFY(chosen.isEmpty());
        list.setCurrentRow(1);
        QCOMPARE(chosen, QStringList{"Chi"});
        list.Fill({u"sin"});
        QCOMPARE(list.Highlighted(), -1);
        QCOMPARE(chosen.size(), 1);
    }
    void TheHighlightShows() {
        QWidget window;
        CompletionList list(&window);
        list.Fill({u"Ci", u"Chi"});
        list.resize(list.WantedSize());
        const QImage plain = list.grab().toImage();
        list.Highlight(1);
        const QImage lit = list.grab().toImage();
        const QPoint inside = list.visualItemRect(list.item(1)).center();
        const QPoint at(list.width() - 12, inside.y());
        QVERIFY(plain.pixel(at) != lit.pixel(at));
        QCOMPARE(lit.pixelColor(at), list.palette().highlight().color());
    }
    void WantedSizeShowsEveryRow() {
        QWidget window;
        CompletionList list(&window);
        list.Fill({u"Ci", u"Chi", u"Cf", u"Cheb"});
        QVERIFY(list.WantedSize().height() >= 4 * 40);
        QVERIFY(list.WantedSize().width() >= 120);
    }
};

QTEST_MAIN(CompletionListTest)
#include "completion_list_test.moc"
