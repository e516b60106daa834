// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/frmExifEditAttribute.h"

#include "controls/FormScrollArea.h"
#include "metadata/forms/AttributeValueField.h"
#include "metadata/forms/ui_frmExifEditAttribute.h"

namespace tarsel {

frmExifEditAttribute::frmExifEditAttribute(const QString& name, const QString& value, QWidget* owner) :
    QDialog(owner), m_ui(std::make_unique<Ui::frmExifEditAttribute>()) {
    m_ui->setupUi(this);
    m_field = new AttributeValueField(m_ui->txtValue, m_ui->ucDateTime);
    m_ui->txtAttribute->setText(modMetadata::IptcLabelInWords(name)); // EXIF attributes have their raw names
    m_field->showFor(name, value);
    m_ui->Label2->setBuddy(m_field->input());
    m_field->selectAll();
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmExifEditAttribute::cmdOK_Click);
    connect(m_field, &AttributeValueField::accepted, this, &frmExifEditAttribute::cmdOK_Click);
    fitToText(*this, 60);
}

frmExifEditAttribute::~frmExifEditAttribute() = default;

modMetadata::AttributeValue frmExifEditAttribute::MetadataValue() const {
    if (!m_field->isDate())
        return m_field->text();
    const QTime time = m_field->shownDate().time();
    return QDateTime(m_field->day(), time.isValid() ? time : QTime(0, 0));
}

void frmExifEditAttribute::cmdOK_Click() {
    if (m_field->isUnchanged())
        reject();
    else if (m_field->check())
        accept();
}

} // namespace tarsel
