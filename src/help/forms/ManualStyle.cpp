// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/forms/ManualStyle.h"

#include "controls/PaleText.h"

#include <QFontMetricsF>
#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>
#include <utility>
#include <vector>

namespace tarsel {

namespace {

/// A colour between the two, `share` of 256 of the second.
QColor between(const QColor& one, const QColor& other, int share) {
    const auto mixed = [share](int a, int b) { return a + (b - a) * share / 256; };
    return {mixed(one.red(), other.red()), mixed(one.green(), other.green()),
            mixed(one.blue(), other.blue())};
}

void styleTable(QTextTable& table, const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base), text = palette.color(QPalette::Text);
    QTextTableFormat format = table.format();
    format.setBorder(1);
    format.setBorderBrush(between(base, text, 70));
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(true);
    format.setCellPadding(5);
    format.setCellSpacing(0);
    format.setTopMargin(4);
    format.setBottomMargin(10);
    table.setFormat(format);
    for (int column = 0; column < table.columns(); ++column) {
        QTextTableCell cell = table.cellAt(0, column);
        QTextCharFormat head = cell.format();
        head.setBackground(between(base, text, 28));
        cell.setFormat(head);
    }
}

bool isCode(const QTextBlock& block) {
    return block.isValid() && block.blockFormat().nonBreakableLines();
}

void styleBlock(const QTextBlock& block, const QPalette& palette, qreal lineHeight) {
    const qreal room = lineHeight * 0.55; // below a paragraph
    QTextBlockFormat format = block.blockFormat();
    if (format.headingLevel() > 0) {
        format.setTopMargin(format.headingLevel() == 1 ? 0 : lineHeight * 1.1);
        format.setBottomMargin(lineHeight * 0.35);
    } else if (isCode(block)) {
        format.setBackground(between(palette.color(QPalette::Base), palette.color(QPalette::Text), 18));
        format.setLeftMargin(lineHeight * 0.5);
        format.setTopMargin(0);
        format.setBottomMargin(isCode(block.next()) ? 0 : lineHeight * 0.8);
    } else {
        if (!block.text().contains(QChar::ObjectReplacementCharacter)) // a picture is a very high line
            format.setLineHeight(118, QTextBlockFormat::ProportionalHeight);
        format.setTopMargin(0);
        format.setBottomMargin(block.textList() ? lineHeight * 0.2 : room);
    }
    QTextCursor(block).setBlockFormat(format);
}

/// The palette's own colour, or a lighter one where that is hard to read on its ground.
QColor linkColor(const QPalette& palette) {
    constexpr double easyToRead = 4.5;
    QColor color = palette.color(QPalette::Link);
    for (int step = 0; step < 16 && contrastOf(color, palette.color(QPalette::Base)) < easyToRead; ++step)
        color = between(color, palette.color(QPalette::Text), 32);
    return color;
}

void colorLinks(QTextDocument& document, const QColor& color) {
    QTextCharFormat format;
    format.setForeground(color);
    std::vector<std::pair<int, int>> links; // changed afterwards, since a change splits the fragments
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto each = block.begin(); !each.atEnd(); ++each)
            if (const QTextFragment text = each.fragment(); text.charFormat().isAnchor())
                links.emplace_back(text.position(), text.position() + text.length());
    for (const auto& [from, to] : links) {
        QTextCursor cursor(&document);
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(format);
    }
}

} // namespace

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

void styleManual(QTextDocument& document, const QPalette& palette) {
    const qreal lineHeight = QFontMetricsF(document.defaultFont()).height();
    document.setDocumentMargin(lineHeight);
    QTextCursor edit(&document);
    edit.beginEditBlock(); // laid out once
    // Blocks inside of tables keep the look of the table.
    const QTextFrame* root = document.rootFrame();
    for (auto each = root->begin(); !each.atEnd(); ++each)
        if (auto* table = qobject_cast<QTextTable*>(each.currentFrame()))
            styleTable(*table, palette);
        else if (each.currentBlock().isValid())
            styleBlock(each.currentBlock(), palette, lineHeight);
    colorLinks(document, linkColor(palette));
    edit.endEditBlock();
}

} // namespace tarsel
