// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/forms/OptionPage.h"

#include "controls/ColorWell.h"
#include "controls/LineIcon.h"
#include "controls/NumberBox.h"
#include "controls/PictureButton.h"
#include "tasks/TaskList.h"
#include "tasks/forms/FormControls.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>
#include <set>
#include <string>

namespace tarsel {

namespace {

struct SelectionButton {
    const char* name;
    PictureSelection selection;
};

constexpr SelectionButton selectionButtons[] = {
    {"chkCropMouse", PictureSelection::Region},
    {"chkSelectLocation", PictureSelection::Location},
    {"chkCropBackColor", PictureSelection::BackColor},
    {"chkRedEye", PictureSelection::Eye},
};

RecordField<TaskDefaults> recordField(const TaskField& field) {
    return std::visit(
        []<class Field>(Field each) -> RecordField<TaskDefaults> {
            if constexpr (std::is_same_v<Field, std::monostate>)
                qFatal("A control without a setting");
            else
                return each;
        },
        field);
}

bool isNumber(ColumnType type) {
    return type == ColumnType::Int16 || type == ColumnType::Int32;
}

/// The box of a text, or the edit of an editable list; null for other controls.
QLineEdit* editOf(QObject* control) {
    if (auto* list = qobject_cast<QComboBox*>(control))
        return list->lineEdit();
    return qobject_cast<QLineEdit*>(control);
}

void showNumber(QSlider& slider, QLabel& label) {
    label.setMinimumWidth(label.fontMetrics().horizontalAdvance(QStringLiteral("1000")));
    const auto show = [&label](int value) { label.setNum(value); };
    QObject::connect(&slider, &QSlider::valueChanged, &label, show);
    QObject::connect(&slider, &QSlider::sliderMoved, &label, show);
    show(slider.value());
}

/// Box and slider follow each other; a number beyond the slider's range leaves it at its end.
void joinBoxAndSlider(QLineEdit& box, QSlider& slider) {
    // An emptied box is refilled before this slot runs: what the box holds counts, not what the signal says.
    QObject::connect(&box, &QLineEdit::textChanged, &slider, [&box, &slider] {
        const QSignalBlocker silent(slider);
        slider.setValue(int(leadingNumber(box.text())));
    });
    QObject::connect(&slider, &QSlider::valueChanged, &box,
                     [&box](int value) { box.setText(QString::number(value)); });
}

} // namespace

OptionPage::OptionPage(int kind, TaskDefaults& defaults, SetUp setUp, QWidget* parent) :
    TaskOptionPage(parent), m_kind(kind), m_defaults(defaults) {
    setUp(this);
    bindColumns();
    bindSettings();
    OptionPage::setLive(false);
    connectSelectionButtons();
    // A click on the picture that is chosen already is a change too.
    for (auto* button : findChildren<PictureButton*>())
        connect(button, &PictureButton::pressed, this, [this, button] {
            if (button->isChecked())
                takeChange();
        });
}

void OptionPage::bindColumns() {
    std::set<std::string> controls;
    for (const TaskColumn& column : taskColumns(m_kind)) {
        if (!column.control.name)
            continue;
        m_columns.push_back({&column, FieldControl(*this, column.control.name)});
        addCompanion(column);
        if (controls.insert(column.control.name).second)
            m_columns.back().control.onChange([this] { takeChange(); });
    }
    for (const TaskOption& option : taskOptions(m_kind))
        FieldControl(*this, option.control).onChange([this] { takeChange(); });
}

void OptionPage::bindSettings() {
    for (const TaskColumn& column : taskColumns(m_kind))
        if (column.control.name && !std::holds_alternative<std::monostate>(column.initial.field))
            m_fields.push_back({column.control.name, recordField(column.initial.field)});
    for (const TaskOption& option : taskOptions(m_kind))
        m_fields.push_back({option.control, recordField(option.field)});
    m_binding = std::make_unique<FormBinding<TaskDefaults>>(*this, m_defaults, m_fields);
}

void OptionPage::addCompanion(const TaskColumn& column) {
    auto* control = findChild<QObject*>(QLatin1String(column.control.name));
    auto* companion = findChild<QObject*>(QLatin1String(column.control.companion));
    auto* slider = qobject_cast<QSlider*>(companion);
    if (QLineEdit* box = editOf(control); box && isNumber(column.type)) {
        takeNumbers(box, {column.limits.bounded, column.limits.lowest, column.limits.highest,
                          QLatin1String(column.fallback), slider && slider->minimum() < 0,
                          column.control.takesFraction});
        if (slider)
            joinBoxAndSlider(*box, *slider);
    } else if (auto* label = qobject_cast<QLabel*>(companion)) {
        m_sliders.push_back(qobject_cast<QSlider*>(control));
        showNumber(*m_sliders.back(), *label);
    }
}

// --- showing and reading

void OptionPage::showRow(const TaskRow& row) {
    const QScopedValueRollback filling(m_isFilling, true);
    m_region.reset();
    m_binding->show();
    for (const ShownColumn& shown : m_columns)
        if (const ColumnDefault& initial = shown.column->initial;
            std::holds_alternative<std::monostate>(initial.field) && initial.texts[0])
            shown.show(QLatin1String(initial.texts[0]));
    showPicture();
    const std::span<const TaskColumn> columns = taskColumns(m_kind);
    for (const ShownColumn& shown : m_columns)
        if (const QString& text = shown.column->text(row);
            !text.isEmpty() && isRead(*shown.column, columns, row))
            shown.show(text);
    showSpecial(row);
}

void OptionPage::ShownColumn::show(const QString& text) const {
    if (control.value().typeId() == QMetaType::QString)
        control.setValue(text);
    else
        control.setValue(numberOfText(*column, text));
}

QString OptionPage::ShownColumn::text() const {
    const QVariant value = control.value();
    return value.typeId() == QMetaType::QString ? value.toString() : textOfNumber(*column, value.toInt());
}

TaskRow OptionPage::row() const {
    TaskRow row{QString::number(m_kind), {}, {}};
    if (const TaskKind* kind = taskKind(m_kind))
        row.key = QLatin1String(kind->rowKey);
    const std::span<const TaskColumn> columns = taskColumns(m_kind);
    // Conditions look at columns that come first.
    for (const ShownColumn& shown : m_columns)
        if (isRead(*shown.column, columns, row))
            setText(row, shown.column->number, shown.text());
    return row;
}

void OptionPage::setText(TaskRow& row, int column, const QString& text) {
    row.columns.at(std::size_t(column - 1)) = text;
}

TaskDefaults OptionPage::shownDefaults() const {
    return m_binding->shown();
}

void OptionPage::setLive(bool live) {
    for (QSlider* slider : m_sliders)
        slider->setTracking(live);
}

void OptionPage::takeChange() {
    if (!m_isFilling)
        Q_EMIT changed();
}

// --- selection on the picture

void OptionPage::connectSelectionButtons() {
    for (const auto& [name, selection] : selectionButtons)
        if (auto* button = findChild<QAbstractButton*>(QLatin1String(name)))
            connect(button, &QAbstractButton::toggled, this,
                    [this, wanted = selection](bool on) { Q_EMIT selectionWanted(wanted, on); });
    if (auto* pick = findChild<QToolButton*>(QStringLiteral("chkCropBackColor")))
        pick->setIcon(lineIcon(QStringLiteral("pick")));
}

void OptionPage::endSelection(PictureSelection selection) {
    for (const SelectionButton& each : selectionButtons)
        if (auto* button = findChild<QAbstractButton*>(QLatin1String(each.name));
            button && each.selection == selection)
            button->setChecked(false);
}

void OptionPage::setLocation(QPoint location) {
    m_location = location;
    if (auto* label = findChild<QLabel*>(QStringLiteral("lblSelectLocation")))
        label->setText(QStringLiteral("X-%1; Y-%2").arg(location.x()).arg(location.y()));
    takeChange();
}

void OptionPage::setBackColor(Color color) {
    hoverBackColor({});
    {
        const QScopedValueRollback filling(m_isFilling, true);
        controlOf<ColorWell>(*this, "picCropBackColor").setValue(color);
    }
    takeChange();
}

void OptionPage::hoverBackColor(std::optional<Color> color) {
    if (auto* well = findChild<ColorWell*>(QStringLiteral("picCropBackColor")))
        well->showOther(color);
}

void OptionPage::showRegion(QPoint start, QPoint end) {
    m_region = {start, end};
}

void OptionPage::writeRegion(TaskRow& row, int firstColumn) const {
    if (!m_region)
        return;
    const auto& [start, end] = *m_region;
    for (const int edge : {start.x(), start.y(), end.x(), end.y()})
        setText(row, firstColumn++, QString::number(edge));
}

} // namespace tarsel
