// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PendingRows.h"

#include <algorithm>

namespace tarsel {

namespace {
constexpr std::chrono::milliseconds betweenEvents{10};
}

PendingRows::PendingRows(ListView& list, BasketReading& reading, int firstNumber, int count) :
    m_list(list), m_reading(reading), m_first(firstNumber), m_isPending(size_t(count), false),
    m_rowOf(size_t(count), -1) {
    const auto moved = [this] { m_haveMoved = true; };
    connect(&list, &QAbstractItemModel::rowsInserted, this, moved);
    connect(&list, &QAbstractItemModel::rowsRemoved, this, moved);
    connect(&list, &QAbstractItemModel::modelReset, this, moved);
    connect(&list, &QAbstractItemModel::layoutChanged, this, moved);
}

PendingRows::~PendingRows() {
    disconnect(&m_list, nullptr, this, nullptr);
    for (int row = 0; row < m_list.count(); ++row)
        if (const int number = m_list.row(row).number; number >= m_first && number < m_first + m_next)
            m_list.setNumber(row, -1);
}

void PendingRows::append(std::vector<ListRow> rows, const std::vector<BasketSource>& sources) {
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i].number = m_first + m_next + int(i);
    m_list.append(std::move(rows));
    expect(sources);
}

void PendingRows::claimAll() {
    m_next = m_pending = m_list.count();
    for (int row = 0; row < m_list.count(); ++row)
        m_list.setNumber(row, m_first + row);
    m_isPending.assign(m_isPending.size(), true);
    m_haveMoved = true;
}

void PendingRows::readAgain(int first, int count) {
    std::map<int, BasketSource> numbered;
    for (int number = first; number < first + count; ++number)
        if (const int row = rowOf(number); row >= 0)
            numbered.emplace(
                number, BasketSource{AddedBy::Button, m_list.row(row).tag, m_list.row(row).text, 1, {}, 0});
    m_reading.add(std::move(numbered));
}

void PendingRows::expect(const std::vector<BasketSource>& sources) {
    std::map<int, BasketSource> numbered;
    for (const BasketSource& source : sources) {
        m_isPending[size_t(m_next)] = true;
        numbered.emplace(m_next++, source);
    }
    m_pending += int(sources.size());
    m_haveMoved = true;
    m_reading.add(std::move(numbered));
}

void PendingRows::findRows() {
    if (!std::exchange(m_haveMoved, false))
        return;
    std::fill(m_rowOf.begin(), m_rowOf.end(), -1);
    for (int row = 0; row < m_list.count(); ++row)
        if (const int number = m_list.row(row).number - m_first; number >= 0 && number < m_next)
            m_rowOf[size_t(number)] = row;
    for (int number = 0; number < m_next; ++number)
        if (m_isPending[size_t(number)] && m_rowOf[size_t(number)] < 0)
            end(number);
}

std::vector<int> PendingRows::rows() {
    findRows();
    std::vector<int> rows;
    for (int row = 0; row < m_list.count(); ++row)
        if (const int number = m_list.row(row).number - m_first;
            number >= 0 && number < m_next && m_isPending[size_t(number)])
            rows.push_back(row);
    return rows;
}

int PendingRows::rowOf(int number) {
    findRows();
    return m_isPending[size_t(number)] ? m_rowOf[size_t(number)] : -1;
}

std::vector<BasketReading::Numbered>
PendingRows::fetch(const std::function<std::pair<int, int>()>& visibleRows) {
    findRows();
    if (visibleRows) {
        const auto [first, last] = visibleRows();
        std::vector<int> preferred;
        for (int row = std::max(first, 0); row <= std::min(last, m_list.count() - 1); ++row)
            preferred.push_back(m_list.row(row).number - m_first);
        m_reading.prefer(std::move(preferred));
    }
    return m_pending > 0 ? m_reading.fetchWithin(betweenEvents) : std::vector<BasketReading::Numbered>();
}

void PendingRows::end(int number) {
    if (!m_isPending[size_t(number)])
        return;
    m_isPending[size_t(number)] = false;
    --m_pending;
    m_reading.drop(number);
}

} // namespace tarsel
