// How far the lines of a PDF page reach.
#pragma once

#include <QByteArray>
#include <QRectF>
#include <QSizeF>
#include <QStringList>
#include <QTransform>
#include <QtEndian>
#include <vector>

namespace kalvex {

/// The size of the page in points; empty when the file does not say it.
inline QSizeF PdfPageSize(const QByteArray& pdf) {
    const qsizetype at = pdf.indexOf("/MediaBox [");
    const QStringList numbers =
        QString::fromLatin1(pdf.mid(at + 11, pdf.indexOf(']', at) - at - 11))
            .simplified()
            .split(' ');
    if (at < 0 || numbers.size() != 4) return {};
    return {numbers[2].toDouble(), numbers[3].toDouble()};
}

/// The drawing commands of the page: the first compressed stream with a path in it.
inline QStringList PdfCommands(const QByteArray& pdf) {
    for (qsizetype at = pdf.indexOf("stream\n"); at >= 0; at = pdf.indexOf("stream\n", at + 1)) {
        const qsizetype first = at + 7;
        QByteArray packed(4, '\0');
        qToBigEndian<quint32>(1 << 20, packed.data());
        packed += pdf.mid(first, pdf.indexOf("endstream", first) - first);
        const QString text = QString::fromLatin1(qUncompress(packed)).simplified();
        if (text.contains(" cm ") && text.contains(" l ")) return text.split(' ');
    }
    return {};
}

/// The rectangle around the points of all lines that are drawn, in points from the lower left
/// corner of the page. Paths that only clip are left out.
inline QRectF PdfExtent(const QByteArray& pdf) {
    std::vector<QTransform> saved;
    QTransform now;
    std::vector<QPointF> path;
    double left = 1e9, right = -1e9, bottom = 1e9, top = -1e9;
    const QStringList words = PdfCommands(pdf);
    const auto number = [&](qsizetype i) { return words.value(i).toDouble(); };
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        if (word == "q") saved.push_back(now);
        if (word == "Q" && !saved.empty()) {
            now = saved.back();
            saved.pop_back();
        }
        if (word == "cm")
            now = QTransform(number(i - 6), number(i - 5), number(i - 4), number(i - 3),
                             number(i - 2), number(i - 1)) *
                  now;
        if (word == "m" || word == "l")
            path.push_back(now.map(QPointF(number(i - 2), number(i - 1))));
        if (word == "S" || word.startsWith('B')) {
            for (const QPointF& point : path) {
                left = qMin(left, point.x());
                right = qMax(right, point.x());
                bottom = qMin(bottom, point.y());
                top = qMax(top, point.y());
            }
        }
        if (word == "S" || word == "n" || word.startsWith('f') || word.startsWith('B'))
            path.clear();
    }
    return {left, bottom, right - left, top - bottom};
}

}  // namespace kalvex
