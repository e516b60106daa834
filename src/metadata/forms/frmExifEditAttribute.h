// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metadata/modMetadata.h"

#include <QDialog>
#include <memory>

namespace tarsel {

class AttributeValueField;
namespace Ui {
class frmExifEditAttribute;
}

/// Changes the value of one attribute. Accepted only when it is another one.
class frmExifEditAttribute final : public QDialog {
    Q_OBJECT
public:
    /// `name` is the raw name of an EXIF attribute, or the label of an IPTC field.
    frmExifEditAttribute(const QString& name, const QString& value, QWidget* owner = nullptr);
    ~frmExifEditAttribute() override;
    frmExifEditAttribute(const frmExifEditAttribute&) = delete;
    frmExifEditAttribute& operator=(const frmExifEditAttribute&) = delete;

    modMetadata::AttributeValue MetadataValue() const;

private:
    void cmdOK_Click();

    std::unique_ptr<Ui::frmExifEditAttribute> m_ui;
    AttributeValueField* m_field;
};

} // namespace tarsel
