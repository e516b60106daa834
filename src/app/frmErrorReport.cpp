// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmErrorReport.h"

#include "base/ErrorTrap.h"
#include "base/SendReport.h"

#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>

namespace tarsel {

frmErrorReport::frmErrorReport(ErrorReport report, QWidget* owner) :
    QDialog(owner), m_report(std::move(report)), txtEmail(new QLineEdit(this)),
    txtUserDescription(new QPlainTextEdit(this)) {
    setObjectName(QStringLiteral("frmErrorReport"));
    setWindowTitle(QStringLiteral(" Send Error Report"));

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(12);
    rows->addLayout(makeHeading());
    rows->addLayout(makeFacts());
    addInputs(rows);
    rows->addLayout(makeButtons());
    setMinimumWidth(620);
    findChild<QPushButton*>(QStringLiteral("cmdCancel"))->setFocus(); // an unexpected Enter must send nothing
}

QLayout* frmErrorReport::makeHeading() {
    auto* picture = new QLabel(this);
    picture->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxCritical).pixmap(32, 32));
    auto* lblHeading =
        new QLabel(QCoreApplication::applicationName() + QStringLiteral(" has encountered a problem"), this);
    lblHeading->setObjectName(QStringLiteral("lblHeading"));
    QFont bold = lblHeading->font();
    bold.setBold(true);
    lblHeading->setFont(bold);
    auto* heading = new QHBoxLayout;
    heading->addWidget(picture);
    heading->addWidget(lblHeading, 1);
    return heading;
}

QLayout* frmErrorReport::makeFacts() {
    auto* facts = new QFormLayout;
    facts->setLabelAlignment(Qt::AlignLeft);
    facts->setHorizontalSpacing(16);
    addFact(facts, "Application:", "lblApplication",
            ApplicationName + QLatin1Char(' ') + m_report.ErrApplicationVersion);
    addFact(facts, "Routine:", "lblRoutine", m_report.ErrRoutine);
    addFact(facts, "Line:", "lblLineNumber", QString::number(m_report.ErrLine));
    addFact(facts, "System error:", "lblSystemError", m_report.ErrSystem);
    addFact(facts, "Trapping String:", "lblTrappingString", m_report.ErrTrappingString);
    return facts;
}

void frmErrorReport::addInputs(QBoxLayout* rows) {
    auto* caption = new QLabel(
        QStringLiteral("Your Email address [Optional, but if you want feedback, input one]"), this);
    caption->setBuddy(txtEmail);
    txtEmail->setObjectName(QStringLiteral("txtEmail"));
    txtEmail->setAccessibleName(QStringLiteral("Your email address"));
    txtUserDescription->setObjectName(QStringLiteral("txtUserDescription"));
    txtUserDescription->setAccessibleName(QStringLiteral("What you were doing"));
    txtUserDescription->setPlaceholderText(QStringLiteral("What were you doing when this happened?"));
    txtUserDescription->setTabChangesFocus(true);
    txtUserDescription->setMinimumHeight(80);
    rows->addWidget(caption);
    rows->addWidget(txtEmail);
    rows->addWidget(txtUserDescription, 1);
}

QLayout* frmErrorReport::makeButtons() {
    auto* cmdSend = new QPushButton(QStringLiteral("&Send"), this);
    cmdSend->setObjectName(QStringLiteral("cmdSend"));
    auto* cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setDefault(true);
    connect(cmdSend, &QPushButton::clicked, this, &frmErrorReport::cmdSend_Click);
    // Enter in the address sends; the default button must not throw away what was typed.
    connect(txtEmail, &QLineEdit::returnPressed, this, &frmErrorReport::cmdSend_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdSend);
    buttons->addWidget(cmdCancel);
    return buttons;
}

void frmErrorReport::addFact(QFormLayout* facts, const char* caption, const char* name, const QString& text) {
    auto* label = new QLabel(text, this);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    facts->addRow(QLatin1String(caption), label);
}

void frmErrorReport::cmdSend_Click() {
    sendErrorReport(m_report, txtEmail->text(), txtUserDescription->toPlainText());
    accept();
}

} // namespace tarsel
