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
    frmAlbumDescription(const ListView& lvPages, int row, QWidget* owner = nullptr);
    ~frmAlbumDescription() override;
    frmAlbumDescription(const frmAlbumDescription&) = delete;
    frmAlbumDescription& operator=(const frmAlbumDescription&) = delete;

    QString description() const; ///< without the characters that it can't have

private:
    void dropQuotes();

    std::unique_ptr<Ui::frmAlbumDescription> m_ui;
};

} // namespace tarsel
