// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/forms/MergedPictureView.h"

#include "base/IgnoringErrors.h"
#include "collections/forms/PictureImage.h"
#include "controls/PlainToolTip.h"

#include <QFileInfo>
#include <QMouseEvent>

namespace tarsel {

MergedPictureView::MergedPictureView(QWidget* parent) : QLabel(parent) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize MergedPictureView::sizeHint() const {
    return {160, 96};
}

void MergedPictureView::setValue(const QVariant& path) {
    const bool isOther = path.toString() != m_path;
    if (!isOther && !m_drawn.isNull())
        return;
    showFile(path.toString());
    if (isOther)
        Q_EMIT pathChanged();
}

void MergedPictureView::choose(const QString& path) {
    showFile(path);
    Q_EMIT pathChanged();
}

void MergedPictureView::showFile(const QString& path) {
    m_path = path;
    take(m_path, {}, {});
    setToolTip(plainToolTip(m_path));
    setAccessibleDescription(m_path);
    requestPicture();
}

void MergedPictureView::requestPicture() {
    if (m_path.isEmpty())
        return;
    if (!m_work)
        m_work.emplace([this](const Request& request, const std::stop_token& stop) { read(request, stop); });
    const QSize box = sizeHint() * devicePixelRatioF();
    m_work->request({m_path, {box.width(), box.height()}});
}

void MergedPictureView::onChange(const std::function<void()>& changed) {
    connect(this, &MergedPictureView::pathChanged, this, [call = changed] { call(); });
}

/// On the thread. A file that has gone or can't be read leaves the view empty: it is reported when the
/// pictures are merged.
void MergedPictureView::read(const Request& request, const std::stop_token& stop) {
    ignoringErrors([&] {
        Size sourceSize;
        const auto picture =
            fncLoadPicture(request.path, LoadMode::ExactBox, request.box, 0xFFFFFF, &sourceSize, stop);
        if (picture && !stop.stop_requested())
            QMetaObject::invokeMethod(
                this,
                [this, path = request.path, read = *picture, sourceSize] { take(path, read, sourceSize); },
                Qt::QueuedConnection);
    });
}

void MergedPictureView::take(const QString& path, const Picture& picture, Size sourceSize) {
    if (path != m_path)
        return;
    m_drawn = imageOf(picture);
    m_drawn.setDevicePixelRatio(devicePixelRatioF());
    setPixmap(QPixmap::fromImage(m_drawn));
    Q_EMIT shown(picture.isNull() ? QString()
                                  : QStringLiteral("%1 x %2").arg(sourceSize.width).arg(sourceSize.height));
}

// --- picking a colour

void MergedPictureView::setPicking(bool picking) {
    m_isPicking = picking;
    if (picking)
        setCursor(Qt::CrossCursor);
    else
        unsetCursor();
}

void MergedPictureView::mousePressEvent(QMouseEvent* event) {
    if (!m_isPicking)
        return QLabel::mousePressEvent(event);
    // The picture is in the middle of the label.
    const QSizeF size = m_drawn.deviceIndependentSize();
    const QPointF corner((width() - size.width()) / 2, (height() - size.height()) / 2);
    const QPoint pixel = ((event->position() - corner) * m_drawn.devicePixelRatio()).toPoint();
    if (!m_drawn.valid(pixel))
        return;
    const QColor color = m_drawn.pixelColor(pixel);
    Q_EMIT colorPicked(
        colorOf({std::uint8_t(color.red()), std::uint8_t(color.green()), std::uint8_t(color.blue())}));
}

void MergedPictureView::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_isPicking)
        return QLabel::mouseReleaseEvent(event);
    Q_EMIT pickEnded();
}

} // namespace tarsel
