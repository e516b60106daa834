// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/frmBatchResults.h"

#include "base/SystemServices.h"
#include "controls/FormScrollArea.h"
#include "controls/ListControl.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace tarsel {

namespace {

/// The rows in the order in which they need the user's attention.
enum class Severity { Failed, Warning, Skipped, Written };

Severity severityOf(const RowResult& result) {
    if (result.state == RowState::Failed)
        return Severity::Failed;
    if (result.state == RowState::Skipped)
        return Severity::Skipped;
    return result.remarks.isEmpty() ? Severity::Written : Severity::Warning;
}

QString iconOf(Severity severity) {
    constexpr const char* icons[] = {"failed", "warning", "skipped", "written"};
    return QLatin1String(icons[size_t(severity)]);
}

} // namespace

QString resultSummary(const std::vector<RowResult>& results) {
    const auto translated = [](const char* text, int count = -1) {
        return QCoreApplication::translate("frmBatchResults", text, nullptr, count);
    };
    int counts[4] = {};
    for (const RowResult& result : results)
        ++counts[size_t(severityOf(result))];
    const auto countOf = [&](Severity severity) { return counts[size_t(severity)]; };
    const int warnings = countOf(Severity::Warning);
    const QString summary =
        translated(QT_TRANSLATE_NOOP("frmBatchResults", "%1 written, %2 skipped, %3 failed"))
            .arg(countOf(Severity::Written) + warnings)
            .arg(countOf(Severity::Skipped))
            .arg(countOf(Severity::Failed));
    if (warnings == 0)
        return summary;
    const char* remark =
        warnings == 1 ? QT_TRANSLATE_NOOP("frmBatchResults", "1 of the written pictures has a warning")
                      : QT_TRANSLATE_NOOP("frmBatchResults", "%n of the written pictures have a warning");
    return summary + QStringLiteral(" - ") + translated(remark, warnings);
}

frmBatchResults::frmBatchResults(const std::vector<RowResult>& results, QWidget* owner) :
    QDialog(owner), m_rows({tr("State"), tr("Source"), tr("Target"), tr("Reason")}) {
    setObjectName(QStringLiteral("frmBatchResults"));
    setWindowTitle(tr("Results of the batch"));
    setAttribute(Qt::WA_DeleteOnClose);
    addRows(results);

    auto* summary = new QLabel(resultSummary(results), this);
    summary->setObjectName(QStringLiteral("lblSummary"));
    summary->setWordWrap(true);
    summary->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* folder = buttons->addButton(tr("&Open folder"), QDialogButtonBox::ActionRole);
    folder->setObjectName(QStringLiteral("cmdOpenFolder"));
    folder->setEnabled(std::any_of(results.begin(), results.end(),
                                   [](const RowResult& r) { return r.state == RowState::Written; }));
    QPushButton* copy = buttons->addButton(tr("&Copy all"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("cmdCopyAll"));
    connect(folder, &QPushButton::clicked, this, &frmBatchResults::openFolder);
    connect(copy, &QPushButton::clicked, this, &frmBatchResults::copyAll);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 14, 14, 14);
    column->setSpacing(10);
    column->addWidget(summary);
    column->addWidget(makeList(), 1);
    column->addWidget(buttons);
    fitToScreen(*this, {110 * fontMetrics().averageCharWidth(), 24 * fontMetrics().height()});
}

void frmBatchResults::addRows(std::vector<RowResult> results) {
    std::stable_sort(results.begin(), results.end(), [](const RowResult& one, const RowResult& other) {
        return severityOf(one) < severityOf(other);
    });
    for (const RowResult& result : results) {
        ListRow row;
        row.text = rowStateText(result.state);
        row.tag = result.target;
        row.subItems = {result.source, result.target, result.reason()};
        row.iconKey = iconOf(severityOf(result));
        m_rows.add(row);
    }
}

ListControl* frmBatchResults::makeList() {
    auto* list = new ListControl(m_rows, this);
    list->setObjectName(QStringLiteral("lvResults"));
    list->setAccessibleName(tr("Results by row"));
    list->setFullRowSelect(true);
    list->setColumnWidth(0, 90);
    for (const int column : {1, 2, 3})
        list->setColumnWidth(column, 170);
    return list;
}

/// The folder of the selected row's file, or of the first one that was written.
void frmBatchResults::openFolder() {
    int row = m_rows.selectedIndex();
    for (int i = 0; row < 0 && i < m_rows.count(); ++i)
        if (m_rows.row(i).text == rowStateText(RowState::Written))
            row = i;
    if (row >= 0)
        service<SystemServices>().shellOpen(QFileInfo(m_rows.row(row).tag).path());
}

void frmBatchResults::copyAll() {
    copyRows(m_rows, false);
}

} // namespace tarsel
