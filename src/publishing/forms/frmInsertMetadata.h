// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

namespace tarsel {

namespace Ui {
class frmInsertMetadata;
}

/// Chooses lines of metadata for the pages of an album.
class frmInsertMetadata final : public QDialog {
    Q_OBJECT
public:
    explicit frmInsertMetadata(QWidget* owner = nullptr);
    ~frmInsertMetadata() override;
    frmInsertMetadata(const frmInsertMetadata&) = delete;
    frmInsertMetadata& operator=(const frmInsertMetadata&) = delete;

    QStringList chosen() const; ///< the ticked lines, from the top

private:
    void tickAll(bool ticked);

    std::unique_ptr<Ui::frmInsertMetadata> m_ui;
};

} // namespace tarsel
