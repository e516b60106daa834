// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/forms/ManualView.h"

#include "help/forms/ManualStyle.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPointer>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

namespace tarsel {

namespace {

constexpr int settlingTime = 120; // ms
constexpr int leastPoints = 6, mostPoints = 40;

} // namespace

ManualView::ManualView(QWidget* parent) : QTextBrowser(parent) {
    setOpenLinks(false); // the window walks its own history
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(tr("Page of the manual"));
    m_settle.setSingleShot(true);
    m_settle.setInterval(settlingTime);
    connect(&m_settle, &QTimer::timeout, this, &ManualView::layOutAgain);
}

void ManualView::showPage(const ManualPage& page, const QString& anchor) {
    m_page = page;
    layOut();
    scrollTo(anchor);
}

/// Into a document that isn't on show: one that is would be laid out again with every row of a table.
void ManualView::layOut() {
    m_settle.stop();
    m_laidOutWidth = viewport()->width();
    QFont font = QApplication::font();
    font.setPointSize(std::clamp(font.pointSize() + m_enlarged, leastPoints, mostPoints));
    auto* page = new QTextDocument(this); // which asks its parent for pictures
    page->setUndoRedoEnabled(false);
    page->setDefaultFont(font);
    page->setMarkdown(m_page.markdown, QTextDocument::MarkdownDialectGitHub);
    styleManual(*page, palette());
    const QPointer<QTextDocument> last = document();
    setExtraSelections({}); // their cursors belong to that document
    setDocument(page);      // deletes only the document that it was made with
    delete last;
    mark();
}

/// The line at the top stays there.
void ManualView::layOutAgain() {
    if (m_page.name.isEmpty())
        return;
    const int top = m_topBlock;
    layOut();
    if (top > 0)
        putOnTop(document()->findBlockByNumber(top));
}

void ManualView::scrollTo(const QString& anchor) {
    verticalScrollBar()->setValue(0);
    m_topBlock = m_placed = 0;
    if (anchor.isEmpty())
        return;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || headingAnchor(block.text()) != anchor)
            continue;
        setTextCursor(QTextCursor(block)); // Tab and screen readers go on from there
        putOnTop(block);
        return;
    }
}

void ManualView::scrollTo(int value) {
    if (value > verticalScrollBar()->maximum())
        finishLayout();
    verticalScrollBar()->setValue(value);
}

/// Qt lays a long page out bit by bit, and until then the scroll bar ends where it has come to.
void ManualView::finishLayout() {
    QAbstractTextDocumentLayout* layout = document()->documentLayout();
    Q_EMIT layout->documentSizeChanged(layout->documentSize());
}

void ManualView::putOnTop(const QTextBlock& block) {
    if (!block.isValid())
        return;
    finishLayout();
    verticalScrollBar()->setValue(int(document()->documentLayout()->blockBoundingRect(block).top()));
    m_topBlock = block.blockNumber();
    m_placed = verticalScrollBar()->value();
}

/// Before the page is laid out in another way, which can move the scroll bar.
void ManualView::rememberTop() {
    if (!m_settle.isActive() && verticalScrollBar()->value() != m_placed)
        m_topBlock = cursorForPosition({}).blockNumber();
}

void ManualView::markWords(const QStringList& words) {
    m_words = words;
    mark();
}

void ManualView::mark() {
    QList<ExtraSelection> marks;
    QTextCharFormat format;
    format.setBackground(isDark(palette()) ? QColor(110, 90, 20) : QColor(255, 236, 140));
    for (const QString& word : m_words)
        for (QTextCursor found = document()->find(word); !found.isNull();
             found = document()->find(word, found))
            marks.push_back({found, format});
    setExtraSelections(marks);
}

void ManualView::enlarge(int points) {
    const int usual = QApplication::font().pointSize();
    m_enlarged = std::clamp(points, leastPoints - usual, mostPoints - usual);
    rememberTop();
    layOutAgain();
}

QString ManualView::picturePath(const QString& name) const {
    const QString folder = QFileInfo(m_page.path).path() + QLatin1Char('/');
    const QString dark = QString(name).replace(QLatin1String("/light-"), QLatin1String("/dark-"));
    return folder + (isDark(palette()) && QFile::exists(folder + dark) ? dark : name);
}

QVariant ManualView::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource)
        return {};
    QImage picture(picturePath(name.toString()));
    if (picture.isNull())
        return {};
    const int room = std::max(100, m_laidOutWidth - int(2.5 * document()->documentMargin()));
    const int width = std::min(picture.width(), room);
    const qreal ratio = devicePixelRatioF();
    const int pixels = std::min(picture.width(), int(width * ratio));
    if (pixels < picture.width())
        picture = picture.scaledToWidth(pixels, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(qreal(pixels) / width);
    return picture;
}

void ManualView::resizeEvent(QResizeEvent* event) {
    rememberTop();
    QTextBrowser::resizeEvent(event);
    if (viewport()->width() != m_laidOutWidth)
        m_settle.start();
}

void ManualView::changeEvent(QEvent* event) {
    const bool isNewLook =
        event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationFontChange;
    if (isNewLook)
        rememberTop();
    QTextBrowser::changeEvent(event);
    if (isNewLook)
        m_settle.start();
}

} // namespace tarsel
