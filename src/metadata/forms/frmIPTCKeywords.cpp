// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/frmIPTCKeywords.h"

#include "controls/FormScrollArea.h"
#include "metadata/forms/ItemList.h"
#include "metadata/forms/ui_frmIPTCKeywords.h"

namespace tarsel {

frmIPTCKeywords::frmIPTCKeywords(const QStringList& keywords, QWidget* owner) :
    QDialog(owner), m_ui(std::make_unique<Ui::frmIPTCKeywords>()) {
    m_ui->setupUi(this);
    joinItemList(
        {m_ui->lstKeywords, m_ui->txtKeywordAdd, m_ui->cmdAdd, m_ui->cmdDelete, m_ui->cmdOK, m_ui->lblNote},
        keywords);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    fitToText(*this, 60);
}

frmIPTCKeywords::~frmIPTCKeywords() = default;

QStringList frmIPTCKeywords::keywords() const {
    return itemsOf(*m_ui->lstKeywords);
}

} // namespace tarsel
