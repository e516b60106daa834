// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "help/ManualPage.h"

#include <QTextBrowser>
#include <QTimer>

namespace tarsel {

/// Shows a page of the manual in the colours and the font of the desktop. Pictures are reduced to the width
/// of the view; of a picture "light-x.png" the dark palette has "dark-x.png" where it is there.
class ManualView final : public QTextBrowser {
    Q_OBJECT
public:
    explicit ManualView(QWidget* parent = nullptr);

    /// From the heading on that the anchor names; from its start without one, or for an unknown one.
    void showPage(const ManualPage& page, const QString& anchor);
    void scrollTo(int value); ///< of the scroll bar
    const QString& pageName() const { return m_page.name; }
    /// Marks these words on the page, and on those to come.
    void markWords(const QStringList& words);
    /// The number of points by which the font is larger than usual.
    void enlarge(int points);
    int enlarged() const { return m_enlarged; }

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    void layOutAgain();
    void scrollTo(const QString& anchor);
    void finishLayout();
    void putOnTop(const QTextBlock& block);
    void rememberTop();
    void mark();
    QString picturePath(const QString& name) const;

    ManualPage m_page;
    QStringList m_words;
    int m_enlarged = 0;
    int m_laidOutWidth = 0;
    int m_topBlock = 0; ///< number of the block that is to be at the top
    int m_placed = 0;   ///< value of the scroll bar that has put it there
    QTimer m_settle;    ///< pictures are scaled again when the width rests
};

} // namespace tarsel
