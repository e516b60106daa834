// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/NamePreview.h"

#include "collections/Basket.h"
#include "controls/ElidedLabel.h"
#include "controls/ListControl.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

namespace tarsel {

namespace {
constexpr int RowsOfASlice = 20;

QString destinationText(const QStringList& folders) {
    if (folders.isEmpty())
        return {};
    return folders.size() == 1 ? QStringLiteral("They go to %1").arg(folders.first())
                               : QStringLiteral("They go to %1 folders").arg(folders.size());
}
} // namespace

NamePreview::NamePreview(const ListView& lvPages, const ListView& lvEditBatch, QWidget* parent) :
    QWidget(parent), m_pages(lvPages), m_tasks(lvEditBatch),
    m_names({QStringLiteral("New name"), QStringLiteral("Source file"), QStringLiteral("Remark")}),
    m_summary(new QLabel(this)), m_destination(new ElidedLabel({}, this)) {
    m_icons.add(style()->standardIcon(QStyle::SP_MessageBoxWarning));
    m_names.attachImages(&m_icons);
    auto* list = new ListControl(m_names, this);
    list->setObjectName(QStringLiteral("lvNames"));
    list->setAccessibleName(QStringLiteral("Names of the files that will be made"));
    list->setFullRowSelect(true);
    list->view()->setTextElideMode(Qt::ElideMiddle);
    list->setColumnWidth(0, 230);
    list->setColumnWidth(1, 150);
    m_summary->setObjectName(QStringLiteral("lblNames"));
    m_destination->setObjectName(QStringLiteral("lblNamesFolder"));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(list, 1);
    column->addWidget(m_summary);
    column->addWidget(m_destination);
    connect(&m_slice, &QTimer::timeout, this, &NamePreview::planSlice);
}

void NamePreview::show(const BatchSave& settings) {
    m_names.clear();
    m_remarks = 0;
    m_folders.clear();
    m_overwrite = settings.Overwrite == 1;
    m_planner = std::make_unique<NamePlanner>(m_pages, m_tasks, settings);
    m_slice.start(0);
    showSummary();
}

void NamePreview::planSlice() {
    for (const PlannedName& planned : m_planner->next(RowsOfASlice))
        addName(planned);
    if (m_planner->finished())
        m_slice.stop();
    showSummary();
}

/// A page is shown by its document: its own file is none that the user knows.
void NamePreview::addName(const PlannedName& planned) {
    const QString remark = clashText(planned, m_overwrite);
    m_remarks += remark.isEmpty() ? 0 : 1;
    const QString document = m_pages.subItem(planned.row - 1, BasketColumn::SourcePath);
    const QFileInfo target(planned.target);
    const QString folder = planned.target.isEmpty() ? QString() : QDir::cleanPath(target.path());
    if (!folder.isEmpty() && !m_folders.contains(folder))
        m_folders << folder;
    ListRow row;
    row.text = target.fileName();
    row.tag = planned.target;
    row.subItems = {QFileInfo(document.isEmpty() ? planned.source : document).fileName(), remark};
    row.icon = remark.isEmpty() ? -1 : 0;
    m_names.add(row);
}

void NamePreview::showSummary() {
    const int total = m_planner->rowCount();
    if (!m_planner->finished())
        m_summary->setText(QStringLiteral("Looking at name %1 of %2").arg(m_planner->planned()).arg(total));
    else if (m_remarks)
        m_summary->setText(QStringLiteral("%1 names, %2 with a remark").arg(total).arg(m_remarks));
    else
        m_summary->setText(QStringLiteral("%1 names, no clashes").arg(total));
    m_destination->setText(destinationText(m_folders));
    m_destination->setToolTip(m_folders.join(QLatin1Char('\n')));
}

} // namespace tarsel
