// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ListView.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QDir>
#include <QMimeData>
#include <QUrl>
#include <algorithm>
#include <numeric>

namespace tarsel {

namespace {

/// Beyond that many steps the rows are replaced in one: a view handles each step in time that grows with the
/// list.
constexpr size_t mostSteps = 50;

size_t runsIn(const std::vector<int>& rows) {
    size_t runs = rows.empty() ? 0 : 1;
    for (size_t i = 1; i < rows.size(); ++i)
        runs += rows[i] != rows[i - 1] + 1 ? 1 : 0;
    return runs;
}

} // namespace

int ImageList::add(const QVariant& picture) {
    m_pictures.push_back(picture);
    return count() - 1;
}

void ImageList::set(int index, const QVariant& picture) {
    if (index >= count())
        m_pictures.resize(size_t(index) + 1);
    m_pictures[size_t(index)] = picture;
}

QVariant ImageList::at(int index) const {
    return index >= 0 && index < count() ? m_pictures[size_t(index)] : QVariant();
}

ListView::ListView(QStringList headers, QObject* parent) :
    QAbstractTableModel(parent), m_headers(std::move(headers)) {}

// --- rows

const ListRow& ListView::row(int index) const {
    if (index < 0 || index >= count())
        fail(ErrorNumber::SubscriptOutOfRange,
             QCoreApplication::translate("ListView", "row %1 of %2").arg(index).arg(count()));
    return m_rows[size_t(index)];
}

ListRow& ListView::at(int index) {
    return const_cast<ListRow&>(row(index));
}

int ListView::add(ListRow added) {
    insert(count(), std::move(added));
    return count() - 1;
}

void ListView::append(std::vector<ListRow> added) {
    if (added.empty())
        return;
    const int first = count();
    beginInsertRows({}, first, first + int(added.size()) - 1);
    m_rows.insert(m_rows.end(), std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
    bool selected = false;
    for (int index = first; index < count(); ++index) {
        appendToIndexes(index);
        selected = selected || m_rows[size_t(index)].selected;
    }
    endInsertRows();
    setSorting(-1, Qt::AscendingOrder);
    if (selected)
        Q_EMIT selectionChanged();
}

void ListView::insert(int index, ListRow added) {
    if (index < 0 || index > count())
        fail(ErrorNumber::SubscriptOutOfRange,
             QCoreApplication::translate("ListView", "row %1 of %2").arg(index).arg(count()));
    const bool selected = added.selected;
    beginInsertRows({}, index, index);
    m_rows.insert(m_rows.begin() + index, std::move(added));
    if (index == count() - 1)
        appendToIndexes(index);
    else
        m_indexes.clear();
    if (m_focused >= index)
        ++m_focused;
    endInsertRows();
    setSorting(-1, Qt::AscendingOrder);
    if (selected)
        Q_EMIT selectionChanged();
}

void ListView::insert(std::vector<PlacedRow> placed) {
    if (placed.size() <= mostSteps) {
        for (PlacedRow& each : placed)
            insert(std::min(each.place, count()), std::move(each.row));
        return;
    }
    std::vector<ListRow> merged;
    merged.reserve(m_rows.size() + placed.size());
    size_t next = 0;
    int focused = -1;
    const auto takeUpTo = [&](size_t size) {
        for (; next < m_rows.size() && merged.size() < size; ++next) {
            if (int(next) == m_focused)
                focused = int(merged.size());
            merged.push_back(std::move(m_rows[next]));
        }
    };
    for (PlacedRow& each : placed) {
        takeUpTo(size_t(each.place));
        merged.push_back(std::move(each.row));
    }
    takeUpTo(m_rows.size() + placed.size());
    setRows(std::move(merged), focused);
    setSorting(-1, Qt::AscendingOrder);
}

/// The views read their selection again.
void ListView::setRows(std::vector<ListRow> rows, int focused) {
    beginResetModel();
    m_rows = std::move(rows);
    m_indexes.clear();
    m_focused = focused;
    endResetModel();
    Q_EMIT selectionChanged();
}

void ListView::remove(int index) {
    removeRange(index, index);
}

void ListView::remove(const std::vector<int>& rows) {
    if (runsIn(rows) > mostSteps)
        return removeScattered(rows);
    for (size_t end = rows.size(); end > 0;) {
        size_t begin = end - 1;
        while (begin > 0 && rows[begin - 1] == rows[begin] - 1)
            --begin;
        removeRange(rows[begin], rows[end - 1]);
        end = begin;
    }
}

void ListView::removeScattered(const std::vector<int>& rows) {
    row(rows.front());
    row(rows.back());
    std::vector<ListRow> kept;
    kept.reserve(m_rows.size() - rows.size());
    int focused = -1;
    auto gone = rows.begin();
    for (int index = 0; index < count(); ++index) {
        if (gone != rows.end() && *gone == index) {
            ++gone;
            continue;
        }
        if (index == m_focused)
            focused = int(kept.size());
        kept.push_back(std::move(m_rows[size_t(index)]));
    }
    setRows(std::move(kept), focused);
}

void ListView::removeRange(int first, int last) {
    row(first);
    row(last);
    const auto begin = m_rows.begin() + first;
    const auto end = m_rows.begin() + last + 1;
    const bool selected = std::any_of(begin, end, [](const ListRow& r) { return r.selected; });
    beginRemoveRows({}, first, last);
    m_rows.erase(begin, end);
    m_indexes.clear();
    if (m_focused > last)
        m_focused -= last - first + 1;
    else if (m_focused >= first)
        m_focused = -1;
    endRemoveRows();
    if (selected)
        Q_EMIT selectionChanged();
}

void ListView::clear() {
    if (isEmpty())
        return;
    const bool selected = !selectedRows().empty();
    beginResetModel();
    m_rows.clear();
    m_indexes.clear();
    m_focused = -1;
    endResetModel();
    setSorting(-1, Qt::AscendingOrder);
    if (selected)
        Q_EMIT selectionChanged();
}

void ListView::reorder(const std::vector<int>& order) {
    setSorting(-1, Qt::AscendingOrder);
    Q_EMIT layoutAboutToBeChanged();
    moveRows(order);
    Q_EMIT layoutChanged();
}

void ListView::setNumber(int index, int number) {
    at(index).number = number;
}

void ListView::setText(int index, const QString& text) {
    at(index).text = text;
    changed(index, 0);
}

void ListView::setTag(int index, const QString& tag) {
    at(index).tag = tag;
    changed(index, 0);
}

void ListView::setIcon(int index, int icon) {
    at(index).icon = icon;
    changed(index, 0);
}

void ListView::setIcons(const std::vector<int>& icons) {
    for (int index = 0; index < std::min(count(), int(icons.size())); ++index)
        m_rows[size_t(index)].icon = icons[size_t(index)];
    if (!isEmpty())
        Q_EMIT dataChanged(createIndex(0, 0), createIndex(count() - 1, 0), {Qt::DecorationRole});
}

void ListView::replace(int index, ListRow changed) {
    ListRow& target = at(index);
    const bool selection = target.selected != changed.selected;
    target = std::move(changed);
    m_indexes.clear();
    Q_EMIT dataChanged(createIndex(index, 0), createIndex(index, columnCount() - 1));
    if (selection)
        Q_EMIT selectionChanged();
}

QString ListView::subItem(int index, int number) const {
    return row(index).subItems.value(number - 1);
}

void ListView::setSubItem(int index, int number, const QString& text) {
    QStringList& subItems = at(index).subItems;
    if (number < 1)
        fail(ErrorNumber::SubscriptOutOfRange,
             QCoreApplication::translate("ListView", "SubItem %1").arg(number));
    while (subItems.size() < number)
        subItems << QString();
    if (subItems[number - 1] == text)
        return;
    m_indexes.remove(number);
    subItems[number - 1] = text;
    changed(index, number);
}

void ListView::changed(int index, int column) {
    if (column < columnCount())
        Q_EMIT dataChanged(createIndex(index, column), createIndex(index, column));
}

// --- search

int ListView::findKey(const QString& key) const {
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [&](const ListRow& r) { return r.key == key; });
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

int ListView::findSubItem(int number, const QString& text) const {
    if (!text.isEmpty())
        return indexOf(number).value(text, -1);
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&](const ListRow& r) { return r.subItems.value(number - 1).isEmpty(); });
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

const ListView::SubItemIndex& ListView::indexOf(int number) const {
    const auto known = m_indexes.constFind(number);
    if (known != m_indexes.constEnd())
        return *known;
    SubItemIndex& index = m_indexes[number];
    index.reserve(count());
    for (int i = count() - 1; i >= 0; --i) { // backwards, so that the first row of a text stays
        const QString text = subItem(i, number);
        if (!text.isEmpty())
            index.insert(text, i);
    }
    return index;
}

void ListView::appendToIndexes(int index) {
    for (auto it = m_indexes.begin(); it != m_indexes.end(); ++it) {
        const QString text = subItem(index, it.key());
        if (!text.isEmpty() && !it->contains(text))
            it->insert(text, index);
    }
}

// --- selection

bool ListView::isSelected(int index) const {
    return row(index).selected;
}

void ListView::select(int index, bool selected) {
    ListRow& target = at(index);
    if (target.selected == selected)
        return;
    target.selected = selected;
    Q_EMIT selectionChanged();
}

void ListView::selectOnly(int index) {
    setFocusedRow(index);
    bool different = false;
    for (int i = 0; i < count(); ++i) {
        bool& selected = m_rows[size_t(i)].selected;
        different = different || selected != (i == index);
        selected = i == index;
    }
    if (different)
        Q_EMIT selectionChanged();
}

void ListView::selectAll() {
    bool different = false;
    for (ListRow& r : m_rows) {
        different = different || !r.selected;
        r.selected = true;
    }
    if (different)
        Q_EMIT selectionChanged();
}

std::vector<int> ListView::selectedRows() const {
    std::vector<int> rows;
    for (int i = 0; i < count(); ++i) {
        if (m_rows[size_t(i)].selected)
            rows.push_back(i);
    }
    return rows;
}

int ListView::selectedIndex() const {
    if (m_focused >= 0 && row(m_focused).selected)
        return m_focused;
    const std::vector<int> rows = selectedRows();
    return rows.empty() ? -1 : rows.front();
}

void ListView::setFocusedRow(int index) {
    if (index < -1 || index >= count())
        fail(ErrorNumber::SubscriptOutOfRange,
             QCoreApplication::translate("ListView", "row %1 of %2").arg(index).arg(count()));
    m_focused = index;
}

// --- icons and sorting

void ListView::attachImages(const ImageList* images) {
    m_images = images;
    if (!isEmpty())
        Q_EMIT dataChanged(createIndex(0, 0), createIndex(count() - 1, 0), {Qt::DecorationRole});
}

void ListView::SortByColumn(int column) {
    const bool reverse = column == m_sortColumn && m_sortOrder == Qt::AscendingOrder;
    sort(column, reverse ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ListView::sort(int column, Qt::SortOrder order) {
    setSorting(column, order);
    if (column < 0)
        return;
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    moveRows(sortedOrder());
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void ListView::setSorting(int column, Qt::SortOrder order) {
    if (column == m_sortColumn && order == m_sortOrder)
        return;
    m_sortColumn = column;
    m_sortOrder = order;
    Q_EMIT sortingChanged();
}

/// The present row numbers in the order in which the rows are to stand.
std::vector<int> ListView::sortedOrder() const {
    std::vector<QString> keys;
    keys.reserve(m_rows.size());
    for (const ListRow& r : m_rows)
        keys.push_back((m_sortColumn == 0 ? r.text : r.subItems.value(m_sortColumn - 1)).toCaseFolded());
    std::vector<int> order(m_rows.size());
    std::iota(order.begin(), order.end(), 0);
    const bool ascending = m_sortOrder == Qt::AscendingOrder;
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return ascending ? keys[size_t(a)] < keys[size_t(b)] : keys[size_t(b)] < keys[size_t(a)];
    });
    return order;
}

void ListView::moveRows(const std::vector<int>& order) {
    std::vector<ListRow> moved;
    std::vector<int> newPlace(order.size());
    moved.reserve(order.size());
    for (const int old : order) {
        newPlace[size_t(old)] = int(moved.size());
        moved.push_back(std::move(m_rows[size_t(old)]));
    }
    m_rows = std::move(moved);
    m_indexes.clear();
    if (m_focused >= 0)
        m_focused = newPlace[size_t(m_focused)];
    const QModelIndexList persistent = persistentIndexList();
    for (const QModelIndex& index : persistent)
        changePersistentIndex(index, createIndex(newPlace[size_t(index.row())], index.column()));
}

// --- QAbstractItemModel

int ListView::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

int ListView::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : std::max(1, int(m_headers.size()));
}

QVariant ListView::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const ListRow& shown = row(index.row());
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == 0 && m_shownText)
            return m_shownText(shown.text);
        [[fallthrough]];
    case Qt::EditRole:
        return index.column() == 0 ? shown.text : shown.subItems.value(index.column() - 1);
    case Qt::DecorationRole:
        return index.column() == 0 && m_images ? m_images->at(shown.icon) : QVariant();
    case TagRole:
        return shown.tag;
    case KeyRole:
        return shown.key;
    case IconKeyRole:
        return shown.iconKey;
    default:
        return {};
    }
}

bool ListView::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    const QString text = value.toString();
    if (m_acceptsText && !m_acceptsText(text))
        return false;
    const QString before = row(index.row()).text;
    setText(index.row(), text);
    if (text != before)
        Q_EMIT textEdited(index.row(), before);
    return true;
}

QVariant ListView::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return m_headers.value(section);
}

QStringList ListView::mimeTypes() const {
    return {QStringLiteral("text/uri-list")};
}

QMimeData* ListView::mimeData(const QModelIndexList& indexes) const {
    QList<QUrl> files;
    for (const QModelIndex& index : indexes)
        if (const QString& tag = row(index.row()).tag; index.column() == 0 && QDir::isAbsolutePath(tag))
            files << QUrl::fromLocalFile(tag);
    auto* data = new QMimeData;
    data->setUrls(files);
    return data;
}

Qt::ItemFlags ListView::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    flags.setFlag(Qt::ItemIsDragEnabled, index.isValid());
    flags.setFlag(Qt::ItemIsEditable, index.isValid() && index.column() == 0 && m_textEditable);
    return flags;
}

} // namespace tarsel
