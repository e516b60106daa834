// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/frmExifEditAttribute.h"

#include "controls/FormScrollArea.h"
#include "metadata/forms/AttributeValueField.h"
#include "metadata/forms/ui_frmExifEditAttribute.h"

namespace tarsel {

frmExifEditAttribute::frmExifEditAttribute(const QString& name, const QString& value, QWidget* owner) :
    QDialog(owner), m_ui(std::make_unique<Ui::frmExifEditAttribute>()), m_value(value) {
    m_ui->setupUi(this);
    m_field = new AttributeValueField(m_ui->txtValue, m_ui->ucDateTime);
    m_ui->txtAttribute->setText(name);
    m_field->showFor(name, value);
    m_ui->Label2->setBuddy(m_field->input());
    m_field->selectAll();
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmExifEditAttribute::cmdOK_Click);
    connect(m_field, &AttributeValueField::accepted, this, &frmExifEditAttribute::cmdOK_Click);
    fitToText(*this, 60);
}

frmExifEditAttribute::~frmExifEditAttribute() = default;

QString frmExifEditAttribute::MetadataValue() const {
    return m_field->isDate() ? m_field->text() + QLatin1Char(' ') + m_field->timeOfDay() : m_field->text();
}

void frmExifEditAttribute::cmdOK_Click() {
    if (m_field->text() == (m_field->isDate() ? m_field->shownDay() : m_value))
        reject();
    else
        accept();
}

} // namespace tarsel
