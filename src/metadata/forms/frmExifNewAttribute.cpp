// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/frmExifNewAttribute.h"

#include "base/Clock.h"
#include "controls/FormScrollArea.h"
#include "metadata/forms/AttributeValueField.h"
#include "metadata/forms/ui_frmExifNewAttribute.h"

namespace tarsel {

frmExifNewAttribute::frmExifNewAttribute(const ListView& lvExif, QWidget* owner) :
    QDialog(owner), m_ui(std::make_unique<Ui::frmExifNewAttribute>()) {
    m_ui->setupUi(this);
    m_field = new AttributeValueField(m_ui->txtValue, m_ui->ucDateTime);
    for (const QString& name : modMetadata::ExifEditableAttributes())
        if (modMetadata::ListKeyIsFree(lvExif, name))
            m_ui->cmbAttribute->addItem(name);
    if (m_ui->cmbAttribute->count() == 0)
        m_ui->cmbAttribute->addItem(tr("No editable attribute to add!"));
    connect(m_ui->cmbAttribute, &QComboBox::currentTextChanged, this, &frmExifNewAttribute::showField);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmExifNewAttribute::cmdOK_Click);
    connect(m_field, &AttributeValueField::accepted, this, &frmExifNewAttribute::cmdOK_Click);
    showField();
    fitToText(*this, 60);
}

frmExifNewAttribute::~frmExifNewAttribute() = default;

void frmExifNewAttribute::showField() {
    m_field->showFor(m_ui->cmbAttribute->currentText(), {});
    m_ui->Label2->setBuddy(m_field->input());
}

void frmExifNewAttribute::cmdOK_Click() {
    if (m_field->check())
        accept();
}

QString frmExifNewAttribute::MetadataName() const {
    return m_ui->cmbAttribute->currentText();
}

modMetadata::AttributeValue frmExifNewAttribute::MetadataValue() const {
    if (!m_field->isDate())
        return m_field->text();
    return QDateTime(m_field->day(), service<Clock>().now().time());
}

} // namespace tarsel
