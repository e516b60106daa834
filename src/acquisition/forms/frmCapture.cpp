// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/frmCapture.h"

#include "acquisition/forms/ui_frmCapture.h"
#include "controls/FormScrollArea.h"

namespace tarsel {

namespace {

using settings::PublishingSettings;

constexpr FormField<PublishingSettings> fields[] = {{"optCapture", &PublishingSettings::CaptureOption}};

} // namespace

frmCapture::frmCapture(settings::PublishingSettings& settings, bool withPointer, QWidget* owner) :
    QDialog(owner), m_settings(settings), m_ui(std::make_unique<Ui::frmCapture>()) {
    m_ui->setupUi(this);
    m_binding = std::make_unique<FormBinding<PublishingSettings>>(*this, settings, fields);
    m_ui->chkPointer->setChecked(withPointer);
    connect(m_ui->cmdCapture, &QPushButton::clicked, this, [this] { choose(false); });
    connect(m_ui->CmdCustom, &QPushButton::clicked, this, [this] { choose(true); });
    fitToText(*this, 40);
}

frmCapture::~frmCapture() = default;

void frmCapture::choose(bool region) {
    m_region = region;
    m_binding->store(StoreMoment::AfterChecks);
    accept();
}

CaptureChoice frmCapture::choice() const {
    return {CaptureKind(m_settings.CaptureOption), m_region, m_ui->chkPointer->isChecked()};
}

} // namespace tarsel
