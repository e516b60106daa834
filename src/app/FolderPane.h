// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QWidget>

class QLayout;

namespace tarsel {

class ActionTable;
class ListControl;

/// The list of the pictures in the chosen folder, with its buttons and its menu.
class FolderPane final : public QWidget {
    Q_OBJECT
public:
    FolderPane(ListView& lvFolder, const ActionTable& actions, QWidget* parent = nullptr);

    ListControl& lvFolder() const { return *m_list; }

Q_SIGNALS:
    void cmdAddToQueue();
    void cmdThumbnailFolder();
    void cmdDetailFolder();
    void cmdRefreshFolder();

private:
    QLayout* makeBar();
    void connectActions();
    void showForm();

    const ActionTable& m_actions;
    ListControl* m_list;
};

} // namespace tarsel
