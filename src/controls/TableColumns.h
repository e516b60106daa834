// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <vector>

class QTreeView;

namespace tarsel {

/// The column widths of a table. They are given in pixels of the usual font and grow with a larger one; the
/// first column, which holds the names, is never too narrow for a name and takes the room that the others
/// leave.
class TableColumns final : public QObject {
    Q_OBJECT
public:
    explicit TableColumns(QTreeView* table);

    int width(int column) const;
    void setWidth(int column, int width);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();
    int leastNameWidth() const;
    int scaled(int width) const;
    void takeWidth(int column, int pixels);

    QTreeView* m_table;
    std::vector<int> m_widths;
    bool m_fitting = false;
};

} // namespace tarsel
