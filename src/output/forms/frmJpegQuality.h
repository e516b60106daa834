// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"
#include "controls/FormBinding.h"

#include <QDialog>
#include <memory>

namespace tarsel {

namespace Ui {
class frmJpegQuality;
}

/// Asks for the quality of one JPEG file. The record has that of the last time.
class frmJpegQuality final : public QDialog {
    Q_OBJECT
public:
    explicit frmJpegQuality(settings::SaveAdvanced& settings, QWidget* owner = nullptr);
    ~frmJpegQuality() override;
    frmJpegQuality(const frmJpegQuality&) = delete;
    frmJpegQuality& operator=(const frmJpegQuality&) = delete;

private:
    std::unique_ptr<Ui::frmJpegQuality> m_ui;
    std::unique_ptr<FormBinding<settings::SaveAdvanced>> m_binding;
};

} // namespace tarsel
