// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ErrorReport.h"

#include <QDialog>

class QBoxLayout;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;

namespace tarsel {

/// Shows what went wrong and sends it to the maker when the user wants that.
class frmErrorReport final : public QDialog {
    Q_OBJECT
public:
    explicit frmErrorReport(ErrorReport report, QWidget* owner = nullptr);

private:
    QLayout* makeHeading();
    QLayout* makeFacts();
    void addInputs(QBoxLayout* rows);
    QLayout* makeButtons();
    void addFact(QFormLayout* facts, const char* caption, const char* name, const QString& text);
    void cmdSend_Click();

    ErrorReport m_report;
    QLineEdit* txtEmail;
    QPlainTextEdit* txtUserDescription;
};

} // namespace tarsel
