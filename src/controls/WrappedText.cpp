// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/WrappedText.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {
constexpr int maxLines = 6;
constexpr int minCharacters = 20;
} // namespace

WrappedText::WrappedText(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    document()->setDocumentMargin(0);
    viewport()->setAutoFillBackground(false);
    connect(this, &QPlainTextEdit::textChanged, this, &WrappedText::fitHeight);
}

QSize WrappedText::sizeHint() const {
    return {minCharacters * fontMetrics().averageCharWidth(), m_lines * lineHeight() + 2};
}

/// As the lines are laid out, which is more than the font's own spacing for some sizes.
int WrappedText::lineHeight() const {
    const QTextBlock first = document()->firstBlock();
    const int lines = std::max(1, first.layout()->lineCount());
    return std::max(fontMetrics().lineSpacing(), int(std::ceil(blockBoundingRect(first).height() / lines)));
}

void WrappedText::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    fitHeight();
    verticalScrollBar()->setValue(0); // the text starts at its first line
}

void WrappedText::fitHeight() {
    const int lines = std::clamp(int(document()->size().height()), 1, maxLines);
    if (lines == m_lines)
        return;
    m_lines = lines;
    updateGeometry();
}

} // namespace tarsel
