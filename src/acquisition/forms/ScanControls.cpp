// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScanControls.h"

#include "acquisition/forms/ScanChoices.h"
#include "acquisition/forms/ScanOptionEditor.h"
#include "controls/PlainToolTip.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QScopedValueRollback>
#include <QSlider>
#include <cmath>
#include <cstring>

namespace tarsel {

namespace {

constexpr const char* lists[] = {"Source", "Mode", "Resolution"};
constexpr const char* numbers[] = {"Brightness", "Contrast"};

QString optionOf(const char* name) {
    return QString::fromLatin1(name).toLower();
}

/// Some devices have a resolution in each direction instead.
const ScanOption* findFor(const ScanOptions& options, const char* name) {
    const ScanOption* const found = options.find(optionOf(name));
    return !found && std::strcmp(name, "Resolution") == 0 ? options.find(scanOption::xResolution) : found;
}

template <class Widget>
Widget& control(const QWidget& form, const char* prefix, const char* name) {
    return *form.findChild<Widget*>(QLatin1String(prefix) + QLatin1String(name));
}

/// The slider counts the steps of the number.
int positionOf(const QDoubleSpinBox& box, double value) {
    return int(std::lround((value - box.minimum()) / box.singleStep()));
}

} // namespace

ScanControls::ScanControls(QWidget& form) : QObject(&form), m_form(form) {
    for (const char* name : lists)
        connectList(name);
    for (const char* name : numbers)
        connectNumber(name);
}

void ScanControls::connectList(const char* name) {
    auto& list = control<QComboBox>(m_form, "cbo", name);
    connect(&list, &QComboBox::currentIndexChanged, this, [this, name, &list](int index) {
        if (!m_isShowing && index >= 0)
            reportChoice(name, list.itemData(index).value<ScanValue>());
    });
}

void ScanControls::connectNumber(const char* name) {
    auto& box = control<QDoubleSpinBox>(m_form, "spn", name);
    auto& slider = control<QSlider>(m_form, "sld", name);
    connect(&slider, &QSlider::valueChanged, this, [this, &box](int position) {
        if (!m_isShowing)
            box.setValue(box.minimum() + position * box.singleStep());
    });
    connect(&box, &QDoubleSpinBox::valueChanged, this, [this, name, &box, &slider](double value) {
        if (m_isShowing)
            return;
        {
            const QScopedValueRollback showing(m_isShowing, true);
            slider.setValue(positionOf(box, value));
        }
        reportNumber(name, value);
    });
}

void ScanControls::reportChoice(const char* name, const ScanValue& value) {
    const ScanOption* const option = findFor(m_options, name);
    if (!option)
        return;
    if (option->name == scanOption::xResolution)
        Q_EMIT changed(m_options.settingsForResolution(numberOf(value)));
    else
        Q_EMIT changed({{option->name, value}});
}

void ScanControls::reportNumber(const char* name, double value) {
    if (const ScanOption* const option = findFor(m_options, name))
        Q_EMIT changed({{option->name, numberFor(*option, value)}});
}

void ScanControls::show(const ScanOptions& options) {
    const QScopedValueRollback showing(m_isShowing, true);
    m_options = options;
    for (const char* name : lists)
        showList(name, findFor(options, name));
    for (const char* name : numbers)
        showNumber(name, findFor(options, name));
}

void ScanControls::showRow(const char* name, const ScanOption* option,
                           std::initializer_list<const char*> prefixes) {
    for (const char* prefix : prefixes) {
        auto& widget = control<QWidget>(m_form, prefix, name);
        widget.setVisible(option || m_options.isEmpty()); // rows stay while nothing is known of them
        widget.setEnabled(option && option->canBeSet());
        widget.setToolTip(option ? plainToolTip(option->description) : QString());
    }
}

void ScanControls::showList(const char* name, const ScanOption* option) {
    showRow(name, option, {"lbl", "cbo"});
    auto& list = control<QComboBox>(m_form, "cbo", name);
    if (option)
        fillChoices(list, *option);
    else
        list.clear();
}

void ScanControls::showNumber(const char* name, const ScanOption* option) {
    const bool isThere = option && option->range;
    showRow(name, isThere ? option : nullptr, {"lbl", "sld", "spn"});
    if (!isThere)
        return;
    auto& box = control<QDoubleSpinBox>(m_form, "spn", name);
    auto& slider = control<QSlider>(m_form, "sld", name);
    setLimits(box, *option);
    slider.setRange(0, positionOf(box, box.maximum()));
    slider.setPageStep(std::max(1, slider.maximum() / 10));
    if (const auto number = option->number()) {
        box.setValue(*number);
        slider.setValue(positionOf(box, *number));
    }
}

} // namespace tarsel
