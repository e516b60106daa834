// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QWidget>

class QLayout;

namespace tarsel {

class ActionTable;
class BasketHistory;
class ListControl;

/// The basket's list with its buttons and its menus. Titles and descriptions are edited here.
class BasketPane final : public QWidget {
    Q_OBJECT
public:
    BasketPane(ListView& lvPages, const ActionTable& actions, QWidget* parent = nullptr);

    ListControl& lvPages() const { return *m_list; }
    /// While a batch runs over the rows, nothing that changes them is offered.
    void setRunning(bool running);
    /// While files are being added, the rows are not yet those of the basket: it can't be opened or saved.
    void setAdding(bool adding);
    /// Offers to undo and to do again what the history holds, by name. Where there is nothing to undo yet,
    /// the basket of the last session may be offered.
    void showHistory(const BasketHistory& history, bool offersLastSession);

Q_SIGNALS:
    void cmdPagesNew();
    void cmdPagesOpen();
    void cmdPagesSave();
    void cmdPagesDelete();
    void saveAsJpegFiles();                          ///< "JPEG files (batch mode)"
    void saveAsAlbum();                              ///< "Web Album"
    void saveAsSaver();                              ///< "Screensaver/Slide"
    void rowChosen(tarsel::ListView& list, int row); ///< to be shown; -1 for none
    void saveRowAs(int row);                         ///< the picture of the row; -1 for none
    void titleChecked(const QString& fault);         ///< empty for one that was accepted
    void described(int row, const QString& text);
    void rowsMoved(int step); ///< the selected ones: -1 up, 1 down
    void mnuUndo();
    void mnuRedo();

private:
    QLayout* makeBar();
    void connectList();
    void connectActions();
    void makeContextMenu();
    void enableRowCommands();
    void moveRows(int step);
    void addDescription();
    void renameTitle();
    bool acceptTitle(const QString& title);
    void enableHistory();

    bool m_canUndo = false;
    bool m_canRedo = false;
    bool m_running = false;
    bool m_adding = false;
    const ActionTable& m_actions;
    ListControl* m_list;
};

} // namespace tarsel
