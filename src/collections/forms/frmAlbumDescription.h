// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QDialog>

class QPlainTextEdit;

namespace tarsel {

/// Edits the description of one basket row.
class frmAlbumDescription final : public QDialog {
    Q_OBJECT
public:
    frmAlbumDescription(ListView& lvPages, int row, QWidget* owner = nullptr);

private:
    void dropQuotes();
    void cmdAdd_Click();

    ListView& m_pages;
    int m_row;
    QPlainTextEdit* txtDescription;
};

} // namespace tarsel
