// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>
#include <vector>

namespace tarsel {

/// The groups and items of an isExplorerBar. A group, an item or an icon is addressed by its key, a text, or
/// by its number, counted from 0. A wrong address raises error 5 with the control's own message.
class ExplorerBarModel {
public:
    struct Item {
        QString key;
        QString text;
        int icon = -1; ///< -1 for none
        bool enabled = true;
    };
    struct Group {
        QString key;
        QString caption;
        int icon = -1;
        bool open = true;
        std::vector<Item> items{};
        QString text{}; ///< of the details group
    };

    static const QString specialKey; ///< "Special Group"
    static const QString detailsKey; ///< "Details Group"; in lists "Details"

    const std::vector<Group>& groups() const { return m_groups; } ///< the normal ones, in their order
    const std::optional<Group>& special() const { return m_special; }
    const std::optional<Group>& details() const { return m_details; }

    void addGroup(const QString& key, const QString& caption, const QVariant& icon);
    void addSpecialGroup(const QString& caption, bool open);
    void addDetailsGroup(const QString& caption, const QString& text, bool open);
    void hideSpecialGroup() { m_special.reset(); }
    void hideDetailsGroup() { m_details.reset(); }
    void clear();

    /// A normal group goes before a fixed one of the same key.
    Group& group(const QVariant& address);
    Group& detailsGroup(); ///< fails where there is none

    void addItem(const QVariant& group, const QString& key, const QString& text, const QVariant& icon);
    Item& item(const QVariant& group, const QVariant& item);
    void clearGroup(const QVariant& group);

    /// The keys of the icons; until it is called there is no list of icons.
    void setIcons(const QStringList& keys) { m_icons = keys; }
    int iconIndex(const QVariant& icon) const; ///< -1 for an invalid value: no icon

private:
    Group* find(const QString& key);
    int groupIconIndex(const QVariant& icon) const;

    std::vector<Group> m_groups;
    std::optional<Group> m_special;
    std::optional<Group> m_details;
    std::optional<QStringList> m_icons;
};

} // namespace tarsel
