// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QWidget>

class QLayout;

namespace tarsel {

class ActionTable;
class FolderView;
class ListControl;

/// The list of the pictures in the chosen folder, with its buttons and its menu. The folder
/// view learns here which rows are in view.
class FolderPane final : public QWidget {
    Q_OBJECT
public:
    FolderPane(FolderView& view, ListView& lvFolder, const ActionTable& actions, QWidget* parent = nullptr);

    ListControl& lvFolder() const { return *m_list; }
    void setForm(int folderView); ///< 0 thumbnails, else details

Q_SIGNALS:
    void cmdAddToQueue();
    void formChosen(int folderView);                 ///< by the user: 0 thumbnails, 3 details
    void rowChosen(tarsel::ListView& list, int row); ///< to be shown; -1 for none

private:
    QLayout* makeBar();
    void connectList();
    void connectActions();
    void cmdThumbnailFolder();
    void cmdDetailFolder();
    void chooseRow();
    void showForm();
    void showHint();

    FolderView& m_view;
    const ActionTable& m_actions;
    ListControl* m_list;
};

} // namespace tarsel
