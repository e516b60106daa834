// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/AlbumNumber.h"

#include "controls/NumberBox.h"

#include <QEvent>
#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <QTimer>

namespace tarsel {

namespace {

class SelectedOnFocus final : public QObject {
public:
    explicit SelectedOnFocus(QLineEdit& box) : QObject(&box) { box.installEventFilter(this); }
    bool eventFilter(QObject* box, QEvent* event) override {
        if (event->type() == QEvent::FocusIn) // after the click that brought the focus has set the cursor
            QTimer::singleShot(0, qobject_cast<QLineEdit*>(box), &QLineEdit::selectAll);
        return false;
    }
};

} // namespace

UpDown::UpDown(QWidget* parent) : QSpinBox(parent) {
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    lineEdit()->hide();
}

QSize UpDown::sizeHint() const {
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    option.rect.setSize(QSpinBox::sizeHint());
    constexpr int frame = 2;
    const QRect arrow = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp);
    return {arrow.width() + 2 * frame, option.rect.height()};
}

void joinNumber(QLineEdit& box, UpDown& arrows, int lowest, int highest, int fallback) {
    takeNumbers(
        &box,
        {.isBounded = true, .lowest = lowest, .highest = highest, .fallback = QString::number(fallback)});
    new SelectedOnFocus(box);
    box.setFixedWidth(box.fontMetrics().averageCharWidth() * 6);
    const auto follow = [&box, &arrows] {
        const int value = box.text().toInt();
        if (value >= arrows.minimum() && value <= arrows.maximum())
            arrows.setValue(value);
    };
    follow();
    QObject::connect(&box, &QLineEdit::editingFinished, &arrows, follow);
    QObject::connect(&arrows, &QSpinBox::valueChanged, &box,
                     [&box](int value) { box.setText(QString::number(value)); });
}

} // namespace tarsel
