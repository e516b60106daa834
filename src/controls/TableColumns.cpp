// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/TableColumns.h"

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTreeView>
#include <algorithm>

namespace tarsel {

namespace {
constexpr int usualCharacter = 6; ///< average width of a character of the usual font
constexpr int usualWidth = 100;
constexpr int charactersOfAName = 26;
constexpr int cellMargins = 10;
} // namespace

TableColumns::TableColumns(QTreeView* table) : QObject(table), m_table(table) {
    table->header()->setStretchLastSection(false);
    table->installEventFilter(this);
    table->viewport()->installEventFilter(this);
    connect(table->header(), &QHeaderView::sectionResized, this,
            [this](int column, int, int pixels) { takeWidth(column, pixels); });
    connect(table->header(), &QHeaderView::sectionCountChanged, this, &TableColumns::fit);
}

int TableColumns::width(int column) const {
    return column < int(m_widths.size()) ? m_widths[size_t(column)] : usualWidth;
}

void TableColumns::setWidth(int column, int width) {
    if (column >= int(m_widths.size()))
        m_widths.resize(size_t(column) + 1, usualWidth);
    m_widths[size_t(column)] = width;
    fit();
}

void TableColumns::setWideColumn(int column, bool hasHalf) {
    m_wideColumn = column;
    m_hasHalf = hasHalf;
    fit();
}

void TableColumns::setUsualText(int column, const QString& text) {
    m_usualTexts[column] = text;
    fit();
}

bool TableColumns::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == (watched == m_table ? QEvent::FontChange : QEvent::Resize))
        fit();
    return QObject::eventFilter(watched, event);
}

/// Not while the user drags a border: the others must stay where they are.
void TableColumns::fit() {
    const QScopedValueRollback guard(m_fitting, true);
    QHeaderView* header = m_table->header();
    const double share = narrowing();
    int room = m_table->viewport()->width();
    for (int column = 0; column < header->count(); ++column) {
        if (column == m_wideColumn)
            continue;
        header->resizeSection(column, int(minWidth(column) * share));
        room -= header->sectionSize(column);
    }
    if (m_wideColumn < header->count())
        header->resizeSection(m_wideColumn, std::max(room, minWidth(m_wideColumn)));
}

/// By which the columns beside a wide one that has half the table are narrowed for it.
double TableColumns::narrowing() const {
    int others = 0;
    for (int column = 0; column < m_table->header()->count(); ++column)
        others += column == m_wideColumn ? 0 : minWidth(column);
    const double half = m_table->viewport()->width() / 2.0;
    return m_hasHalf && others > half ? half / others : 1;
}

/// The names have room for one that can be distinguished from its neighbours, beside the picture of its row.
int TableColumns::minWidth(int column) const {
    if (m_hasHalf && column == m_wideColumn)
        return 0;
    const int wanted = scaled(column, width(column));
    if (column > 0 || (m_wideColumn != 0 && !m_hasHalf))
        return wanted;
    const int name = m_table->fontMetrics().averageCharWidth() * charactersOfAName;
    return std::max(wanted, m_table->iconSize().width() + name);
}

/// On the screen, the width of 100.
int TableColumns::usualPixels(int column) const {
    const QFontMetrics metrics = m_table->fontMetrics();
    const QString text = m_usualTexts.value(column);
    const int usual = usualWidth * metrics.averageCharWidth() / usualCharacter;
    return text.isEmpty() ? usual : std::max(usual, metrics.horizontalAdvance(text) + cellMargins);
}

int TableColumns::scaled(int column, int width) const {
    return std::max(0, width) * usualPixels(column) / usualWidth;
}

void TableColumns::takeWidth(int column, int pixels) {
    if (m_fitting)
        return;
    if (column >= int(m_widths.size()))
        m_widths.resize(size_t(column) + 1, usualWidth);
    m_widths[size_t(column)] = pixels * usualWidth / std::max(1, usualPixels(column));
}

} // namespace tarsel
