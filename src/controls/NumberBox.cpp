// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/NumberBox.h"

#include "base/Conversions.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <algorithm>

namespace tarsel {

namespace {

constexpr int maxDigits = 9; // every number of them is a 32-bit integer

class NumberBox final : public QObject {
public:
    NumberBox(QLineEdit* box, NumberBoxRules rules) : QObject(box), m_box(box), m_rules(std::move(rules)) {
        box->setMaxLength(maxDigits);
        box->setInputMethodHints(Qt::ImhFormattedNumbersOnly);
        // The focus events of a combo box's text don't come to its edit.
        QWidget* focused = qobject_cast<QComboBox*>(box->parentWidget()) ? box->parentWidget() : box;
        focused->installEventFilter(this);
        connect(box, &QLineEdit::textEdited, this, [this] { clean(); });
        connect(box, &QLineEdit::textChanged, this, [this] { refill(); });
        connect(box, &QLineEdit::returnPressed, this, [this] { finish(); });
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusOut) {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
                finish();
        } else if (watched == m_box && event->type() == QEvent::KeyPress) {
            return take(*static_cast<QKeyEvent*>(event));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    /// True for a key that is done with: an arrow, or a character that would only remove what is selected.
    bool take(QKeyEvent& key) {
        if (m_rules.isBounded && (key.key() == Qt::Key_Up || key.key() == Qt::Key_Down)) {
            count(key.key() == Qt::Key_Up ? 1 : -1);
            return true;
        }
        const bool isCommand = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
        const bool isUnusable =
            !isCommand && key.text().size() == 1 && key.text()[0].isPrint() && plain(key.text()[0]).isNull();
        if (isUnusable)
            key.ignore(); // the window may have a use for it
        return isUnusable;
    }

    /// The plain character for a typed one; null for one that numbers don't have.
    QChar plain(QChar typed) const {
        if (typed.isDigit())
            return QLatin1Char(char('0' + typed.digitValue()));
        if (m_rules.takesMinus && (typed == QLatin1Char('-') || typed == QChar(0x2212)))
            return QLatin1Char('-');
        const bool isPoint = typed == QLatin1Char('.') || QLocale().decimalPoint() == typed;
        return m_rules.takesFraction && isPoint ? QLatin1Char('.') : QChar();
    }

    QString number(const QString& typed) const {
        QString text;
        for (const QChar each : typed) {
            const QChar character = plain(each);
            const bool misplaced = (character == QLatin1Char('-') && !text.isEmpty()) ||
                                   (character == QLatin1Char('.') && text.contains(character));
            if (!character.isNull() && !misplaced)
                text += character;
        }
        return text;
    }

    void clean() {
        const QString typed = m_box->text();
        const QString text = number(typed);
        if (text == typed)
            return;
        const auto cursor = number(typed.left(m_box->cursorPosition())).size();
        m_box->setText(text);
        if (!text.isEmpty()) // the fallback is selected
            m_box->setCursorPosition(int(cursor));
    }

    void refill() {
        if (!m_box->text().isEmpty() || m_rules.fallback.isEmpty())
            return;
        m_box->setText(m_rules.fallback);
        m_box->selectAll();
    }

    void finish() {
        const QString text = m_box->text();
        if (!isNumeric(text))
            m_box->setText(m_rules.fallback); // a minus alone
        else if (m_rules.isBounded)
            show(bounded(toDouble(text)));
    }

    double bounded(double value) const {
        return std::clamp(value, double(m_rules.lowest), double(m_rules.highest));
    }

    void show(double value) {
        if (value != leadingNumber(m_box->text()))
            m_box->setText(numberText(value));
    }

    void count(int step) {
        show(bounded(leadingNumber(m_box->text()) + step));
        m_box->selectAll();
    }

    QLineEdit* m_box;
    NumberBoxRules m_rules;
};

} // namespace

void takeNumbers(QLineEdit* box, const NumberBoxRules& rules) {
    new NumberBox(box, rules);
}

} // namespace tarsel
