// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <vector>

namespace tarsel {

/// A picture of the preview.
struct SaverSample {
    QPixmap picture; ///< reduced; null until it is read
    QSize size;      ///< the real one
};

/// The screen in small, on which the pictures follow each other: in the middle and in their own size, as a
/// player shows them. It stands still while it is hidden.
class SaverPreview final : public QWidget {
    Q_OBJECT
public:
    explicit SaverPreview(QWidget* parent = nullptr);

    void setSamples(std::vector<SaverSample> samples);
    void setPicture(int sample, const QPixmap& picture); ///< a sharper one
    const QPixmap& picture(int sample) const { return m_samples[std::size_t(sample)].picture; }
    void setBackground(QColor color);
    void setInterval(int seconds);
    int shownSample() const { return m_shown; }

    QSize sizeHint() const override { return {400, 300}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showNext();
    QRect screenPlace() const;

    std::vector<SaverSample> m_samples;
    QColor m_background = Qt::black;
    QTimer m_timer;
    int m_shown = 0;
};

/// Where a player shows a picture of that size on that screen: in the middle, the left or top edge of a
/// larger one at that of the screen.
QRect placeOnScreen(QSize picture, QSize screen);

} // namespace tarsel
