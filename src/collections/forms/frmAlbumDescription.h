// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QDialog>
#include <memory>

namespace tarsel {

namespace Ui {
class frmAlbumDescription;
}

/// Edits the description of one basket row.
class frmAlbumDescription final : public QDialog {
    Q_OBJECT
public:
    frmAlbumDescription(ListView& lvPages, int row, QWidget* owner = nullptr);
    ~frmAlbumDescription() override;
    frmAlbumDescription(const frmAlbumDescription&) = delete;
    frmAlbumDescription& operator=(const frmAlbumDescription&) = delete;

private:
    void dropQuotes();
    void cmdAdd_Click();

    ListView& m_pages;
    int m_row;
    std::unique_ptr<Ui::frmAlbumDescription> m_ui;
};

} // namespace tarsel
