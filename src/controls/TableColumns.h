// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <vector>

class QTreeView;

namespace tarsel {

/// The column widths of a table. They are given in pixels of the usual font and grow with a larger one; the
/// first column, which holds the names, is never too narrow for a name. One column, mostly the first, takes
/// the room that the others leave.
class TableColumns final : public QObject {
    Q_OBJECT
public:
    explicit TableColumns(QTreeView* table);

    int width(int column) const;
    void setWidth(int column, int width);
    /// The one that takes the room left, at least its own width, or half the table.
    void setWideColumn(int column, bool hasHalf = false);
    /// The width of 100, which columns start with, has room for this text.
    void setUsualText(int column, const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();
    int minWidth(int column) const;
    double narrowing() const;
    int usualPixels(int column) const;
    int scaled(int column, int width) const;
    void takeWidth(int column, int pixels);

    QTreeView* m_table;
    std::vector<int> m_widths;
    QMap<int, QString> m_usualTexts;
    int m_wideColumn = 0;
    bool m_hasHalf = false; ///< the wide column
    bool m_fitting = false;
};

} // namespace tarsel
