// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QDialog>
#include <memory>

namespace tarsel {

namespace Ui {
class frmAbout;
}

/// Name, version and facts of the build; the parts of others with versions and licences; the texts of the
/// licences of our own.
class frmAbout final : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* owner = nullptr);
    ~frmAbout() override;
    frmAbout(const frmAbout&) = delete;
    frmAbout& operator=(const frmAbout&) = delete;

private:
    void showFacts();
    void listParts();
    void offerLicences();

    ListView m_parts;
    std::unique_ptr<Ui::frmAbout> m_ui;
};

} // namespace tarsel
