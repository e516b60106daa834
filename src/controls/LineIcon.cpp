// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/LineIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <algorithm>
#include <array>

namespace tarsel {

namespace {

enum class Ink { Line, Accent, Warm, Green, Red };

struct Stroke {
    const char* path; ///< in the language of pathOf, on a field of 16 by 16
    Ink ink;
    bool filled;
};

struct IconDrawing {
    const char* name;
    std::array<Stroke, 4> strokes; ///< the unused ones have no path
};

constexpr std::array Drawings{
    IconDrawing{"folder", {{{"M1.5 13 L1.5 3.5 L6 3.5 L7.5 5.5 L14.5 5.5 L14.5 13 Z", Ink::Warm, true}}}},
    IconDrawing{"add",
                {{{"M2 5 L14 5 L12.5 14 L3.5 14 Z", Ink::Line, false},
                  {"M8 1 L8 10 M5 7.5 L8 10.5 L11 7.5", Ink::Green, false}}}},
    IconDrawing{"basket",
                {{{"M1.5 6 L14.5 6 L12.5 14 L3.5 14 Z", Ink::Warm, true},
                  {"M4.5 6 L7 1.5 M11.5 6 L9 1.5", Ink::Line, false}}}},
    IconDrawing{"thumbnails", {{{"R2 2 5 5 R9 2 5 5 R2 9 5 5 R9 9 5 5", Ink::Accent, true}}}},
    IconDrawing{"details",
                {{{"R2 2.5 2.5 2.5 R2 7 2.5 2.5 R2 11.5 2.5 2.5", Ink::Accent, true},
                  {"M7 3.7 L14 3.7 M7 8.2 L14 8.2 M7 12.7 L14 12.7", Ink::Line, false}}}},
    IconDrawing{"new",
                {{{"M3.5 1.5 L9.5 1.5 L12.5 4.5 L12.5 14.5 L3.5 14.5 Z", Ink::Line, false},
                  {"M9.5 1.5 L9.5 4.5 L12.5 4.5", Ink::Line, false}}}},
    IconDrawing{"open",
                {{{"M1.5 13 L1.5 3.5 L6 3.5 L7.5 5.5 L13 5.5 L13 7.5", Ink::Line, false},
                  {"M1.5 13 L4 7.5 L15 7.5 L12.5 13 Z", Ink::Warm, true}}}},
    IconDrawing{"save",
                {{{"M2 2 L11.5 2 L14 4.5 L14 14 L2 14 Z", Ink::Accent, true},
                  {"M5 2 L5 6 L10.5 6 L10.5 2 M4.5 14 L4.5 9.5 L11.5 9.5 L11.5 14", Ink::Line, false}}}},
    IconDrawing{"remove", {{{"M3.5 3.5 L12.5 12.5 M12.5 3.5 L3.5 12.5", Ink::Red, false}}}},
    IconDrawing{"iDetailIcon",
                {{{"R1.5 2.5 13 11", Ink::Line, false},
                  {"M2 12.5 L6 7.5 L9 10.5 L11.5 8.5 L14 12.5 Z", Ink::Green, true},
                  {"E10.5 5.7 1.3", Ink::Warm, true}}}},
    IconDrawing{"saveAs",
                {{{"R1.5 4.5 10 9", Ink::Line, false},
                  {"M4 2 L14 2 L14 11", Ink::Line, false},
                  {"M2 13 L5 9 L7 11 L9 9.5 L11 13 Z", Ink::Green, true}}}},
    IconDrawing{"metadata",
                {{{"M2 2 L8 2 L14 8 L8.5 13.5 L2 7.5 Z", Ink::Accent, true}, {"E5 5 1", Ink::Line, false}}}},
    IconDrawing{"refresh",
                {{{"M13 8 A8 8 5 0 -300", Ink::Line, false}, {"M13.5 2.5 L13.5 6 L10 6", Ink::Line, false}}}},
    IconDrawing{"previous", {{{"M10.5 3 L5.5 8 L10.5 13", Ink::Line, false}}}},
    IconDrawing{"next", {{{"M5.5 3 L10.5 8 L5.5 13", Ink::Line, false}}}},
    IconDrawing{"task",
                {{{"M2.5 4 L4 5.5 L6.5 2.5 M2.5 10.5 L4 12 L6.5 9", Ink::Green, false},
                  {"M9 4 L14 4 M9 10.5 L14 10.5", Ink::Line, false}}}},
};

/// The figures of a path: "M x y" moves, "L x y" draws a line, "Z" closes, "R x y w h" is a rectangle,
/// "E x y r" a circle, "A x y r from sweep" an arc in degrees.
QPainterPath pathOf(const char* text) {
    QPainterPath path;
    QString spaced;
    for (const char* letter = text; *letter; ++letter) {
        spaced += QLatin1Char(*letter);
        if (QChar::isLetter(uint(*letter)))
            spaced += QLatin1Char(' ');
    }
    const QStringList words = spaced.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (qsizetype at = 0; at < words.size();) {
        const char figure = words[at++].front().toLatin1();
        const auto number = [&] { return words.value(at++).toDouble(); };
        const double x = figure == 'Z' ? 0 : number();
        const double y = figure == 'Z' ? 0 : number();
        if (figure == 'M') {
            path.moveTo(x, y);
        } else if (figure == 'L') {
            path.lineTo(x, y);
        } else if (figure == 'Z') {
            path.closeSubpath();
        } else if (figure == 'R') {
            const double width = number();
            path.addRect(x, y, width, number());
        } else if (figure == 'E') {
            const double radius = number();
            path.addEllipse(QPointF(x, y), radius, radius);
        } else if (figure == 'A') {
            const double radius = number();
            const double from = number();
            path.arcTo(x - radius, y - radius, 2 * radius, 2 * radius, from, number());
        }
    }
    return path;
}

QColor colorOf(Ink ink, bool dimmed) {
    const QPalette palette = QGuiApplication::palette();
    if (dimmed)
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    switch (ink) {
    case Ink::Accent:
        return QColor(0x3a, 0x86, 0xd0);
    case Ink::Warm:
        return QColor(0xe0, 0x9f, 0x3e);
    case Ink::Green:
        return QColor(0x3f, 0x9c, 0x52);
    case Ink::Red:
        return QColor(0xc8, 0x45, 0x3c);
    case Ink::Line:
        break;
    }
    return palette.color(QPalette::ButtonText);
}

void draw(QPainter& painter, const IconDrawing& drawing, bool dimmed) {
    for (const Stroke& stroke : drawing.strokes) {
        if (!stroke.path)
            break;
        const QColor color = colorOf(stroke.ink, dimmed);
        QColor fill = color;
        fill.setAlphaF(0.35F);
        painter.setPen(QPen(color, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(stroke.filled ? QBrush(fill) : QBrush(Qt::NoBrush));
        painter.drawPath(pathOf(stroke.path));
    }
}

/// Draws anew for every size that is asked for.
class LineIconEngine final : public QIconEngine {
public:
    explicit LineIconEngine(const IconDrawing& drawing) : m_drawing(drawing) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const double side = std::min(rect.width(), rect.height());
        painter->translate(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2);
        painter->scale(side / 16, side / 16);
        draw(*painter, m_drawing, mode == QIcon::Disabled);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new LineIconEngine(m_drawing); }

private:
    const IconDrawing& m_drawing;
};

} // namespace

QIcon lineIcon(const QString& name) {
    for (const IconDrawing& drawing : Drawings)
        if (name == QLatin1String(drawing.name))
            return QIcon(new LineIconEngine(drawing));
    return {};
}

} // namespace tarsel
