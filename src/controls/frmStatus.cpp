// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/frmStatus.h"

#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "controls/ProgressBar.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarsel {

frmStatus::frmStatus(QWidget* owner) :
    QDialog(owner), m_status(new QLabel(this)), m_bar(new ProgressBar(this)),
    m_cancel(new QPushButton(QStringLiteral("&Cancel"), this)) {
    setObjectName(QStringLiteral("frmStatus"));
    setWindowTitle(ApplicationName);
    setModal(false);
    m_status->setObjectName(QStringLiteral("lblStatus"));
    m_bar->setObjectName(QStringLiteral("pbQueue"));
    m_cancel->setObjectName(QStringLiteral("cmdCancel"));
    m_cancel->setAccessibleName(QStringLiteral("Stop after the present file"));
    connect(m_cancel, &QPushButton::clicked, this, &frmStatus::cancel);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    column->addWidget(m_status);
    column->addWidget(m_bar);
    column->addWidget(m_cancel, 0, Qt::AlignRight);
    setMinimumWidth(420);
}

void frmStatus::begin() {
    CancelRequested = false;
    m_status->setText(QStringLiteral("Please wait..... your request is being processed"));
    show();
}

void frmStatus::finish() {
    QDialog::reject();
}

void frmStatus::reject() {
    cancel();
}

void frmStatus::cancel() {
    service<EventLoop>().yield();
    m_status->setText(QStringLiteral("Please wait...... cancelling operaration"));
    CancelRequested = true;
}

} // namespace tarsel
