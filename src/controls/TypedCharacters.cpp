// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/TypedCharacters.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

namespace tarsel {

namespace {

bool isForbidden(QChar character) {
    return QStringLiteral("\"*/:<>?\\|").contains(character);
}

void strip(QLineEdit* edit, const QString& text) {
    if (std::none_of(text.begin(), text.end(), isForbidden))
        return;
    const auto before = text.left(edit->cursorPosition());
    const auto dropped = std::count_if(before.begin(), before.end(), isForbidden);
    QString kept = text;
    kept.removeIf(isForbidden);
    edit->setText(kept);
    edit->setCursorPosition(int(before.size() - dropped));
}

class DigitFilter final : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return QObject::eventFilter(watched, event);
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        return std::any_of(typed.begin(), typed.end(), [](QChar character) {
            return character.isPrint() && (character < QLatin1Char('0') || character > QLatin1Char('9'));
        });
    }
};

} // namespace

void dropForbiddenCharacters(QLineEdit* edit) {
    QObject::connect(edit, &QLineEdit::textEdited, edit, [edit](const QString& text) { strip(edit, text); });
}

void takeDigitsOnly(QLineEdit* edit) {
    edit->installEventFilter(new DigitFilter(edit));
}

} // namespace tarsel
