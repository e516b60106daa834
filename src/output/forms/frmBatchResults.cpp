// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/frmBatchResults.h"

#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/SafeFileWriter.h"
#include "base/SaveFileDialog.h"
#include "base/SystemServices.h"
#include "base/Translation.h"
#include "controls/FormScrollArea.h"
#include "controls/LineIcon.h"
#include "controls/ListControl.h"
#include "controls/PlainToolTip.h"
#include "output/forms/ui_frmBatchResults.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
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

QString shownState(RowState state) {
    switch (state) {
    case RowState::Written:
        return frmBatchResults::tr("written");
    case RowState::Skipped:
        return frmBatchResults::tr("skipped");
    case RowState::Failed:
        break;
    }
    return frmBatchResults::tr("failed");
}

QStringList foldersOf(const std::vector<RowResult>& results) {
    QStringList folders;
    for (const RowResult& result : results)
        if (result.state == RowState::Written)
            folders << QDir::cleanPath(QFileInfo(result.target).path());
    folders.removeDuplicates();
    return folders;
}

QString longestState() {
    return std::max(
        {shownState(RowState::Written), shownState(RowState::Skipped), shownState(RowState::Failed)},
        [](const QString& a, const QString& b) { return a.size() < b.size(); });
}

} // namespace

QString resultSummary(const std::vector<RowResult>& results) {
    int counts[4] = {};
    for (const RowResult& result : results)
        ++counts[size_t(severityOf(result))];
    const auto countOf = [&](Severity severity) { return counts[size_t(severity)]; };
    const int warnings = countOf(Severity::Warning);
    const QString summary =
        warnings == 0
            ? frmBatchResults::tr("%1 written, %2 skipped, %3 failed")
            : countedText(
                  "frmBatchResults",
                  "%1 written, %2 skipped, %3 failed - 1 of the written pictures has a warning",
                  QT_TRANSLATE_N_NOOP(
                      "frmBatchResults",
                      "%1 written, %2 skipped, %3 failed - %n of the written pictures have a warning"),
                  warnings);
    return summary.arg(countOf(Severity::Written) + warnings)
        .arg(countOf(Severity::Skipped))
        .arg(countOf(Severity::Failed));
}

frmBatchResults::frmBatchResults(const std::vector<RowResult>& results, QWidget* owner,
                                 const QString& album) :
    QDialog(owner),
    m_rows({tr("State"), tr("Source"), tr("Target"), tr("Reason")}),
    m_ui(std::make_unique<Ui::frmBatchResults>()) {
    m_ui->setupUi(this);
    addRows(results);
    m_ui->lblSummary->setText(resultSummary(results));
    ListControl* list = makeList();
    m_ui->layList->addWidget(list);
    setTabOrder(m_ui->lblSummary, m_ui->lnkFolder);
    setTabOrder(m_ui->lnkFolder, list->view());
    setTabOrder(list->view(), m_ui->cmdOpenFolder);
    showFolders(album.isEmpty() ? foldersOf(results) : QStringList(QDir::cleanPath(album)));
    connect(m_ui->cmdOpenFolder, &QPushButton::clicked, this,
            [this, album] { album.isEmpty() ? openFolder() : openFolder(QDir::cleanPath(album)); });
    connect(m_ui->cmdCopyAll, &QPushButton::clicked, this, [this] { copyRows(m_rows, false); });
    connect(m_ui->cmdSaveText, &QPushButton::clicked, this, &frmBatchResults::saveText);
    connectList(*list);
    fitToScreen(*this, {150 * fontMetrics().averageCharWidth(), 24 * fontMetrics().height()});
    list->setFocus();
}

frmBatchResults::~frmBatchResults() = default;

void frmBatchResults::addRows(std::vector<RowResult> results) {
    std::stable_sort(results.begin(), results.end(), [](const RowResult& one, const RowResult& other) {
        return severityOf(one) < severityOf(other);
    });
    for (const RowResult& result : results) {
        ListRow row;
        row.text = shownState(result.state);
        row.tag = result.target;
        row.subItems = {result.source, result.target, result.reason()};
        row.iconKey = iconOf(severityOf(result));
        m_rows.add(row);
    }
}

