// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/frmBatchResults.h"

#include "base/Desktop.h"
#include "controls/ListControl.h"

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace tarsel {

QString resultSummary(const std::vector<RowResult>& results) {
    const auto count = [&](RowState state) {
        return std::count_if(results.begin(), results.end(),
                             [&](const RowResult& r) { return r.state == state; });
    };
    return QStringLiteral("%1 written, %2 skipped, %3 failed")
        .arg(count(RowState::Written))
        .arg(count(RowState::Skipped))
        .arg(count(RowState::Failed));
}

frmBatchResults::frmBatchResults(const std::vector<RowResult>& results, QWidget* owner) :
    QDialog(owner), m_rows({QStringLiteral("State"), QStringLiteral("Source"), QStringLiteral("Target"),
                            QStringLiteral("Reason")}) {
    setObjectName(QStringLiteral("frmBatchResults"));
    setWindowTitle(QStringLiteral("Results of the batch"));
    setAttribute(Qt::WA_DeleteOnClose);
    for (const RowResult& result : results) {
        ListRow row;
        row.text = rowStateText(result.state);
        row.tag = result.target;
        row.subItems = {result.source, result.target, result.reason};
        m_rows.add(row);
    }
    auto* summary = new QLabel(resultSummary(results), this);
    summary->setObjectName(QStringLiteral("lblSummary"));
    auto* list = new ListControl(m_rows, this);
    list->setObjectName(QStringLiteral("lvResults"));
    list->setAccessibleName(QStringLiteral("Results by row"));
    list->setFullRowSelect(true);
    list->view()->setTextElideMode(Qt::ElideMiddle);
    list->setColumnWidth(0, 80);
    list->setColumnWidth(1, 270);
    list->setColumnWidth(2, 270);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* folder = buttons->addButton(QStringLiteral("&Open folder"), QDialogButtonBox::ActionRole);
    folder->setObjectName(QStringLiteral("cmdOpenFolder"));
    folder->setEnabled(std::any_of(results.begin(), results.end(),
                                   [](const RowResult& r) { return r.state == RowState::Written; }));
    connect(folder, &QPushButton::clicked, this, &frmBatchResults::openFolder);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 14, 14, 14);
    column->setSpacing(10);
    column->addWidget(summary);
    column->addWidget(list, 1);
    column->addWidget(buttons);
    resize(880, 360);
}

/// The folder of the selected row's file, or of the first one that was written.
void frmBatchResults::openFolder() {
    int row = m_rows.selectedIndex();
    for (int i = 0; row < 0 && i < m_rows.count(); ++i)
        if (m_rows.row(i).text == rowStateText(RowState::Written))
            row = i;
    if (row >= 0)
        desktop().shellOpen(QFileInfo(m_rows.row(row).tag).path());
}

} // namespace tarsel
