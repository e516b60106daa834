// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/frmScanOptions.h"

#include "acquisition/forms/ScanOptionEditor.h"
#include "acquisition/forms/ui_frmScanOptions.h"
#include "controls/FormScrollArea.h"
#include "controls/WheelToPanel.h"

#include <QFormLayout>
#include <QGroupBox>
#include <algorithm>

namespace tarsel {

namespace {

bool hasVisibleRow(const QGroupBox& group) {
    const auto editors = group.findChildren<ScanOptionEditor*>();
    return std::ranges::any_of(editors, [](const ScanOptionEditor* each) { return !each->isHidden(); });
}

/// Titles come from drivers.
QString asLabel(QString title) {
    return title.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

/// A box and a button bear their title themselves.
bool hasLabel(const ScanOption& option) {
    return option.type != ScanOptionType::Bool && option.type != ScanOptionType::Button;
}

} // namespace

frmScanOptions::frmScanOptions(QWidget* owner) :
    QDialog(owner), m_ui(std::make_unique<Ui::frmScanOptions>()) {
    m_ui->setupUi(this);
}

frmScanOptions::~frmScanOptions() = default;

std::vector<frmScanOptions::Row> frmScanOptions::rowsOf(const ScanOptions& options) {
    std::vector<Row> rows;
    for (const ScanOption& each : options.all())
        rows.push_back({each.name, each.type, !each.choices.empty(), each.isSettable});
    return rows;
}

void frmScanOptions::show(const ScanOptions& options) {
    if (rowsOf(options) != m_rows)
        makeRows(options);
    for (std::size_t i = 0; i < m_editors.size(); ++i)
        if (m_editors[i])
            showRow(*m_editors[i], options.all()[i]);
    for (QGroupBox* group : m_ui->options->findChildren<QGroupBox*>())
        group->setVisible(hasVisibleRow(*group));
}

/// What has no meaning with the other options as they are is out of sight.
void frmScanOptions::showRow(ScanOptionEditor& editor, const ScanOption& option) {
    editor.show(option);
    auto& rows = dynamic_cast<QFormLayout&>(*editor.parentWidget()->layout());
    rows.setRowVisible(&editor, option.isActive);
}

void frmScanOptions::makeRows(const ScanOptions& options) {
    m_rows = rowsOf(options);
    m_editors.clear();
    delete m_ui->options->layout();
    qDeleteAll(m_ui->options->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    auto* groups = new QVBoxLayout(m_ui->options);
    groups->setContentsMargins(0, 0, 0, 0);
    QFormLayout* rows = nullptr;
    for (const ScanOption& option : options.all()) {
        const bool isGroup = option.type == ScanOptionType::Group;
        if (isGroup || !rows) {
            auto* group = new QGroupBox(isGroup ? option.title : tr("Options"), m_ui->options);
            rows = new QFormLayout(group);
            rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
            rows->setRowWrapPolicy(QFormLayout::WrapLongRows);
            groups->addWidget(group);
        }
        if (isGroup || !option.isSettable) // keys and sensors of the device
            m_editors.push_back(nullptr);
        else
            addRow(*rows, option);
    }
    groups->addStretch(1);
    letWheelScroll(*m_ui->options);
    fitToScreen(*this, sizeHint().expandedTo(QSize(60 * fontMetrics().averageCharWidth(), 0)));
    // The control that got its parent last is the last one that Tab reaches.
    m_ui->cmdClose->setParent(nullptr);
    m_ui->buttons->addWidget(m_ui->cmdClose);
}

void frmScanOptions::addRow(QFormLayout& rows, const ScanOption& option) {
    auto* editor = new ScanOptionEditor(option, rows.parentWidget());
    connect(editor, &ScanOptionEditor::changed, this, &frmScanOptions::changed);
    if (hasLabel(option))
        rows.addRow(asLabel(option.title), editor);
    else
        rows.addRow(editor);
    m_editors.push_back(editor);
}

} // namespace tarsel
