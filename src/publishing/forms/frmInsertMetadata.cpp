// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/frmInsertMetadata.h"

#include "controls/FormScrollArea.h"
#include "publishing/MetadataLines.h"
#include "publishing/forms/ui_frmInsertMetadata.h"

namespace tarsel {

frmInsertMetadata::frmInsertMetadata(QWidget* owner) :
    QDialog(owner), m_ui(std::make_unique<Ui::frmInsertMetadata>()) {
    m_ui->setupUi(this);
    for (const QString& line : metadataLines()) {
        auto* item = new QListWidgetItem(metadataLineInWords(line), m_ui->lstMetadata);
        item->setData(Qt::UserRole, line);
    }
    tickAll(false);
    m_ui->lstMetadata->setCurrentRow(0);
    connect(m_ui->chkSelectAll, &QCheckBox::toggled, this, &frmInsertMetadata::tickAll);
    connect(this, &QDialog::rejected, this, [this] { tickAll(false); });
    fitToScreen(*this, {60 * fontMetrics().averageCharWidth(), 32 * fontMetrics().height()});
}

frmInsertMetadata::~frmInsertMetadata() = default;

void frmInsertMetadata::tickAll(bool ticked) {
    for (int i = 0; i < m_ui->lstMetadata->count(); ++i)
        m_ui->lstMetadata->item(i)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

QStringList frmInsertMetadata::chosen() const {
    QStringList lines;
    for (int i = 0; i < m_ui->lstMetadata->count(); ++i)
        if (m_ui->lstMetadata->item(i)->checkState() == Qt::Checked)
            lines << m_ui->lstMetadata->item(i)->data(Qt::UserRole).toString();
    return lines;
}

} // namespace tarsel
