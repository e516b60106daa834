// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/forms/PictureButtons.h"

#include "base/IgnoringErrors.h"
#include "collections/forms/PictureImage.h"
#include "imaging/ImageBox.h"
#include "imaging/fncLoadPicture.h"
#include "tasks/TaskColumns.h"
#include "tasks/TaskList.h"

#include <QEvent>
#include <QTimer>
#include <QToolButton>

namespace tarsel {

namespace {

struct ButtonGroup {
    const char* name;
    int kind;
    int column; ///< of the number
    int width;  ///< of the sample: shadows are narrow, frames wide
};

constexpr ButtonGroup groups[] = {{"OptFrameImage", 13, column::Frame::number.number, 320},
                                  {"OptMask", 14, column::Mask::number.number, 320},
                                  {"OptShadow", 15, column::Shadow::number.number, 88}};

/// A meadow under the sky.
Picture samplePicture(int width) {
    Picture picture(width, width * 3 / 4, 3);
    const PixelView pixels = picture.edit();
    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x) {
            const int across = x * 320 / width, down = y * 320 / width;
            const bool isSky = down < 150 - (across - 90) * (across - 90) / 900;
            std::uint8_t* pixel = pixels.pixel(x, y);
            pixel[0] = std::uint8_t(isSky ? 110 + down / 2 : 110 - down / 4);
            pixel[1] = std::uint8_t(isSky ? 170 + down / 3 : 180 - down / 3);
            pixel[2] = std::uint8_t(isSky ? 235 : 70);
        }
    return picture;
}

QIcon artworkIcon(const ButtonGroup& group, int number, QSize size) {
    TaskRow row = defaultRow(group.kind, TaskDefaults());
    row.columns.at(std::size_t(group.column - 1)) = QString::number(number);
    ImageBox box;
    box.setPictureHandle(samplePicture(group.width));
    taskKind(group.kind)->replay(box, row);
    const Picture small = ScalePicture(box.picture(), LoadMode::FitInside, {size.width(), size.height()});
    return QPixmap::fromImage(imageOf(small));
}

class ArtworkIcons final : public QObject {
public:
    ArtworkIcons(QWidget& page, const ButtonGroup& group) : QObject(&page), m_group(group) {
        page.installEventFilter(this);
        connect(&m_next, &QTimer::timeout, this, [this, &page] { drawNext(page); });
    }
    bool eventFilter(QObject* page, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            page->removeEventFilter(this);
            m_next.start(0);
        }
        return QObject::eventFilter(page, event);
    }

private:
    void drawNext(QWidget& page) {
        const QString name = QStringLiteral("%1_%2").arg(QLatin1String(m_group.name)).arg(m_number);
        auto* button = page.findChild<QToolButton*>(name);
        if (!button)
            return m_next.stop(); // after the last one
        ignoringErrors([&] {
            const QSize size = button->iconSize() * button->devicePixelRatioF();
            button->setIcon(artworkIcon(m_group, m_number, size));
        });
        ++m_number;
    }

    const ButtonGroup& m_group;
    QTimer m_next;
    int m_number = 0;
};

} // namespace

void showArtwork(QWidget& page) {
    for (const ButtonGroup& group : groups)
        if (page.findChild<QToolButton*>(QLatin1String(group.name) + QLatin1String("_0")))
            new ArtworkIcons(page, group);
}

} // namespace tarsel
