// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QStringList>
#include <memory>

namespace tarsel {

namespace Ui {
class frmIPTCCategory;
}

/// Supplemental categories and urgency of a picture.
class frmIPTCCategory final : public QDialog {
    Q_OBJECT
public:
    /// `urgency` is 1 to 8, 0 for none.
    frmIPTCCategory(const QStringList& categories, int urgency, QWidget* owner = nullptr);
    ~frmIPTCCategory() override;
    frmIPTCCategory(const frmIPTCCategory&) = delete;
    frmIPTCCategory& operator=(const frmIPTCCategory&) = delete;

    QStringList categories() const;
    int urgency() const; ///< 0 for "None"

private:
    std::unique_ptr<Ui::frmIPTCCategory> m_ui;
};

} // namespace tarsel
