// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/frmJpegQuality.h"

#include "controls/FormScrollArea.h"
#include "output/forms/ui_frmJpegQuality.h"

namespace tarsel {

namespace {

using settings::SaveAdvanced;

constexpr FormField<SaveAdvanced> fields[] = {{"sldJPGQuality", &SaveAdvanced::JpgQuality}};

} // namespace

frmJpegQuality::frmJpegQuality(settings::SaveAdvanced& settings, QWidget* owner) :
    QDialog(owner), m_ui(std::make_unique<Ui::frmJpegQuality>()) {
    m_ui->setupUi(this);
    m_binding = std::make_unique<FormBinding<SaveAdvanced>>(*this, settings, fields);
    m_ui->lblJPGQuality->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("1000")));
    m_ui->lblJPGQuality->setNum(m_ui->sldJPGQuality->value());
    connect(m_ui->cmdSave, &QPushButton::clicked, this, [this] {
        m_binding->store(StoreMoment::AfterChecks);
        accept();
    });
    fitToText(*this, 60);
}

frmJpegQuality::~frmJpegQuality() = default;

} // namespace tarsel
