// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/forms/CaptureChoice.h"
#include "configuration/ConfigRecord.h"
#include "controls/FormBinding.h"

#include <QDialog>
#include <memory>
#include <optional>

namespace tarsel {

namespace Ui {
class frmCapture;
}

/// Asks what is to be captured. The kind is kept in the settings.
class frmCapture final : public QDialog {
    Q_OBJECT
public:
    frmCapture(settings::PublishingSettings& settings, bool withPointer, QWidget* owner);
    ~frmCapture() override;
    frmCapture(const frmCapture&) = delete;
    frmCapture& operator=(const frmCapture&) = delete;

    CaptureChoice choice() const; ///< of the accepted dialog

private:
    void choose(bool region);

    settings::PublishingSettings& m_settings;
    std::unique_ptr<Ui::frmCapture> m_ui;
    std::unique_ptr<FormBinding<settings::PublishingSettings>> m_binding;
    bool m_region = false;
};

} // namespace tarsel
