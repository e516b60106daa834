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

bool TableColumns::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == (watched == m_table ? QEvent::FontChange : QEvent::Resize))
        fit();
    return QObject::eventFilter(watched, event);
}

/// Not while the user drags a border: the others must stay where they are.
void TableColumns::fit() {
    const QScopedValueRollback guard(m_fitting, true);
    QHeaderView* header = m_table->header();
    int room = m_table->viewport()->width();
    for (int column = 1; column < header->count(); ++column) {
        header->resizeSection(column, scaled(width(column)));
        room -= header->sectionSize(column);
    }
    if (header->count() > 0)
        header->resizeSection(0, std::max({room, scaled(width(0)), leastNameWidth()}));
}

/// Room for a name that can be distinguished from its neighbours, beside the picture of its row.
int TableColumns::leastNameWidth() const {
    return m_table->iconSize().width() + scaled(charactersOfAName * usualCharacter);
}

int TableColumns::scaled(int width) const {
    return std::max(0, width) * m_table->fontMetrics().averageCharWidth() / usualCharacter;
}

void TableColumns::takeWidth(int column, int pixels) {
    if (m_fitting)
        return;
    if (column >= int(m_widths.size()))
        m_widths.resize(size_t(column) + 1, usualWidth);
    m_widths[size_t(column)] =
        pixels * usualCharacter / std::max(1, m_table->fontMetrics().averageCharWidth());
}

} // namespace tarsel
