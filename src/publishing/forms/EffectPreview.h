// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"
#include "players/effects/Effect.h"

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>
#include <memory>

namespace tarsel {

/// A greeting in small, drawn by the players' own code. It stands still while it is hidden.
class EffectPreview final : public QWidget {
    Q_OBJECT
public:
    explicit EffectPreview(QWidget* parent = nullptr);
    ~EffectPreview() override;
    EffectPreview(const EffectPreview&) = delete;
    EffectPreview& operator=(const EffectPreview&) = delete;

    void setPicture(const Picture& picture); ///< is reduced to the room that there is
    void setEffect(players::Style style, const joined::EffectOptions& options);
    const QImage& frame() const { return m_frame; } ///< drawn last

    QSize sizeHint() const override { return {420, 320}; }
    QSize minimumSizeHint() const override { return {240, 180}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void startAgain();
    void drawFrame();
    double seconds() const { return double(m_clock.elapsed()) / 1000; }

    Picture m_picture;
    players::Style m_style = players::Style::Simple;
    joined::EffectOptions m_options;
    std::unique_ptr<players::Effect> m_effect; ///< made for the first frame
    QImage m_frame;
    QElapsedTimer m_clock;
    QTimer m_timer;
};

} // namespace tarsel
