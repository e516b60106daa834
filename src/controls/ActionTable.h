// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <QKeySequence>
#include <QObject>
#include <initializer_list>
#include <span>
#include <vector>

class QMenu;
class QToolButton;

namespace tarsel {

class BarButton;

/// One command of a window, as its table states it. Texts are marked with QT_TRANSLATE_NOOP and translated
/// when the actions are made; the text carries the mnemonic of its menus.
struct ActionRow {
    const char* name; ///< object name of the action and of its button
    const char* text;
    const char* toolTip;     ///< the shortcut is added to it
    const char* icon = "";   ///< name of a line icon; empty for none
    const char* keys = "";   ///< shortcut as QKeySequence reads it; empty for none
    const char* choice = ""; ///< actions with the same choice are checkable, and one of them is checked
};

/// Makes the actions of a window from its table, and from the actions the buttons, menus and the list of
/// shortcuts.
class ActionTable final : public QObject {
    Q_OBJECT
public:
    ActionTable(std::span<const ActionRow> rows, const char* translationContext, QObject* parent = nullptr);

    /// Fails hard for a name that isn't in the table.
    QAction& action(const char* name) const;
    void setEnabled(std::initializer_list<const char*> names, bool enabled) const;
    /// A flat button, with the icon alone, or with the text and its mnemonic beside it.
    QToolButton* makeButton(const char* name, QWidget* parent,
                            Qt::ToolButtonStyle style = Qt::ToolButtonIconOnly) const;
    /// A button with icon and text that opens a menu of actions at once.
    QToolButton* makeMenuButton(const char* name, const char* menuName,
                                std::initializer_list<const char*> items, QWidget* parent) const;
    QMenu* makeMenu(const char* objectName, std::initializer_list<const char*> names, QWidget* parent) const;

    struct Shortcut {
        QString text;
        QKeySequence keys;
    };
    /// Every action that has a shortcut, in the order of the table, for lists of shortcuts.
    std::vector<Shortcut> shortcuts() const;

Q_SIGNALS:
    void triggering(); ///< before what the action is there for

private:
    BarButton* makeBarButton(const char* name, QWidget* parent, Qt::ToolButtonStyle style) const;
    void add(const ActionRow& row, const char* translationContext);
    void addToChoice(QAction* action, const char* choice);

    std::vector<QAction*> m_actions;
};

} // namespace tarsel
