// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ExplorerBarModel.h"

#include <QIcon>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace tarsel {

class ExplorerBarItem;
class ExplorerBarTitle;

/// A group on the screen: its title bar, and below it the body with the items or one other control. Only as
/// much of the body as `openBy` says can be seen; the body slides out from under the title.
class ExplorerBarGroup final : public QWidget {
    Q_OBJECT
public:
    ExplorerBarGroup(const ExplorerBarModel::Group& group, bool isHeavy, const std::vector<QIcon>& icons,
                     QWidget* parent);

    const QString& key() const { return m_key; }
    ExplorerBarTitle& title() const { return *m_title; }
    const std::vector<ExplorerBarItem*>& items() const { return m_items; }
    void setChild(QWidget* child);
    /// Marks one item, and makes it the one that Tab comes to; the first one where there is none.
    void setChosenItem(const QString& key);

    /// Brings the body a step nearer to open or closed; true when it is there.
    bool step(bool open);
    void setOpen(bool open); ///< all steps at once, when it is laid out next
    /// Lays out for a width, and takes the height that it needs.
    void arrange(int width);
    int widthFor(int columns) const; ///< of the items

Q_SIGNALS:
    void titleClicked();
    void itemClicked(const QString& key);
    void leftByKey(QWidget* part, int key);
    void contentsChanged(); ///< the child asks for another size

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addItems(const ExplorerBarModel::Group& group, const std::vector<QIcon>& icons);
    int contentsHeight(int width) const;
    QSize cell() const;
    int arrangeItems(int width) const;

    QString m_key;
    ExplorerBarTitle* m_title;
    QWidget* m_body;     ///< clips the contents
    QWidget* m_contents; ///< the parent of the items
    QPointer<QWidget> m_child;
    std::vector<ExplorerBarItem*> m_items;
    int m_openBy = 0;        ///< visible pixels of the body
    bool m_isSettled = true; ///< open or closed, and not on its way
};

} // namespace tarsel
