// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/frmStatus.h"

#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "controls/FormScrollArea.h"
#include "controls/ui_frmStatus.h"

namespace tarsel {

frmStatus::frmStatus(QWidget* owner) : QDialog(owner), m_ui(std::make_unique<Ui::frmStatus>()) {
    m_ui->setupUi(this);
    m_waiting = m_ui->lblStatus->text();
    setWindowTitle(ApplicationName);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmStatus::cancel);
    connect(m_ui->pbQueue, &ProgressBar::subjectChanged, m_ui->lblItem, &QLabel::setText);
    fitToText(*this, 70);
}

frmStatus::~frmStatus() = default;

ProgressBar& frmStatus::pbQueue() {
    return *m_ui->pbQueue;
}

void frmStatus::begin(const QString& text) {
    CancelRequested = false;
    m_ui->lblStatus->setText(text.isEmpty() ? m_waiting : text);
    show();
}

void frmStatus::showStage(const QString& text) {
    m_ui->lblStatus->setText(text);
}

void frmStatus::finish() {
    QDialog::reject();
}

void frmStatus::reject() {
    cancel();
}

void frmStatus::cancel() {
    service<EventLoop>().yield();
    m_ui->lblStatus->setText(tr("Please wait...... cancelling operaration"));
    CancelRequested = true;
}

} // namespace tarsel
