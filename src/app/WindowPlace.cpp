// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowPlace.h"

#include "base/ErrorTrap.h"
#include "base/SafeFileWriter.h"

#include <QDir>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace tarsel {

namespace {

constexpr QSize usualSize(1280, 800);
/// Room for the frame that the window manager adds.
constexpr QSize frameSize(16, 48);

void takeUsualSize(QWidget& window) {
    window.resize(usualSize.boundedTo(window.screen()->availableSize() - frameSize));
}

/// restoreGeometry neither shrinks a window to its screen nor keeps it on it.
void fitScreen(QWidget& window) {
    const QScreen* screen = QGuiApplication::screenAt(window.geometry().center());
    const QRect available = (screen ? screen : window.screen())->availableGeometry();
    if (available.contains(window.geometry()))
        return;
    QRect place(window.pos(), window.size().boundedTo(available.size() - frameSize));
    place.moveLeft(std::clamp(place.left(), available.left(), available.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), available.top(), available.bottom() + 1 - place.height()));
    window.setGeometry(place);
}

} // namespace

QString windowPlaceFile(const QString& programFolder) {
    return QDir(programFolder).filePath(QStringLiteral("window-place"));
}

void restoreWindowPlace(QWidget& window, const QString& file) {
    QByteArray place;
    ignoringErrors([&] { place = readWholeFile(file); });
    if (!window.restoreGeometry(place))
        takeUsualSize(window);
    else if (!window.isMaximized())
        fitScreen(window);
}

void storeWindowPlace(const QWidget& window, const QString& file) {
    ignoringErrors([&] { writeFileSafely(file, window.saveGeometry()); });
}

} // namespace tarsel
