// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/NamePreview.h"

#include "collections/Basket.h"
#include "controls/ListControl.h"
#include "output/forms/DestinationNotice.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

#include <chrono>

namespace tarsel {

namespace {

constexpr std::chrono::milliseconds slice{10};

void addOnce(QStringList& folders, const QString& folder) {
    if (!folders.contains(folder))
        folders << folder;
}

} // namespace

NamePreview::NamePreview(const ListView& lvPages, const ListView& lvEditBatch, QWidget* parent) :
    QWidget(parent), m_pages(lvPages), m_tasks(lvEditBatch),
    m_names({tr("New name"), tr("Source file"), tr("Remark")}), m_summary(new QLabel(this)),
    m_destination(new DestinationNotice(this)) {
    m_summary->setObjectName(QStringLiteral("lblNames"));
    m_summary->setWordWrap(true);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(makeList(), 1);
    column->addWidget(m_summary);
    column->addWidget(m_destination);
    connect(&m_slice, &QTimer::timeout, this, &NamePreview::planSlice);
    connect(m_destination, &DestinationNotice::folderCreated, this, [this] { show(m_settings); });
    connect(m_destination, &DestinationNotice::usableChanged, this, &NamePreview::destinationUsableChanged);
}

bool NamePreview::isDestinationUsable() const {
    return m_destination->isUsable();
}

void NamePreview::setTabOrderBetween(QWidget* before, QWidget* after) {
    QWidget* list = findChild<ListControl*>()->view();
    setTabOrder(before, list);
    setTabOrder(list, m_destination);
    setTabOrder(m_destination, after);
}

ListControl* NamePreview::makeList() {
    auto* list = new ListControl(m_names, this);
    list->setObjectName(QStringLiteral("lvNames"));
    list->setAccessibleName(tr("Names of the files that will be made"));
    list->setFullRowSelect(true);
    list->setColumnWidth(0, 150);
    list->setColumnWidth(1, 120);
    list->setWideColumn(2);
    return list;
}

void NamePreview::show(const settings::BatchSave& settings) {
    m_settings = settings;
    m_names.clear();
    m_folders.clear();
    m_sourceFolders.clear();
    m_counts = NameSummary(settings.Overwrite == 1);
    m_planner = std::make_unique<NamePlanner>(m_pages, m_tasks, settings);
    m_slice.start(0);
    planSlice(); // the folder of the first name is known at once
}

void NamePreview::planSlice() {
    const auto end = std::chrono::steady_clock::now() + slice;
    do {
        for (const PlannedName& planned : m_planner->next(1))
            addName(planned);
    } while (!m_planner->finished() && std::chrono::steady_clock::now() < end);
    if (m_planner->finished())
        m_slice.stop();
    showSummary();
}

/// A page is shown by its document: the user doesn't know its own file.
void NamePreview::addName(const PlannedName& planned) {
    m_counts.add(planned);
    const QString remark = clashText(planned, m_settings.Overwrite == 1);
    const QString document = m_pages.subItem(planned.row - 1, BasketColumn::SourcePath);
    const QFileInfo target(planned.target);
    const QFileInfo source(document.isEmpty() ? planned.source : document);
    if (!planned.target.isEmpty())
        addOnce(m_folders, QDir::cleanPath(target.path()));
    addOnce(m_sourceFolders, source.path());
    ListRow row;
    row.text = target.fileName();
    row.tag = planned.target;
    row.subItems = {source.fileName(), remark};
    if (!remark.isEmpty())
        row.iconKey = QStringLiteral("warning");
    m_names.add(row);
}

void NamePreview::showSummary() {
    if (m_planner->finished())
        m_summary->setText(m_counts.sentences().join(QLatin1Char('\n')));
    else
        m_summary->setText(
            tr("Looking at name %1 of %2").arg(m_planner->planned()).arg(m_planner->rowCount()));
    if (m_planner->finished() || m_folders.size() == 1)
        m_destination->show(m_folders, m_sourceFolders);
    else
        m_destination->show({});
}

} // namespace tarsel
