// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/frmIPTCCategory.h"

#include "controls/FormScrollArea.h"
#include "metadata/forms/ItemList.h"
#include "metadata/forms/ui_frmIPTCCategory.h"

namespace tarsel {

frmIPTCCategory::frmIPTCCategory(const QStringList& categories, int urgency, QWidget* owner) :
    QDialog(owner), m_ui(std::make_unique<Ui::frmIPTCCategory>()) {
    constexpr int leastUrgent = 8;
    m_ui->setupUi(this);
    joinItemList(
        {m_ui->lstSupCats, m_ui->txtSupCatAdd, m_ui->cmdAdd, m_ui->cmdDelete, m_ui->cmdOK, m_ui->lblNote},
        categories);
    for (int i = 1; i <= leastUrgent; ++i)
        m_ui->cboUrgency->addItem(QString::number(i));
    m_ui->cboUrgency->addItem(tr("None"));
    m_ui->cboUrgency->setCurrentIndex(urgency >= 1 && urgency <= leastUrgent ? urgency - 1 : leastUrgent);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    fitToText(*this, 60);
}

frmIPTCCategory::~frmIPTCCategory() = default;

QStringList frmIPTCCategory::categories() const {
    return itemsOf(*m_ui->lstSupCats);
}

int frmIPTCCategory::urgency() const {
    return m_ui->cboUrgency->currentText().toInt();
}

} // namespace tarsel
