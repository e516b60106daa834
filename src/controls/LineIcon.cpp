// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/LineIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <algorithm>

/// Outside of the namespace, as the macro asks for: the resources are part of a static library.
static void loadIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace tarsel {

namespace {

constexpr const char* NominalInk = "#31363b";
constexpr const char* Accents[] = {"#3a86d0", "#d08a24", "#3f9c52", "#c8453c"};

QByteArray readDrawing(const QString& name) {
    loadIcons();
    QFile file(QStringLiteral(":/tarsel/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Button).lightness() < 128;
}

/// The colours that a drawing has with the palette of the moment.
struct Inks {
    explicit Inks(QIcon::Mode mode) {
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const bool onSelection = mode == QIcon::Selected;
        ink = palette.color(group, onSelection ? QPalette::HighlightedText : QPalette::ButtonText);
        plain = onSelection || mode == QIcon::Disabled;
        dark = isDark(palette);
    }

    QColor ink;
    bool plain = false; ///< everything in the ink
    bool dark = false;
};

QByteArray inked(QByteArray drawing, const Inks& inks) {
    for (const char* accent : Accents) {
        const QColor color = inks.dark ? QColor(accent).lighter(130) : QColor(accent);
        drawing.replace(accent, (inks.plain ? inks.ink : color).name().toLatin1());
    }
    return drawing.replace(NominalInk, inks.ink.name().toLatin1());
}

/// Draws for every size that is asked for.
class LineIconEngine final : public QIconEngine {
public:
    explicit LineIconEngine(QByteArray drawing) : m_drawing(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const double side = std::min(rect.width(), rect.height());
        const QRectF square(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2, side,
                            side);
        QSvgRenderer(inked(m_drawing, Inks(mode))).render(painter, square);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new LineIconEngine(m_drawing); }

private:
    QByteArray m_drawing;
};

} // namespace

QIcon lineIcon(const QString& name) {
    const QByteArray drawing = readDrawing(name);
    return drawing.isEmpty() ? QIcon() : QIcon(new LineIconEngine(drawing));
}

} // namespace tarsel
