// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ScreenSource.h"
#include "acquisition/ScreenshotRequest.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QScopeGuard>
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

/// MB of pixels. Qt's own limit is less than a wall of monitors has.
constexpr int largestPicture = 2048;

QImage readWithin(QImageReader& reader, int limit) {
    const int before = QImageReader::allocationLimit();
    QImageReader::setAllocationLimit(limit);
    const auto restore = qScopeGuard([before] { QImageReader::setAllocationLimit(before); });
    return reader.read();
}

/// Reads the file that the desktop made for a request, and removes it. One that is older stays: it is
/// somebody else's.
Picture takeFile(const QString& path, const QDateTime& asked) {
    const std::unique_ptr<QFile> file = openRegularFile(path); // a pipe would never end
    QImageReader reader(file.get());
    const QImage image = readWithin(reader, largestPicture);
    if (image.isNull())
        fail(ErrorNumber::UnreadableFile, path + QStringLiteral(": ") + reader.errorString());
    if (QFileInfo(path).lastModified() >= asked)
        QFile::remove(path);
    return pictureOf(image);
}

/// The monitors in Qt's own units, from the top left of all.
std::vector<Monitor> qtMonitors() {
    QRect all;
    std::vector<Monitor> monitors;
    for (const QScreen* screen : QGuiApplication::screens()) {
        all |= screen->geometry();
        monitors.push_back({screen->geometry(), screen->name()});
    }
    for (Monitor& monitor : monitors)
        monitor.area.translate(-all.topLeft());
    return monitors;
}

class PortalScreen final : public ScreenSource {
public:
    explicit PortalScreen(std::chrono::milliseconds longestWait) : m_longestWait(longestWait) {}

    ScreenPicture grab(bool) override {
        const QDateTime asked = QDateTime::currentDateTime().addSecs(-1); // file systems round times
        for (const bool interactive : {false, true}) {
            ScreenshotRequest request(interactive, m_longestWait);
            switch (request.wait()) {
            case ScreenshotRequest::Outcome::Done:
                return withMonitors(takeFile(request.file(), asked), interactive);
            case ScreenshotRequest::Outcome::Cancelled:
                fail(ErrorNumber::Interrupted, Texts::tr("the picture of the screen was not allowed"));
            case ScreenshotRequest::Outcome::TimedOut:
                fail(ErrorNumber::PermissionDenied,
                     Texts::tr("the desktop gave no picture of the screen within %1 seconds")
                         .arg(std::chrono::ceil<std::chrono::seconds>(m_longestWait).count()));
            case ScreenshotRequest::Outcome::Unreachable:
                throw TrappedError{ErrorNumber::FileNotFound, // whose own text would tell of a file
                                   Texts::tr("this desktop has no portal for pictures of the screen (%1)")
                                       .arg(request.fault())};
            case ScreenshotRequest::Outcome::Refused: // some desktops want to ask
            case ScreenshotRequest::Outcome::Waiting:
                break;
            }
        }
        fail(ErrorNumber::PermissionDenied, Texts::tr("the desktop refused the picture of the screen"));
    }

    std::vector<Monitor> monitors() override { return m_monitors; }
    bool showDesktop(bool) override { return false; }
    bool desktopIsShown() override { return false; }
    bool mayAskUser() const override { return true; }

private:
    /// The desktop draws all monitors in one picture at one scale.
    ScreenPicture withMonitors(Picture picture, bool isChosen) const {
        QRect all;
        for (const Monitor& monitor : m_monitors)
            all |= monitor.area;
        const double across = double(picture.width()) / std::max(1, all.width());
        const double down = double(picture.height()) / std::max(1, all.height());
        const auto pixels = [&](QPoint place) {
            return QPoint(int(std::lround(place.x() * across)), int(std::lround(place.y() * down)));
        };
        const QRect bounds(0, 0, picture.width(), picture.height());
        std::vector<Monitor> monitors;
        for (const auto& [place, name] : m_monitors) {
            const QPoint end = pixels(place.bottomRight() + QPoint(1, 1)) - QPoint(1, 1);
            if (const QRect area = QRect(pixels(place.topLeft()), end) & bounds; !area.isEmpty())
                monitors.push_back({area, name});
        }
        if (monitors.empty())
            monitors.push_back({bounds, {}});
        return {std::move(picture), std::move(monitors), isChosen};
    }

    const std::chrono::milliseconds m_longestWait;
    const std::vector<Monitor> m_monitors = qtMonitors(); // those of the main thread
};

} // namespace

std::unique_ptr<ScreenSource> portalScreen(std::chrono::milliseconds longestWait) {
    return std::make_unique<PortalScreen>(longestWait);
}

std::unique_ptr<ScreenSource> systemScreen() {
    // The X server of such a session doesn't see other programs' windows.
    return qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? x11Screen() : portalScreen();
}

} // namespace tarsel
