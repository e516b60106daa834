// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScanOptionEditor.h"

#include "acquisition/forms/ScanChoices.h"
#include "controls/PlainToolTip.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <algorithm>
#include <cmath>
#include <limits>

namespace tarsel {

namespace {

bool isNumber(const ScanOption& option) {
    return option.type == ScanOptionType::Int || option.type == ScanOptionType::Fixed;
}

} // namespace

QString unitSuffix(ScanUnit unit) {
    switch (unit) {
    case ScanUnit::Pixel:
        return ScanOptionEditor::tr(" pixels");
    case ScanUnit::Bit:
        return ScanOptionEditor::tr(" bits");
    case ScanUnit::Millimetre:
        return ScanOptionEditor::tr(" mm");
    case ScanUnit::Dpi:
        return ScanOptionEditor::tr(" dpi");
    case ScanUnit::Percent:
        return ScanOptionEditor::tr(" %");
    case ScanUnit::Microsecond:
        return ScanOptionEditor::tr(" µs");
    case ScanUnit::None:
        break;
    }
    return {};
}

void setLimits(QDoubleSpinBox& box, const ScanOption& option) {
    const ScanRange range = option.range.value_or(
        ScanRange{double(std::numeric_limits<int>::min()), double(std::numeric_limits<int>::max()), 0});
    const bool isWhole =
        option.type == ScanOptionType::Int || (range.step >= 1 && std::floor(range.step) == range.step);
    box.setDecimals(isWhole ? 0 : 2);
    box.setRange(range.minimum, range.maximum);
    box.setSingleStep(range.step > 0 ? range.step : 1);
    box.setSuffix(unitSuffix(option.unit));
}

ScanOptionEditor::ScanOptionEditor(const ScanOption& option, QWidget* parent) :
    QWidget(parent), m_option(option) {
    makeControl();
    m_control->setObjectName(QStringLiteral("option-") + option.name);
    m_control->setAccessibleName(option.title);
    m_control->setToolTip(plainToolTip(option.description));
    setFocusProxy(m_control);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_control, option.type == ScanOptionType::Button ? 0 : 1);
    if (option.type == ScanOptionType::Button)
        row->addStretch(1);
    show(option);
}

void ScanOptionEditor::makeControl() {
    if (m_option.type == ScanOptionType::Bool) {
        auto* box =
            new QCheckBox(QString(m_option.title).replace(QLatin1Char('&'), QStringLiteral("&&")), this);
        connect(box, &QCheckBox::toggled, this, [this](bool on) { report(on); });
        m_control = box;
    } else if (m_option.type == ScanOptionType::Button) {
        auto* button =
            new QPushButton(QString(m_option.title).replace(QLatin1Char('&'), QStringLiteral("&&")), this);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this] { report({}); });
        m_control = button;
    } else if (!m_option.choices.empty()) {
        auto* box = new QComboBox(this);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(12);
        connect(box, &QComboBox::activated, this,
                [this, box](int index) { report(box->itemData(index).value<ScanValue>()); });
        m_control = box;
    } else if (isNumber(m_option)) {
        auto* box = new QDoubleSpinBox(this);
        box->setKeyboardTracking(false);
        connect(box, &QDoubleSpinBox::valueChanged, this,
                [this](double number) { report(numberFor(m_option, number)); });
        m_control = box;
    } else {
        auto* field = new QLineEdit(this);
        connect(field, &QLineEdit::editingFinished, this, [this, field] {
            if (field->isModified())
                report(field->text());
        });
        m_control = field;
    }
}

void ScanOptionEditor::report(const ScanValue& value) {
    if (!m_isShowing)
        Q_EMIT changed(m_option.name, value);
}

void ScanOptionEditor::show(const ScanOption& option) {
    const QScopedValueRollback showing(m_isShowing, true);
    m_option = option;
    setEnabled(option.canBeSet());
    if (auto* check = qobject_cast<QCheckBox*>(m_control)) {
        const bool* const isOn = std::get_if<bool>(&option.value);
        check->setChecked(isOn && *isOn);
    } else if (auto* list = qobject_cast<QComboBox*>(m_control)) {
        fillChoices(*list, option);
    } else if (auto* number = qobject_cast<QDoubleSpinBox*>(m_control)) {
        setLimits(*number, option);
        number->setValue(option.number().value_or(number->minimum()));
    } else if (auto* field = qobject_cast<QLineEdit*>(m_control)) {
        field->setText(option.text());
        field->setModified(false);
    }
}

} // namespace tarsel
