// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ExplorerBarModel.h"

#include "base/TrappedError.h"

#include <algorithm>

namespace tarsel {

namespace {

[[noreturn]] void refuse(const QString& message) {
    throw TrappedError{ErrorNumber::InvalidCall, message};
}

bool isText(const QVariant& address) {
    return address.typeId() == QMetaType::QString;
}

bool isNumber(const QVariant& address) {
    return address.typeId() == QMetaType::Int;
}

template <class List>
bool contains(const List& list, int number) {
    return number >= 0 && number < int(list.size());
}

} // namespace

const QString ExplorerBarModel::specialKey = QStringLiteral("Special Group");
const QString ExplorerBarModel::detailsKey = QStringLiteral("Details Group");

// --- groups

void ExplorerBarModel::addGroup(const QString& key, const QString& caption, const QVariant& icon) {
    m_groups.push_back({key, caption, groupIconIndex(icon)});
}

void ExplorerBarModel::addSpecialGroup(const QString& caption, bool open) {
    m_special = Group{specialKey, caption, -1, open};
}

void ExplorerBarModel::addDetailsGroup(const QString& caption, const QString& text, bool open) {
    m_details = Group{detailsKey, caption, -1, open, {}, text};
}

void ExplorerBarModel::clear() {
    m_groups.clear();
    m_special.reset();
    m_details.reset();
}

ExplorerBarModel::Group* ExplorerBarModel::find(const QString& key) {
    const auto normal = std::ranges::find(m_groups, key, &Group::key);
    if (normal != m_groups.end())
        return &*normal;
    if (m_special && key == specialKey)
        return &*m_special;
    if (m_details && (key == detailsKey || key == QLatin1String("Details")))
        return &*m_details;
    return nullptr;
}

ExplorerBarModel::Group& ExplorerBarModel::group(const QVariant& address) {
    if (isNumber(address) && contains(m_groups, address.toInt()))
        return m_groups[std::size_t(address.toInt())];
    if (!isNumber(address) && !isText(address))
        refuse(QStringLiteral("GetGroupsByKeyN: sGroupKey not of required Type (String or Integer)!"));
    if (Group* found = find(address.toString()))
        return *found;
    refuse(QStringLiteral("The group '%1' doesn't exist").arg(address.toString()));
}

ExplorerBarModel::Group& ExplorerBarModel::detailsGroup() {
    return group(detailsKey);
}

// --- items

void ExplorerBarModel::addItem(const QVariant& address, const QString& key, const QString& text,
                               const QVariant& icon) {
    Group& into = group(address);
    if ((m_special && &into == &*m_special) || (m_details && &into == &*m_details))
        refuse(QStringLiteral("Can't assign items to the Especified group"));
    into.items.push_back({key, text, iconIndex(icon)});
}

ExplorerBarModel::Item& ExplorerBarModel::item(const QVariant& address, const QVariant& item) {
    Group& of = group(address);
    if (m_details && &of == &*m_details)
        refuse(QStringLiteral("Details Group hasn't Child Items!"));
    if (of.items.empty())
        refuse(QStringLiteral("GetItemIndex: There are no Items in this group!"));
    if (isText(item)) {
        const auto found = std::ranges::find(of.items, item.toString(), &Item::key);
        if (found == of.items.end())
            refuse(QStringLiteral("GetItemIndex/String: Item specified not found!"));
        return *found;
    }
    if (!isNumber(item))
        refuse(QStringLiteral("GetItemIndex: Item must contain String or Integer!"));
    if (!contains(of.items, item.toInt()))
        refuse(QStringLiteral("GetItemIndex/Integer: Item specified not found!"));
    return of.items[std::size_t(item.toInt())];
}

void ExplorerBarModel::clearGroup(const QVariant& address) {
    group(address).items.clear();
}

// --- icons

int ExplorerBarModel::iconIndex(const QVariant& icon) const {
    if (!icon.isValid())
        return -1;
    if (!m_icons)
        refuse(QStringLiteral("No Defined Imagelist"));
    if (isText(icon)) {
        const auto index = m_icons->indexOf(icon.toString());
        if (index < 0)
            refuse(QStringLiteral("GetIconIndex: icon with key %1 doesn't exist!").arg(icon.toString()));
        return int(index);
    }
    if (!isNumber(icon))
        refuse(QStringLiteral("GetIconIndex: iIcon not of required Type (String or Integer)!"));
    if (!contains(*m_icons, icon.toInt()))
        refuse(QStringLiteral("GetIconIndex: invalid Image Index!"));
    return icon.toInt();
}

/// Groups don't say which of the two is wrong.
int ExplorerBarModel::groupIconIndex(const QVariant& icon) const {
    if (isNumber(icon) && (!m_icons || !contains(*m_icons, icon.toInt())))
        refuse(QStringLiteral("No Defined Imagelist or invalid Image Index"));
    return iconIndex(icon);
}

} // namespace tarsel
