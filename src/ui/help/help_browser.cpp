// The page sets no text colours: all come from the palette. The colour of the links is changed
// until it has enough contrast, which some dark palettes lack. Pictures are scaled here and not by
// the page, so that they are smooth at any width and any density of the screen.
#include "ui/help/help_browser.h"

#include <QAbstractTextDocumentLayout>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScrollBar>
#include <QScroller>
#include <QTextBlock>
#include <QTextFrame>

#include "ui/parts/contrast.h"
#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

constexpr double kMargin = 12.0;
constexpr double kIndent = 24.0;
constexpr double kTextScale = 1.1;     // for comfortable reading
constexpr double kLinkContrast = 4.5;  // the guidelines' bound for ordinary text
constexpr int kWidestColumn = 760;     // longer lines are hard to read

bool IsPlus(int key) {
    return key == Qt::Key_Plus || key == Qt::Key_Equal;
}

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
    setObjectName("helpPage");
    setAccessibleName(TextOf(StringId::MenuHelp));
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    setOpenExternalLinks(false);
    document()->setDocumentMargin(kMargin);
    document()->setIndentWidth(kIndent);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * kTextScale);
    setFont(large);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::FollowLink);
}

// Qt asks the recogniser of the gesture about every touch until the gesture is removed.
HelpBrowser::~HelpBrowser() {
    QScroller::ungrabGesture(viewport());
}

bool HelpBrowser::ShowPage(const QString& path) {
    if (!QFileInfo(path).isFile()) return false;
    page = QUrl::fromLocalFile(path);
    SetLinkColor();
    setSource(page, QTextDocument::HtmlResource);
    CentreColumn();
    return !document()->isEmpty();
}

void HelpBrowser::SetLinkColor() {
    const QColor link = ReadableColor(palette().color(QPalette::Link),
                                      palette().color(QPalette::Base), kLinkContrast);
    document()->setDefaultStyleSheet(QString("a { color: %1; }").arg(link.name()));
}

void HelpBrowser::FollowLink(const QUrl& link) {
    const QUrl target = page.resolved(link);
    if (!target.fragment().isEmpty() && target.matches(page, QUrl::RemoveFragment))
        setSource(target, QTextDocument::HtmlResource);
}

bool HelpBrowser::FindText(const QString& text, bool forward, bool here) {
    if (text.isEmpty()) return true;
    const QTextCursor before = textCursor();
    if (here) {
        QTextCursor start = textCursor();
        start.setPosition(start.selectionStart());
        setTextCursor(start);
    }
    const QTextDocument::FindFlags way =
        forward ? QTextDocument::FindFlags() : QTextDocument::FindBackward;
    if (find(text, way)) return true;
    QTextCursor around = before;
    around.movePosition(forward ? QTextCursor::Start : QTextCursor::End);
    setTextCursor(around);
    if (find(text, way)) return true;
    setTextCursor(before);
    return false;
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
    const QUrl place = page.resolved(name);
    const QImage picture(place.toLocalFile());
    pictures.insert(place, picture);
    return Fitted(picture);
}

int HelpBrowser::ColumnWidth() const {
    return qBound(1, viewport()->width() - qRound(2 * kMargin), kWidestColumn);
}

QImage HelpBrowser::Fitted(const QImage& picture) const {
    if (picture.isNull()) return picture;
    const int width = qMin(picture.width(), ColumnWidth());
    const double density = devicePixelRatioF();
    QImage fitted =
        picture.scaledToWidth(qMax(qRound(width * density), 1), Qt::SmoothTransformation);
    fitted.setDevicePixelRatio(density);
    return fitted;
}

void HelpBrowser::FitPictures() {
    for (auto picture = pictures.cbegin(); picture != pictures.cend(); ++picture)
        document()->addResource(QTextDocument::ImageResource, picture.key(),
                                Fitted(picture.value()));
    document()->markContentsDirty(0, document()->characterCount());
}

void HelpBrowser::CentreColumn() {
    const double margin = (viewport()->width() - ColumnWidth()) / 2.0;
    QTextFrameFormat format = document()->rootFrame()->frameFormat();
    format.setLeftMargin(margin);
    format.setRightMargin(margin);
    document()->rootFrame()->setFrameFormat(format);
}

void HelpBrowser::FitColumn() {
    if (fittedWidth == viewport()->width()) return;
    fittedWidth = viewport()->width();
    // The paragraph at the top of the view stays at the top.
    const bool scrolled = verticalScrollBar()->value() > 0;
    const QTextBlock top = cursorForPosition(QPoint(viewport()->width() / 2, 0)).block();
    FitPictures();
    CentreColumn();
    if (!scrolled) return;
    verticalScrollBar()->setValue(
        qRound(document()->documentLayout()->blockBoundingRect(top).top()));
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    FitColumn();
}

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || page.isEmpty()) return;
    SetLinkColor();
    reload();
    CentreColumn();
}

void HelpBrowser::keyPressEvent(QKeyEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        if (IsPlus(event->key())) return zoomIn();
        if (event->key() == Qt::Key_Minus) return zoomOut();
    }
    if (event->key() == Qt::Key_Backspace) return backward();
    QTextBrowser::keyPressEvent(event);
}

}  // namespace kalvex
