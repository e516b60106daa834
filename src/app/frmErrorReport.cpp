// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmErrorReport.h"

#include "app/ui_frmErrorReport.h"
#include "base/ErrorTrap.h"
#include "base/SendReport.h"
#include "controls/FormScrollArea.h"
#include "controls/PaleText.h"

#include <QCoreApplication>
#include <QStyle>

namespace tarsel {

frmErrorReport::frmErrorReport(ErrorReport report, QWidget* owner) :
    QDialog(owner), m_report(std::move(report)), m_ui(std::make_unique<Ui::frmErrorReport>()) {
    m_ui->setupUi(this);
    m_ui->imgProblem->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxCritical).pixmap(32, 32));
    m_ui->lblHeading->setText(m_ui->lblHeading->text().arg(QCoreApplication::applicationName()));
    showReport();
    connect(m_ui->cmdSend, &QPushButton::clicked, this, &frmErrorReport::cmdSend_Click);
    // Enter in the address sends; the default button must not throw away what was typed.
    connect(m_ui->txtEmail, &QLineEdit::returnPressed, this, &frmErrorReport::cmdSend_Click);
    keepPlaceholderReadable(*m_ui->txtUserDescription);
    m_ui->cmdCancel->setFocus(); // an unexpected Enter must send nothing
    fitToText(*this, 100);
}

frmErrorReport::~frmErrorReport() = default;

void frmErrorReport::showReport() {
    m_ui->lblApplication->setPlainText(ApplicationName + QLatin1Char(' ') + m_report.ErrApplicationVersion);
    m_ui->lblRoutine->setPlainText(m_report.ErrRoutine);
    m_ui->lblLineNumber->setPlainText(QString::number(m_report.ErrLine));
    m_ui->lblSystemError->setPlainText(m_report.ErrSystem);
    m_ui->lblTrappingString->setPlainText(m_report.ErrTrappingString);
}

void frmErrorReport::cmdSend_Click() {
    sendErrorReport(m_report, m_ui->txtEmail->text(), m_ui->txtUserDescription->toPlainText());
    accept();
}

} // namespace tarsel
