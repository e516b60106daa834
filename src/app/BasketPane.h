// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QWidget>

class QHBoxLayout;

namespace tarsel {

class ListControl;

/// The basket's list with its buttons and its menus.
class BasketPane final : public QWidget {
    Q_OBJECT
public:
    explicit BasketPane(ListView& lvPages, QWidget* parent = nullptr);

    ListControl& lvPages() const { return *m_list; }
    /// While a batch runs over the rows, nothing that changes them is offered.
    void setRunning(bool running);

Q_SIGNALS:
    void cmdPagesNew();
    void cmdPagesOpen();
    void cmdPagesSave();
    void cmdPagesDelete();
    void saveAsJpegFiles(); ///< "JPEG files (batch mode)"
    void addDescription();
    void renameTitle();

private:
    QLayout* makeBar();
    void addSaveAs(QHBoxLayout* bar);
    void makeMenu();

    ListControl* m_list;
    QList<QWidget*> m_buttons;
};

} // namespace tarsel
