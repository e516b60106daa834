// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QStringList>
#include <memory>

namespace tarsel {

namespace Ui {
class frmIPTCKeywords;
}

/// The keywords of a picture.
class frmIPTCKeywords final : public QDialog {
    Q_OBJECT
public:
    explicit frmIPTCKeywords(const QStringList& keywords, QWidget* owner = nullptr);
    ~frmIPTCKeywords() override;
    frmIPTCKeywords(const frmIPTCKeywords&) = delete;
    frmIPTCKeywords& operator=(const frmIPTCKeywords&) = delete;

    QStringList keywords() const;

private:
    std::unique_ptr<Ui::frmIPTCKeywords> m_ui;
};

} // namespace tarsel