void frmBatchResults::showFolders(const QStringList& folders) {
    m_ui->cmdOpenFolder->setEnabled(!folders.isEmpty());
    m_ui->lnkFolder->setVisible(folders.size() == 1);
    if (folders.size() != 1)
        return;
    const QString folder = folders.first();
    m_ui->lnkFolder->setCaption(QString(folder).replace(QLatin1Char('&'), QLatin1String("&&")));
    m_ui->lnkFolder->setAccessibleName(tr("Open the folder %1").arg(folder));
    m_ui->lnkFolder->setToolTip(plainToolTip(m_ui->lnkFolder->accessibleName()));
    connect(m_ui->lnkFolder, &Hyperlink::clicked, this, [this, folder] { openFolder(folder); });
}

ListControl* frmBatchResults::makeList() {
    auto* list = new ListControl(m_rows, this);
    list->setObjectName(QStringLiteral("lvResults"));
    list->setAccessibleName(tr("Results by row"));
    list->setFullRowSelect(true);
    list->setUsualText(0, longestState() + QStringLiteral("MMM")); // beside its icon
    list->setColumnWidth(0, 100);
    for (const int column : {1, 2})
        list->setColumnWidth(column, 260);
    list->setWideColumn(3);
    return list;
}

void frmBatchResults::connectList(ListControl& list) {
    connect(&list, &ListControl::rowDoubleClicked, this, &frmBatchResults::openFile);
    connect(&list, &ListControl::enterPressed, this, [this] {
        if (m_rows.selectedIndex() < 0)
            close();
        else
            openFile();
    });
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuResults"));
    const auto add = [&](const char* icon, const QString& text, auto action) {
        menu->addAction(lineIcon(QLatin1String(icon)), text, this, action);
    };
    add("iDetailIcon", tr("&Open the file"), [this] { openFile(); });
    add("folder", tr("Open its &folder"), [this] { openFolder(); });
    add("copy", tr("&Copy the selected rows"), [this] { copyRows(m_rows, true); });
    connect(&list, &ListControl::menuWanted, menu, [menu](const QPoint& position) { menu->popup(position); });
}

/// The selected row, or the first one that was written; -1 when there is neither.
int frmBatchResults::usedRow() const {
    int row = m_rows.selectedIndex();
    for (int i = 0; row < 0 && i < m_rows.count(); ++i)
        if (m_rows.row(i).text == shownState(RowState::Written))
            row = i;
    return row;
}

void frmBatchResults::open(const QString& path, const QString& failure) {
    if (!service<SystemServices>().shellOpen(path))
        service<Dialogs>().messageBox(failure.arg(path), MessageIcon::Exclamation, MessageButtons::Ok,
                                      ApplicationName);
}

/// The file that the row made; of a row that made none, the source, which is what has the problem.
void frmBatchResults::openFile() {
    const int row = usedRow();
    if (row < 0)
        return;
    const bool written = m_rows.row(row).text == shownState(RowState::Written);
    open(written ? m_rows.row(row).tag : m_rows.subItem(row, 1), tr("The file %1 could not be opened."));
}

void frmBatchResults::openFolder() {
    const int row = usedRow();
    if (row >= 0)
        openFolder(QFileInfo(m_rows.row(row).tag).path());
}

void frmBatchResults::openFolder(const QString& folder) {
    open(folder, tr("The folder %1 could not be opened."));
}

void frmBatchResults::saveText() {
    const auto textPath = [](int, const QString& path) {
        return QFileInfo(path).suffix().isEmpty() ? path + QStringLiteral(".txt") : path;
    };
    const auto choice =
        saveFileDialogFor({tr("Save the results"), tr("Text file (*.txt)|*.txt"), {}}, textPath);
    if (!choice)
        return;
    std::ignore = trap("frmBatchResults.saveText", [&] {
        TrappingString = QStringLiteral("Saving the results of a batch");
        writeFileSafely(textPath(choice->filterIndex, choice->path),
                        rowsAsText(m_rows, false).toUtf8() + '\n');
    });
}

} // namespace tarsel
