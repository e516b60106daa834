// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ErrorReport.h"

#include <QDialog>
#include <memory>

namespace tarsel {

namespace Ui {
class frmErrorReport;
}

/// Shows what went wrong and sends it to the maker when the user wants that.
class frmErrorReport final : public QDialog {
    Q_OBJECT
public:
    explicit frmErrorReport(ErrorReport report, QWidget* owner = nullptr);
    ~frmErrorReport() override;
    frmErrorReport(const frmErrorReport&) = delete;
    frmErrorReport& operator=(const frmErrorReport&) = delete;

private:
    void showReport();
    void cmdSend_Click();

    ErrorReport m_report;
    std::unique_ptr<Ui::frmErrorReport> m_ui;
};

} // namespace tarsel
