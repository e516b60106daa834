// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>
#include <QPersistentModelIndex>

namespace tarsel {

/// Shows rows as pictures with their names below, in cells of one size from left to right.
///
/// It is a QListView in list mode: with a fixed grid that mode places fifty thousand cells in a moment, while
/// the icon mode keeps a search tree of them.
class ThumbnailView : public QListView {
    Q_OBJECT
public:
    explicit ThumbnailView(QWidget* parent = nullptr);

    /// The size of pictures, and that of a picture with its name. The current row, or else the first one in
    /// view, stays where it is on the screen.
    void setSizes(QSize picture, QSize cell);

Q_SIGNALS:
    void zoomed(int angle); ///< the wheel was turned while Ctrl was held, in eighths of a degree

protected:
    void hideEvent(QHideEvent* event) override; ///< the row in view comes back with the view
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void wheelEvent(QWheelEvent* event) override;
    void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;

private:
    QModelIndex rowToHold() const;
    void bringBack();

    QPersistentModelIndex m_held; ///< while hidden
    int m_heldTop = 0;
};

} // namespace tarsel
