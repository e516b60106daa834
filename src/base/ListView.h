// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

namespace tarsel {

/// Pictures for the rows of a list, by index from 0. What a value holds is agreed between the logic that adds
/// it and the view that paints it: the logic makes no pixmap.
class ImageList {
public:
    int add(const QVariant& picture);
    /// Puts a picture at an index, also past the end: the places before it stay empty.
    void set(int index, const QVariant& picture);
    QVariant at(int index) const; ///< an invalid value when there is none
    int count() const { return int(m_pictures.size()); }
    void clear() { m_pictures.clear(); }

private:
    std::vector<QVariant> m_pictures;
};

/// One row of a list control.
struct ListRow {
    QString text;
    QString tag;          ///< the row's Tag, not shown
    QString key;          ///< the row's key, not shown
    QStringList subItems; ///< SubItem 1 is subItems[0]
    int icon = -1;        ///< index in the attached picture list
    QString iconKey;      ///< name of a fixed icon, where the list shows those
    int number = -1;      ///< by which the row's owner finds it again after a sort; not shown
    bool selected = false;
};

/// A row on its way into a list, and the index that it gets there.
struct PlacedRow {
    int place;
    ListRow row;
};

/// A list control as the logic sees it: rows of text, key, Tag, SubItems, icons and selection, sorting by
/// column. Row indexes count from 0 here. Widgets show it through the model interface and keep the selection
/// in step.
class ListView : public QAbstractTableModel {
    Q_OBJECT
public:
    /// What a row holds beyond the texts and the picture of the usual roles.
    enum Role { TagRole = Qt::UserRole, KeyRole, IconKeyRole };

    explicit ListView(QStringList headers = {}, QObject* parent = nullptr);

    // --- rows
    // -------------------------------------------------------------------------------------------------
    int count() const { return int(m_rows.size()); }
    bool isEmpty() const { return m_rows.empty(); }
    const ListRow& row(int index) const; ///< error 9 out of range
    /// Appends and returns the index. The list is not in the order of a column then, so sorting is off.
    int add(ListRow added);
    void append(std::vector<ListRow> added);    ///< appends all in one step
    void insert(int index, ListRow added);      ///< error 9 out of range; sorting is off then
    void insert(std::vector<PlacedRow> placed); ///< by ascending place; one past the end means the end
    void remove(int index);                     ///< error 9 out of range
    void remove(const std::vector<int>& rows);  ///< ascending, in one step; error 9 out of range
    void clear();
    void reorder(const std::vector<int>& order); ///< the present indexes in their new order; sorting is off
    void setNumber(int index, int number);       ///< not shown, so nobody is notified
    void setText(int index, const QString& text);
    void setTag(int index, const QString& tag);
    void setIcon(int index, int icon);
    void setIcons(const std::vector<int>& icons); ///< of all rows in one step
    void replace(int index, ListRow changed);     ///< error 9 out of range; focus and order stay
    QString subItem(int index, int number) const; ///< number from 1; empty when the row has fewer
    void setSubItem(int index, int number, const QString& text);
    int findKey(const QString& key) const; ///< exact; -1 when there is none
    /// First row whose SubItem has exactly that text; -1 when there is none. Costs one hash look-up, also in
    /// a loop that asks and appends in turn.
    int findSubItem(int number, const QString& text) const;

    /// The list's own Tag.
    QString tag() const { return m_tag; }
    void setTag(const QString& tag) { m_tag = tag; }

    // --- selection
    // --------------------------------------------------------------------------------------------
    bool isSelected(int index) const;
    void select(int index, bool selected = true); ///< adds to or takes from the selection
    void selectOnly(int index);                   ///< and focuses it; -1 selects nothing
    void selectAll();
    std::vector<int> selectedRows() const; ///< ascending
    int selectedIndex() const; ///< the focused row when selected, else the first selected row, else -1
    int focusedRow() const { return m_focused; }
    void setFocusedRow(int index); ///< -1 for none; error 9 out of range

    // --- icons and sorting
    // ------------------------------------------------------------------------------------
    void
    attachImages(const ImageList* images); ///< null detaches; the picture list must outlive the attachment
    /// Sorts by column 0 (text) or SubItem number: ascending for a new column, the order reversed for the
    /// present one. All columns compare as text without regard to case; rows that compare equal keep their
    /// order.
    void SortByColumn(int column);
    void sort(int column, Qt::SortOrder order) override;
    int sortColumn() const { return m_sortColumn; } ///< -1 when the rows are in no column's order
    Qt::SortOrder sortOrder() const { return m_sortOrder; }

    // --- QAbstractItemModel
    // -----------------------------------------------------------------------------------
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    /// The files that the rows' Tags name.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;

    void setTextEditable(bool editable) { m_textEditable = editable; }
    /// What views show of the texts of rows, where those are data with a translation.
    void setShownText(std::function<QString(const QString&)> shown) { m_shownText = std::move(shown); }
    /// Editing in place keeps the old text where `accepts` returns false for the new one.
    void setTextCheck(std::function<bool(const QString&)> accepts) { m_acceptsText = std::move(accepts); }

Q_SIGNALS:
    void selectionChanged();
    void textEdited(int index, const QString& before); ///< in place
    void sortingChanged();                             ///< another column or order, or off

private:
    /// First row by text of one SubItem. Empty texts are not in it.
    using SubItemIndex = QHash<QString, int>;

    ListRow& at(int index);
    void changed(int index, int column);
    const SubItemIndex& indexOf(int number) const;
    void appendToIndexes(int index);
    std::vector<int> sortedOrder() const;
    void moveRows(const std::vector<int>& order);
    void removeRange(int first, int last);
    void removeScattered(const std::vector<int>& rows);
    void setRows(std::vector<ListRow> rows, int focused);
    void setSorting(int column, Qt::SortOrder order);

    QStringList m_headers;
    std::vector<ListRow> m_rows;
    mutable QHash<int, SubItemIndex> m_indexes; ///< by SubItem number, made when first asked for
    const ImageList* m_images = nullptr;
    QString m_tag;
    int m_focused = -1;
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    bool m_textEditable = false;
    std::function<QString(const QString&)> m_shownText;
    std::function<bool(const QString&)> m_acceptsText;
};

} // namespace tarsel
