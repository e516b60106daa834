#include "output/forms/NamePreview.h"

#include "controls/ListControl.h"

#include <QAbstractItemView>
#include <QFileInfo>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

namespace tarsel {

namespace {
constexpr int RowsOfASlice = 20;
} // namespace

NamePreview::NamePreview(const ListView& lvPages, const ListView& lvEditBatch, QWidget* parent) :
    QWidget(parent), m_pages(lvPages), m_tasks(lvEditBatch),
    m_names({QStringLiteral("New name"), QStringLiteral("Source file"), QStringLiteral("Remark")}),
    m_summary(new QLabel(this)) {
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

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(list, 1);
    column->addWidget(m_summary);
    connect(&m_slice, &QTimer::timeout, this, &NamePreview::planSlice);
}

void NamePreview::show(const BatchSave& settings) {
    m_names.clear();
    m_remarks = 0;
    m_overwrite = settings.Overwrite == 1;
    m_planner = std::make_unique<NamePlanner>(m_pages, m_tasks, settings);
    m_slice.start(0);
    showSummary();
}

void NamePreview::planSlice() {
    for (const PlannedName& planned : m_planner->next(RowsOfASlice)) {
        const QString remark = clashText(planned, m_overwrite);
        m_remarks += remark.isEmpty() ? 0 : 1;
        ListRow row;
        row.text = QFileInfo(planned.target).fileName();
        row.tag = planned.target;
        row.subItems = {QFileInfo(planned.source).fileName(), remark};
        row.icon = remark.isEmpty() ? -1 : 0;
        m_names.add(row);
    }
    if (m_planner->finished())
        m_slice.stop();
    showSummary();
}

void NamePreview::showSummary() {
    const int total = m_planner->rowCount();
    if (!m_planner->finished())
        m_summary->setText(QStringLiteral("Looking at name %1 of %2").arg(m_planner->planned()).arg(total));
    else if (m_remarks)
        m_summary->setText(QStringLiteral("%1 names, %2 with a remark").arg(total).arg(m_remarks));
    else
        m_summary->setText(QStringLiteral("%1 names, no clashes").arg(total));
}

} // namespace tarsel
