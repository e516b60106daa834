// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QStringList>
#include <QWidget>

namespace tarsel::test {

/// Notes the texts that are drawn on it.
class TextRecorder final : public QPaintDevice, private QPaintEngine {
public:
    TextRecorder() : QPaintEngine(AllFeatures) {}

    QStringList texts;

    QPaintEngine* paintEngine() const override {
        return const_cast<QPaintEngine*>(static_cast<const QPaintEngine*>(this));
    }

protected:
    int metric(PaintDeviceMetric metric) const override {
        constexpr int side = 4000;
        switch (metric) {
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDepth:
            return 32;
        default:
            return side;
        }
    }

private:
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawTextItem(const QPointF&, const QTextItem& item) override { texts << item.text(); }
    Type type() const override { return User; }
};

/// What a widget writes itself, without its children.
inline QStringList textsOn(QWidget& widget) {
    TextRecorder recorder;
    widget.render(&recorder, {}, {}, {});
    return recorder.texts;
}

} // namespace tarsel::test
