// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"
#include "controls/FormBinding.h"
#include "pixels/Picture.h"

#include <QDialog>
#include <memory>

namespace tarsel {

namespace Ui {
class frmExecutable;
}

/// The style and options of a greeting, with a preview of the effect on a picture. It shows those of the last
/// time; on Create it writes back the style and, but for the colours of the hands, what the style has of
/// options.
class frmExecutable final : public QDialog {
    Q_OBJECT
public:
    frmExecutable(settings::PublishingSettings& settings, const Picture& picture, QWidget* owner = nullptr);
    ~frmExecutable() override;
    frmExecutable(const frmExecutable&) = delete;
    frmExecutable& operator=(const frmExecutable&) = delete;

Q_SIGNALS:
    /// Create was pressed: with all that the dialog shows. It is hidden, and closes after this.
    void create(const tarsel::settings::PublishingSettings& shown);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void chooseStyle();
    void showEffect();
    settings::PublishingSettings shown() const;
    void cmdCreate_Click();

    settings::PublishingSettings& m_settings;
    std::unique_ptr<Ui::frmExecutable> m_ui;
    std::unique_ptr<FormBinding<settings::PublishingSettings>> m_binding;
};

} // namespace tarsel
