// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"
#include "controls/FormBinding.h"
#include "publishing/forms/SaverPreview.h"

#include <QDialog>
#include <memory>

namespace tarsel {

namespace Ui {
class frmScreenSaverOptions;
}

/// The options of a screen saver or slide show: those of the last time, which it writes back on Generate.
class frmScreenSaverOptions final : public QDialog {
    Q_OBJECT
public:
    frmScreenSaverOptions(settings::PublishingSettings& settings, std::vector<SaverSample> samples,
                          QWidget* owner = nullptr);
    ~frmScreenSaverOptions() override;
    frmScreenSaverOptions(const frmScreenSaverOptions&) = delete;
    frmScreenSaverOptions& operator=(const frmScreenSaverOptions&) = delete;

    void showSample(int index, const QPixmap& picture); ///< instead of the one that it began with

Q_SIGNALS:
    /// Generate was pressed: the settings are written, the dialog is hidden, and closes after this.
    void generate();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void followOptions();
    void cmdCreate_Click();

    settings::PublishingSettings& m_settings;
    std::unique_ptr<Ui::frmScreenSaverOptions> m_ui;
    std::unique_ptr<FormBinding<settings::PublishingSettings>> m_binding;
};

} // namespace tarsel
