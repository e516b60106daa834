// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FieldControl.h"

#include "controls/ValueControl.h"

#include <QAbstractSlider>
#include <QButtonGroup>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <type_traits>

namespace tarsel {

namespace {

/// The designer file can't number the buttons of a group: their names do.
void numberButtons(QButtonGroup& group) {
    for (QAbstractButton* button : group.buttons())
        group.setId(button, button->objectName().section(QLatin1Char('_'), -1).toInt());
}

/// Calls `work` with the control as its own class; what it returns for a class that no branch knows is its
/// default.
template <class Work>
auto asItsClass(QObject* control, const Work& work) {
    if (auto* own = dynamic_cast<ValueControl*>(control))
        return work(own);
    if (auto* slider = qobject_cast<QAbstractSlider*>(control))
        return work(slider);
    if (auto* button = qobject_cast<QAbstractButton*>(control))
        return work(button);
    if (auto* edit = qobject_cast<QLineEdit*>(control))
        return work(edit);
    if (auto* box = qobject_cast<QComboBox*>(control))
        return work(box);
    if (auto* group = qobject_cast<QButtonGroup*>(control))
        return work(group);
    qFatal("The control %s has no value that a form can store", qPrintable(control->objectName()));
}

struct SetValue {
    const QVariant& value;

    void operator()(ValueControl* own) const { own->setValue(value); }
    void operator()(QAbstractSlider* slider) const { slider->setValue(value.toInt()); }
    void operator()(QAbstractButton* button) const { button->setChecked(value.toInt() != 0); }
    void operator()(QLineEdit* edit) const { edit->setText(value.toString()); }
    void operator()(QComboBox* box) const {
        if (box->isEditable())
            box->setEditText(value.toString());
        else
            box->setCurrentIndex(value.toInt());
    }
    void operator()(QButtonGroup* group) const {
        if (QAbstractButton* button = group->button(value.toInt()))
            button->setChecked(true);
    }
};

struct GetValue {
    QVariant operator()(ValueControl* own) const { return own->value(); }
    QVariant operator()(QAbstractSlider* slider) const { return slider->value(); }
    QVariant operator()(QAbstractButton* button) const { return button->isChecked() ? 1 : 0; }
    QVariant operator()(QLineEdit* edit) const { return edit->text(); }
    QVariant operator()(QComboBox* box) const {
        return box->isEditable() ? QVariant(box->currentText()) : QVariant(box->currentIndex());
    }
    QVariant operator()(QButtonGroup* group) const {
        return group->checkedButton() ? QVariant(group->checkedId()) : QVariant();
    }
};

struct OnChange {
    const std::function<void()>& changed;

    template <class Control, class Signal>
    void join(Control* control, Signal signal) const {
        QObject::connect(control, signal, control, [call = changed] { call(); });
    }
    void operator()(ValueControl* own) const { own->onChange(changed); }
    void operator()(QAbstractSlider* slider) const { join(slider, &QAbstractSlider::valueChanged); }
    void operator()(QAbstractButton* button) const { join(button, &QAbstractButton::toggled); }
    void operator()(QLineEdit* edit) const { join(edit, &QLineEdit::textChanged); }
    void operator()(QComboBox* box) const {
        if (box->isEditable())
            join(box, &QComboBox::editTextChanged);
        else
            join(box, &QComboBox::currentIndexChanged);
    }
    /// Not with the button that goes out: its group has two checked buttons at that moment.
    void operator()(QButtonGroup* group) const {
        QObject::connect(group, &QButtonGroup::idToggled, group, [call = changed](int, bool on) {
            if (on)
                call();
        });
    }
};

} // namespace

FieldControl::FieldControl(QObject& form, const char* name) :
    m_control(form.findChild<QObject*>(QLatin1String(name))) {
    if (!m_control)
        qFatal("The form %s has no control %s", qPrintable(form.objectName()), name);
    if (auto* group = qobject_cast<QButtonGroup*>(m_control))
        numberButtons(*group);
}

void FieldControl::setValue(const QVariant& value) const {
    asItsClass(m_control, SetValue{value});
}

QVariant FieldControl::value() const {
    return asItsClass(m_control, GetValue{});
}

void FieldControl::onChange(const std::function<void()>& changed) const {
    asItsClass(m_control, OnChange{changed});
}

} // namespace tarsel
