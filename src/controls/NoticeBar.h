// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QStringList>

class QLabel;
class QPushButton;

namespace tarsel {

/// A line for what the user is to know and need not answer. It takes no focus, covers nothing, and is hidden
/// while there is nothing to say. Several texts come one after the other.
class NoticeBar final : public QFrame {
    Q_OBJECT
public:
    explicit NoticeBar(QWidget* parent = nullptr);

    void say(const QString& text);
    void sayFirst(const QString& text); ///< before those that are said already
    /// Takes the text back, also one that still waits.
    void withdraw(const QString& text);
    QString text() const { return m_texts.value(0); } ///< on show; empty while it is hidden

Q_SIGNALS:
    void dismissed(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showFirst();
    void dismiss();

    QLabel* m_label;
    QPushButton* m_button;
    QStringList m_texts;
};

} // namespace tarsel
