// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ExplorerBarModel.h"

#include <QHash>
#include <QIcon>
#include <QPointer>
#include <QScrollArea>
#include <QTimer>
#include <functional>
#include <vector>

namespace tarsel {

class ExplorerBarGroup;

/// A column of groups that open and close, each with a title bar and items or another control. A group, an
/// item or an icon is addressed by its key or its number (ExplorerBarModel). A wrong address is shown in a
/// message, and the call does nothing.
///
/// Tab goes through titles, items and controls, arrow keys through titles and items; Enter and blank press.
///
/// There are no Font, UseUxThemeText and EnablevbAcceleratorImagelist: the font and the way of drawing are
/// the desktop's, and icons are QIcon whatever list they come from. Long2RGB has no use, since colours are
/// QColor.
class isExplorerBar final : public QScrollArea {
    Q_OBJECT
public:
    struct NamedIcon {
        QString key;
        QIcon icon;
    };

    explicit isExplorerBar(QWidget* parent = nullptr);

    /// Makes the groups again from what was added and set.
    void Refresh();
    void AddGroup(const QString& key, const QString& caption, const QVariant& icon = {});
    void AddItem(const QVariant& group, const QString& key, const QString& text, const QVariant& icon = {});
    void SetImageList(const std::vector<NamedIcon>& list);
    void AddSpecialGroup(const QString& caption, const QPixmap& picture, bool open = true);
    void HideSpecialGroup();
    void AddDetailsGroup(const QString& caption, const QString& text, bool open = true);
    void SetDetailsText(const QString& text);
    void SetDetailsImage(const QPixmap& picture);
    void HideDetailsGroup();
    /// Opens a link as the desktop does.
    void OpenLink(const QString& url);
    void ClearStructure();
    void ClearGroup(const QVariant& group);
    /// Places a control in the group instead of items. The bar becomes its parent.
    void SetGroupChild(const QVariant& group, QWidget* control, bool bExpand);
    void ExpandGroup(const QVariant& group, bool open);
    void SetGroupCaption(const QVariant& group, const QString& text);
    void SetItemIcon(const QVariant& group, const QVariant& item, const QVariant& icon);
    void SetItemText(const QVariant& group, const QVariant& item, const QString& text);
    /// While it is on, changes don't show; turning it off shows them all.
    void DisableUpdates(bool flag);
    static QString GetControlVersion() { return QStringLiteral("1.91"); }

    /// Marks the item that is in use; another one of the group isn't any more. An empty key marks none.
    void setChosenItem(const QVariant& group, const QString& item);
    void setItemEnabled(const QVariant& group, const QVariant& item, bool enabled);
    bool isOpen(const QVariant& group);

    /// Lets Tab go from top to bottom, as it must after controls were added to a child; returns the last
    /// stop.
    QWidget* orderTabs();

    QSize sizeHint() const override;

Q_SIGNALS:
    void itemClicked(const QString& group, const QString& item);
    void groupChanged(const QString& group, bool open); ///< the user opened or closed it

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override; ///< goes on to the first item that Tab comes to

private:
    void change(const std::function<void()>& apply);
    bool guarded(const std::function<void()>& action);
    void takeChildren();
    ExplorerBarGroup* addToColumn(const ExplorerBarModel::Group& group, bool isHeavy = false);
    QWidget* makeDetails(const QString& text) const;
    ExplorerBarGroup* shown(const QString& key) const;
    void setOpen(ExplorerBarModel::Group& group, bool open);
    void step();
    void arrange();
    void moveFocus(QWidget* from, int key);
    std::vector<QWidget*> focusStops() const;

    ExplorerBarModel m_model;
    std::vector<QIcon> m_icons;
    QHash<QString, QPointer<QWidget>> m_children; ///< by the key of their group
    QHash<QString, QString> m_chosen;             ///< item by group
    QPixmap m_specialPicture;
    QPixmap m_detailsPicture;
    QWidget* m_column;
    std::vector<ExplorerBarGroup*> m_shown;
    QTimer timUpdate;
    bool m_updatesDisabled = false;
};

} // namespace tarsel
