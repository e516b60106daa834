// SPDX-License-Identifier: MIT
#include "players/effects/Clock.h"

#include "players/effects/ClockText.h"
#include "players/effects/Frost.h"

#include <numbers>

namespace tarsel::players {

namespace {

constexpr std::uint32_t darkGlass = 0xFF101418;
constexpr std::uint32_t lightGlass = 0xFFF4F6F8;
constexpr std::uint8_t analog = 0;
constexpr double glassStrength = 0.62;
constexpr double gapShare = 0.045; ///< between clock, date and edges, of the picture's shorter side

int softness(double side) {
    return std::max(1, int(side * 0.012));
}

/// The glass from which the least visible of the colours stands out more.
std::uint32_t glassFor(std::initializer_list<std::int32_t> colors) {
    int onDark = 255;
    int onLight = 255;
    for (const std::int32_t color : colors) {
        onDark = std::min(onDark, std::abs(luminance(pixelOf(color)) - 40));
        onLight = std::min(onLight, std::abs(luminance(pixelOf(color)) - 215));
    }
    return onDark >= onLight ? darkGlass : lightGlass;
}

Point onCircle(Point centre, double radius, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return {centre.x + radius * std::sin(angle), centre.y - radius * std::cos(angle)};
}

} // namespace

Clock::Clock(Picture picture, const joined::EffectOptions& options, ClockTime (*now)()) :
    m_picture(std::move(picture)), m_options(options), m_now(now) {
    if (options.clockKind == analog)
        m_tint = glassFor({options.hourColor, options.minuteColor, options.secondColor});
    else
        m_tint = glassFor({options.digitalColor});
}

void Clock::fit(const Canvas& canvas) {
    if (m_still.width == canvas.width && m_still.height == canvas.height)
        return;
    m_still = {std::vector<std::uint32_t>(std::size_t(canvas.width) * std::size_t(canvas.height)),
               canvas.width, canvas.height};
    drawCentred(m_still.canvas(), m_picture, black);
    m_place = placeOf(m_picture.width, m_picture.height, canvas);
    const Canvas part = partOf(m_still.canvas(), m_place);
    if (m_options.clockKind == analog)
        layOutFace(part);
    else
        layOutDigits(part);
}

void Clock::layOutFace(const Canvas& part) {
    const double side = std::min(part.width, part.height);
    m_radius = side * 0.21;
    m_centre = {part.width - side * gapShare - m_radius, layOutDate(part) - m_radius};
    m_centre.x = std::min(m_centre.x, part.width - side * gapShare - m_dateWidth / 2);
    drawDate(part);
    drawDial(part);
}

void Clock::layOutDigits(const Canvas& part) {
    const double side = std::min(part.width, part.height);
    m_timeFont.emplace(std::max(12.0, side * 0.125));
    const double cap = m_timeFont->capHeight();
    const double pad = cap * 0.62;
    const double width = m_timeFont->width(U"00:00:00") + 2.2 * pad;
    const double height = cap + 2 * pad;
    const Box box{int(part.width - side * gapShare - width), int(layOutDate(part) - height), int(width),
                  int(height)};
    m_centre.x = box.left + width / 2;
    m_timeLine = box.top + pad + cap;
    drawDate(part);
    paintFrosted(part, RoundedBox{box, pad * 0.8}, m_tint, glassStrength, softness(side));
}

/// Returns where the clock above the date ends.
double Clock::layOutDate(const Canvas& part) {
    const double side = std::min(part.width, part.height);
    const double end = part.height - side * gapShare;
    if (!m_options.showDate)
        return end;
    const double size = std::max(9.0, side * 0.05);
    m_dateFont.emplace(size);
    m_dateWidth = m_dateFont->width(dateText(m_now())) + size * 1.6;
    m_dateLine = end - (size * 1.5 - m_dateFont->capHeight()) / 2;
    return end - size * 1.5 - side * gapShare / 2;
}

/// The plate that the date is written on.
void Clock::drawDate(const Canvas& part) {
    if (!m_options.showDate)
        return;
    const double side = std::min(part.width, part.height);
    const double height = std::max(9.0, side * 0.05) * 1.5;
    const Box box{int(m_centre.x - m_dateWidth / 2), int(part.height - side * gapShare - height),
                  int(m_dateWidth), int(height)};
    paintFrosted(part, RoundedBox{box, height / 2}, glassFor({m_options.dateColor}), glassStrength,
                 softness(side));
}

void Clock::drawDial(const Canvas& canvas) const {
    const std::uint32_t ink = m_tint == darkGlass ? 0xFFFFFFFF : 0xFF20262C;
    paintFrosted(canvas, Disc{m_centre, m_radius}, m_tint, glassStrength, std::max(1, int(m_radius * 0.06)));
    const double rim = std::max(0.6, m_radius * 0.008);
    for (int i = 0; i < 240; ++i)
        paint(canvas,
              Stroke{onCircle(m_centre, m_radius - rim, i * 1.5),
                     onCircle(m_centre, m_radius - rim, i * 1.5 + 1.5), rim, rim},
              ink, 0.25);
    for (int minute = 0; minute < 60; ++minute) {
        const bool isHour = minute % 5 == 0;
        const bool isQuarter = minute % 15 == 0;
        if (!isHour && m_radius < 60)
            continue;
        const double inner = m_radius * (isQuarter ? 0.80 : isHour ? 0.85 : 0.90);
        const double half = std::max(0.5, m_radius * (isQuarter ? 0.017 : isHour ? 0.012 : 0.005));
        paint(canvas,
              Stroke{onCircle(m_centre, inner, minute * 6), onCircle(m_centre, m_radius * 0.93, minute * 6),
                     half, half},
              ink, isHour ? 0.9 : 0.55);
    }
}

void Clock::drawHand(const Canvas& canvas, double angle, double length, double width,
                     std::int32_t color) const {
    const double half = std::max(0.7, m_radius * width);
    const Point tail = onCircle(m_centre, -m_radius * 0.14, angle);
    const Point tip = onCircle(m_centre, m_radius * length, angle);
    const double drop = m_radius * 0.025;
    const double outline = m_radius * 0.008;
    const std::uint32_t pixel = pixelOf(color);
    paint(canvas, Stroke{{tail.x + drop, tail.y + drop}, {tip.x + drop, tip.y + drop}, half, half * 0.6},
          black, 0.4, std::max(1.0, m_radius * 0.05));
    paint(canvas, Stroke{tail, tip, half + outline, half * 0.6 + outline},
          m_tint == darkGlass ? 0xFFFFFFFF : black, 0.5);
    paint(canvas, Stroke{tail, tip, half, half * 0.6}, pixel);
}

void Clock::drawHands(const Canvas& canvas, const ClockTime& time) const {
    const HandAngles angles = handAngles(time);
    drawHand(canvas, angles.hour, 0.52, 0.040, m_options.hourColor);
    drawHand(canvas, angles.minute, 0.78, 0.028, m_options.minuteColor);
    drawHand(canvas, angles.second, 0.88, 0.012, m_options.secondColor);
    paint(canvas, Disc{m_centre, std::max(1.5, m_radius * 0.055)}, pixelOf(m_options.secondColor));
    paint(canvas, Disc{m_centre, std::max(0.7, m_radius * 0.022)}, m_tint);
}

void Clock::drawCentredText(const Canvas& canvas, Font& font, const std::u32string& text, double y,
                            std::int32_t color) const {
    drawText(canvas, font, text, m_centre.x - font.width(text) / 2, std::round(y), pixelOf(color));
}

void Clock::draw(const Canvas& canvas, double) {
    fit(canvas);
    for (int y = 0; y < canvas.height; ++y)
        std::copy_n(m_still.row(y), canvas.width, canvas.row(y));
    const Canvas part = partOf(canvas, m_place);
    const ClockTime time = m_now();
    if (m_options.clockKind == analog)
        drawHands(part, time);
    else
        drawCentredText(part, *m_timeFont, timeText(time), m_timeLine, m_options.digitalColor);
    if (m_options.showDate)
        drawCentredText(part, *m_dateFont, dateText(time), m_dateLine, m_options.dateColor);
}

double Clock::stillFor(double) const {
    if (m_options.clockKind == analog)
        return 1.0 / 30; // the tip of the second hand moves less than a pixel in that time
    const double second = m_now().second;
    return std::floor(second) + 1 - second;
}

} // namespace tarsel::players
