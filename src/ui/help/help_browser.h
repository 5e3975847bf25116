// The view of the help page.
#pragma once

#include <QHash>
#include <QImage>
#include <QTextBrowser>

namespace kalvex {

/// Shows a page in the system's colours, as one column in the middle with pictures as wide as fits.
/// Links lead only to places of the page itself; any other does nothing.
class HelpBrowser final : public QTextBrowser {
  public:
    explicit HelpBrowser(QWidget* parent);
    ~HelpBrowser() override;

    /// False when there is no such file or nothing in it.
    [[nodiscard]] bool ShowPage(const QString& path);
    /// Selects the next place of a text, or the one before, and goes on at the other end of the
    /// page. With `here` the selected place itself counts. False when the page does not contain the
    /// text.
    [[nodiscard]] bool FindText(const QString& text, bool forward, bool here = false);

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void FollowLink(const QUrl& link);
    void SetLinkColor();
    [[nodiscard]] QImage Fitted(const QImage& picture) const;
    [[nodiscard]] int ColumnWidth() const;
    void FitPictures();
    void CentreColumn();
    void FitColumn();

    QUrl page;
    QHash<QUrl, QImage> pictures;  ///< unscaled
    int fittedWidth = 0;
};

}  // namespace kalvex
