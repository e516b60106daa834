// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ScreenSource.h"
#include "acquisition/ScreenshotRequest.h"
#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QScreen>
#include <cmath>
#include <cstring>

namespace tarsel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ScreenCapture)
};

Picture pictureOf(const QImage& image) {
    const QImage rows = image.convertToFormat(QImage::Format_RGB888);
    Picture picture(rows.width(), rows.height(), 3);
    const PixelView view = picture.edit();
    for (int y = 0; y < rows.height(); ++y)
        std::memcpy(view.row(y), rows.constScanLine(y), std::size_t(rows.width()) * 3);
    return picture;
}

/// Reads the file that the desktop made for a request, and removes it. One that is older stays: it is
/// somebody else's.
Picture takeFile(const QString& path, const QDateTime& asked) {
    QImageReader reader(path);
    const QImage image = reader.read();
    if (image.isNull())
        fail(ErrorNumber::UnreadableFile, path + QStringLiteral(": ") + reader.errorString());
    if (QFileInfo(path).lastModified() >= asked)
        QFile::remove(path);
    return pictureOf(image);
}

/// In Qt's own units.
QRect screensBounds() {
    QRect all;
    for (const QScreen* screen : QGuiApplication::screens())
        all |= screen->geometry();
    return all;
}

class PortalScreen final : public ScreenSource {
public:
    ScreenPicture grab(bool) override {
        const QDateTime asked = QDateTime::currentDateTime().addSecs(-1); // file systems round times
        for (const bool interactive : {false, true}) {
            ScreenshotRequest request(interactive);
            switch (request.wait()) {
            case ScreenshotRequest::Outcome::Done:
                return withMonitors(takeFile(request.file(), asked));
            case ScreenshotRequest::Outcome::Cancelled:
                fail(ErrorNumber::Interrupted, Texts::tr("the picture of the screen was not allowed"));
            case ScreenshotRequest::Outcome::TimedOut:
                fail(ErrorNumber::PermissionDenied,
                     Texts::tr("the desktop gave no picture of the screen within two minutes"));
            case ScreenshotRequest::Outcome::Unreachable:
                fail(ErrorNumber::FileNotFound,
                     Texts::tr("this desktop has no portal for pictures of the screen (%1)")
                         .arg(request.fault()));
            case ScreenshotRequest::Outcome::Refused: // some desktops want to ask
            case ScreenshotRequest::Outcome::Waiting:
                break;
            }
        }
        fail(ErrorNumber::PermissionDenied, Texts::tr("the desktop refused the picture of the screen"));
    }

    std::vector<Monitor> monitors() override { return monitorsAt(1, 1); }
    bool showDesktop(bool) override { return false; }
    bool desktopIsShown() override { return false; }

private:
    static ScreenPicture withMonitors(Picture picture) {
        const QRect all = screensBounds();
        const double across = double(picture.width()) / std::max(1, all.width());
        const double down = double(picture.height()) / std::max(1, all.height());
        const QRect bounds(0, 0, picture.width(), picture.height());
        std::vector<Monitor> monitors = monitorsAt(across, down);
        std::erase_if(monitors, [&](Monitor& monitor) {
            monitor.area &= bounds;
            return monitor.area.isEmpty();
        });
        if (monitors.empty())
            monitors.push_back({bounds, {}});
        return {std::move(picture), std::move(monitors)};
    }

    /// The desktop draws all monitors in one picture at one scale.
    static std::vector<Monitor> monitorsAt(double across, double down) {
        const QRect all = screensBounds();
        std::vector<Monitor> monitors;
        for (const QScreen* screen : QGuiApplication::screens()) {
            const QRect place = screen->geometry().translated(-all.topLeft());
            const auto pixel = [](int at, double scale) { return int(std::lround(at * scale)); };
            monitors.push_back(
                {QRect(QPoint(pixel(place.left(), across), pixel(place.top(), down)),
                       QPoint(pixel(place.right() + 1, across) - 1, pixel(place.bottom() + 1, down) - 1)),
                 screen->name()});
        }
        return monitors;
    }
};

} // namespace

std::unique_ptr<ScreenSource> portalScreen() {
    return std::make_unique<PortalScreen>();
}

std::unique_ptr<ScreenSource> systemScreen() {
    // The X server of such a session doesn't see other programs' windows.
    return qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? x11Screen() : portalScreen();
}

} // namespace tarsel
