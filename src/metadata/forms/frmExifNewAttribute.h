// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "metadata/modMetadata.h"

#include <QDialog>
#include <memory>

namespace tarsel {

class AttributeValueField;
namespace Ui {
class frmExifNewAttribute;
}

/// Asks for one of the editable attributes that the list doesn't have, and its value.
class frmExifNewAttribute final : public QDialog {
    Q_OBJECT
public:
    explicit frmExifNewAttribute(const ListView& lvExif, QWidget* owner = nullptr);
    ~frmExifNewAttribute() override;
    frmExifNewAttribute(const frmExifNewAttribute&) = delete;
    frmExifNewAttribute& operator=(const frmExifNewAttribute&) = delete;

    QString MetadataName() const;
    modMetadata::AttributeValue MetadataValue() const; ///< a date has the present time of day

private:
    void showField();
    void cmdOK_Click();

    std::unique_ptr<Ui::frmExifNewAttribute> m_ui;
    AttributeValueField* m_field;
};

} // namespace tarsel
