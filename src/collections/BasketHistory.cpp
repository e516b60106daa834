// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/BasketHistory.h"

#include "base/AcquiredFiles.h"
#include "base/IgnoringErrors.h"
#include "collections/Basket.h"
#include "collections/PageFiles.h"

#include <QScopedValueRollback>
#include <QSet>
#include <algorithm>
#include <numeric>
#include <utility>

namespace tarsel {

namespace {

constexpr size_t mostSteps = 50;
constexpr size_t mostRows = 100'000;
constexpr int mostNewBaskets = 3;

/// Where Tags stand in a list, which may hold one several times.
class TagPlaces {
public:
    explicit TagPlaces(const QStringList& tags) : m_next(size_t(tags.size())) {
        m_first.reserve(tags.size());
        for (int place = int(tags.size()) - 1; place >= 0; --place)
            m_next[size_t(place)] = std::exchange(m_first[tags[place]], place + 1);
    }
    int takeFirst(const QString& tag) { ///< -1 when all are taken
        const auto first = m_first.find(tag);
        if (first == m_first.end() || *first == 0)
            return -1;
        const int place = *first - 1;
        *first = m_next[size_t(place)];
        return place;
    }

private:
    // Counted from 1; 0 for none.
    QHash<QString, int> m_first;
    std::vector<int> m_next; ///< of the same Tag, by place from 0
};

} // namespace

BasketHistory::BasketHistory(CollectionLists lists) : m_lists(lists) {
    const ListView& list = m_lists.lvPages;
    connect(&list, &QAbstractItemModel::layoutAboutToBeChanged, this, [this] {
        if (!m_swapping)
            m_orderBefore = order();
    });
    connect(&list, &QAbstractItemModel::layoutChanged, this, [this](const auto&, auto hint) {
        noteOrder(std::exchange(m_orderBefore, {}),
                  hint == QAbstractItemModel::VerticalSortHint ? Kind::Sort : Kind::Move);
    });
    connect(&list, &ListView::textEdited, this, [this](int row, const QString& before) {
        push({.kind = Kind::Rename, .tag = m_lists.lvPages.row(row).tag, .row = row, .text = before});
    });
}

BasketHistory::~BasketHistory() {
    dropSteps(0, m_steps.size());
}

// --- steps

void BasketHistory::remove(const std::vector<int>& rows, const QString& programFolder) {
    std::vector<RemovedRow> taken = takeRows(rows);
    if (taken.empty())
        return;
    Step step{.kind = Kind::Remove, .rows = std::move(taken), .programFolder = programFolder};
    strikeAcquired(step);
    push(std::move(step));
}

void BasketHistory::beginNewBasket(const QString& programFolder) {
    Step step{.kind = Kind::NewBasket, .programFolder = programFolder};
    swapNewBasket(step, false);
    if (!step.rows.empty() || !step.setAside.isEmpty())
        push(std::move(step));
}

void BasketHistory::beginOpenBasket() {
    Step step{.kind = Kind::OpenBasket, .rows = takeAllRows(), .awaited = std::exchange(awaited, {})};
    if (!step.rows.empty())
        push(std::move(step));
}

void BasketHistory::describe(int row, const QString& text) {
    const QString before = m_lists.lvPages.subItem(row, BasketColumn::Description);
    m_lists.lvPages.setSubItem(row, BasketColumn::Description, text);
    if (text != before)
        push({.kind = Kind::Describe, .tag = m_lists.lvPages.row(row).tag, .row = row, .text = before});
}

/// Sorts in a row are one step.
void BasketHistory::noteOrder(const QStringList& before, Kind kind) {
    if (m_swapping || before == order())
        return;
    if (kind == Kind::Sort && undoable() == kind && !redoable())
        return;
    push({.kind = kind, .order = before});
}

void BasketHistory::push(Step step) {
    dropSteps(m_done, m_steps.size());
    m_steps.push_back(std::move(step));
    m_done = m_steps.size();
    limitSteps();
    if (changed)
        changed();
}

void BasketHistory::limitSteps() {
    size_t rows = 0;
    int newBaskets = 0;
    size_t first = m_steps.size();
    while (first > 0 && m_steps.size() - first < mostSteps) {
        const Step& step = m_steps[first - 1];
        rows += step.rows.size();
        newBaskets += step.kind == Kind::NewBasket ? 1 : 0;
        if (first < m_steps.size() && (rows > mostRows || newBaskets > mostNewBaskets))
            break;
        --first;
    }
    dropSteps(0, first);
}

void BasketHistory::dropSteps(size_t first, size_t end) {
    for (size_t i = first; i < end; ++i)
        deletePageFilesSetAside(m_steps[i].setAside);
    m_steps.erase(m_steps.begin() + std::ptrdiff_t(first), m_steps.begin() + std::ptrdiff_t(end));
    if (first < m_done)
        m_done -= std::min(end, m_done) - first;
}

std::optional<BasketHistory::Kind> BasketHistory::undoable() const {
    return m_done > 0 ? std::optional(m_steps[m_done - 1].kind) : std::nullopt;
}

std::optional<BasketHistory::Kind> BasketHistory::redoable() const {
    return m_done < m_steps.size() ? std::optional(m_steps[m_done].kind) : std::nullopt;
}

void BasketHistory::undo() {
    if (m_done > 0)
        swap(m_steps[--m_done], true);
}

void BasketHistory::redo() {
    if (m_done < m_steps.size())
        swap(m_steps[m_done++], false);
}

/// The step then holds what brings the present state back.
void BasketHistory::swap(Step& step, bool isUndo) {
    {
        const QScopedValueRollback swapping(m_swapping, true);
        switch (step.kind) {
        case Kind::Remove:
            swapRemoved(step, isUndo);
            break;
        case Kind::NewBasket:
            swapNewBasket(step, isUndo);
            break;
        case Kind::OpenBasket: {
            std::vector<RemovedRow> present = takeAllRows();
            putBack(std::exchange(step.rows, std::move(present)));
            std::swap(awaited, step.awaited);
            break;
        }
        case Kind::Move:
        case Kind::Sort:
            swapOrder(step);
            break;
        case Kind::Rename:
        case Kind::Describe:
            swapText(step);
            break;
        }
    }
    if (changed)
        changed();
}

// --- rows

std::vector<BasketHistory::RemovedRow> BasketHistory::takeRows(const std::vector<int>& rows) {
    std::vector<RemovedRow> taken;
    taken.reserve(rows.size());
    for (const int index : rows) {
        const ListRow& row = m_lists.lvPages.row(index);
        if (row.icon >= 0)
            taken.push_back({{index, row}, m_lists.ilPages.at(row.icon)});
    }
    m_lists.lvPages.remove(rows);
    return taken;
}

std::vector<BasketHistory::RemovedRow> BasketHistory::takeAllRows() {
    std::vector<int> all(size_t(m_lists.lvPages.count()));
    std::iota(all.begin(), all.end(), 0);
    return takeRows(all);
}

/// Without those that have been added again.
void BasketHistory::putBack(std::vector<RemovedRow> rows) {
    ListView& list = m_lists.lvPages;
    QSet<QString> present;
    for (int row = 0; row < list.count(); ++row)
        present << list.row(row).tag;
    list.selectOnly(-1);
    list.attachImages(&m_lists.ilPages);
    std::vector<PlacedRow> placed;
    for (RemovedRow& each : rows) {
        if (present.contains(each.placed.row.tag))
            continue;
        each.placed.row.icon = iconOf(each);
        each.placed.row.number = -1;
        placed.push_back(std::move(each.placed));
    }
    list.insert(std::move(placed));
    const std::vector<int> selected = list.selectedRows();
    list.setFocusedRow(selected.empty() ? -1 : selected.front());
}

/// The place where the picture still is, or a new one.
int BasketHistory::iconOf(const RemovedRow& row) {
    const int icon = row.placed.row.icon;
    return m_lists.ilPages.at(icon) == row.picture ? icon : m_lists.ilPages.add(row.picture);
}

void BasketHistory::swapRemoved(Step& step, bool isUndo) {
    if (isUndo) {
        listAcquiredAgain(step);
        return putBack(step.rows);
    }
    const QStringList removed = tagsOf(step.rows);
    const QSet<QString> tags(removed.begin(), removed.end());
    std::vector<int> rows;
    for (int row = 0; row < m_lists.lvPages.count(); ++row)
        if (tags.contains(m_lists.lvPages.row(row).tag))
            rows.push_back(row);
    step.rows = takeRows(rows);
    strikeAcquired(step);
}

void BasketHistory::swapNewBasket(Step& step, bool isUndo) {
    if (isUndo) {
        returnPageFiles(step);
        awaited.insert(awaited.begin(), step.awaited.begin(), step.awaited.end());
        return putBack(std::exchange(step.rows, {}));
    }
    step.rows = takeAllRows();
    step.awaited = std::exchange(awaited, {});
    m_lists.lvPages.attachImages(nullptr);
    m_lists.ilPages.clear();
    PageFilesAside aside = setPageFilesAside(step.programFolder, tagsOf(step.rows));
    step.setAside = std::move(aside.folder);
    step.acquired = std::move(aside.acquired);
}

/// A page file whose name is used by now gets another one, in all steps.
void BasketHistory::returnPageFiles(Step& step) {
    const QHash<QString, QString> renamed =
        tarsel::returnPageFiles(std::exchange(step.setAside, {}), step.programFolder, step.acquired);
    if (renamed.isEmpty())
        return;
    const auto follow = [&](QString& tag) { tag = renamed.value(tag, tag); };
    for (Step& each : m_steps) {
        follow(each.tag);
        for (QString& path : each.acquired)
            follow(path);
        for (RemovedRow& row : each.rows)
            follow(row.placed.row.tag);
        for (QString& tag : each.order)
            follow(tag);
    }
}

// --- acquired pictures

QStringList BasketHistory::tagsOf(const std::vector<RemovedRow>& rows) {
    QStringList tags;
    for (const RemovedRow& row : rows)
        tags << row.placed.row.tag;
    return tags;
}

/// What the user removed may be deleted with the page files; what a basket file took the place of may not.
void BasketHistory::strikeAcquired(Step& step) {
    step.acquired =
        acquiredFiles::strike(temporaryFolder(step.programFolder), tagsOf(step.rows)).value_or(QStringList());
}

void BasketHistory::listAcquiredAgain(Step& step) {
    ignoringErrors([&] { acquiredFiles::list(std::exchange(step.acquired, {}), false); });
}

// --- order

QStringList BasketHistory::order() const {
    QStringList tags;
    tags.reserve(m_lists.lvPages.count());
    for (int row = 0; row < m_lists.lvPages.count(); ++row)
        tags << m_lists.lvPages.row(row).tag;
    return tags;
}

/// Rows that are new since stay after those that they follow.
void BasketHistory::swapOrder(Step& step) {
    TagPlaces places(step.order);
    step.order = order();
    std::vector<int> rank;
    for (const QString& tag : std::as_const(step.order)) {
        const int place = places.takeFirst(tag);
        rank.push_back(place >= 0 || rank.empty() ? place : rank.back());
    }
    std::vector<int> rows(rank.size());
    std::iota(rows.begin(), rows.end(), 0);
    std::ranges::stable_sort(rows, {}, [&](int row) { return rank[size_t(row)]; });
    m_lists.lvPages.reorder(rows);
}

// --- texts

void BasketHistory::swapText(Step& step) {
    ListView& list = m_lists.lvPages;
    if (step.row >= list.count() || list.row(step.row).tag != step.tag)
        step.row = int(order().indexOf(step.tag));
    if (step.row < 0)
        return;
    if (step.kind == Kind::Rename) {
        const QString present = list.row(step.row).text;
        list.setText(step.row, std::exchange(step.text, present));
    } else {
        const QString present = list.subItem(step.row, BasketColumn::Description);
        list.setSubItem(step.row, BasketColumn::Description, std::exchange(step.text, present));
    }
    list.selectOnly(step.row);
}

} // namespace tarsel
