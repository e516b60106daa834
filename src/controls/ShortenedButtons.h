// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <vector>

class QLayout;
class QToolButton;
class QWidget;

namespace tarsel {

/// Buttons with text in the bar of a pane. Where the pane is too narrow for the bar, their texts give way,
/// the last one first, so that they don't widen the window.
class ShortenedButtons final : public QObject {
    Q_OBJECT
public:
    ShortenedButtons(QLayout& bar, QWidget& pane); ///< belongs to the pane
    /// A button of the bar, whose text comes after those of the others.
    void add(QToolButton* button);
    void update(); ///< after a change of a text

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool barFits() const;

    QLayout& m_bar;
    const QWidget& m_pane;
    std::vector<QToolButton*> m_buttons;
};

} // namespace tarsel
