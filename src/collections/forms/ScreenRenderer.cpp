// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/ScreenRenderer.h"

#include "base/IgnoringErrors.h"
#include "base/Spreading.h"
#include "base/Stop.h"
#include "collections/forms/PictureImage.h"

namespace tarsel {

namespace {

/// In the form that is painted without a conversion.
QImage paintable(const Picture& picture) {
    return imageOf(picture).convertToFormat(picture.hasAlpha() ? QImage::Format_ARGB32_Premultiplied
                                                               : QImage::Format_RGB32);
}

} // namespace

ScreenRenderer::ScreenRenderer(QObject* parent) :
    QObject(parent), m_work([this](Request request, const std::stop_token& stop) {
        const SpreadingScope spreading;
        const StopScope scope(stop);
        ignoringErrors([&] {
            if (request.shown.picture.isNull()) {
                m_reductions = {};
                m_number = 0;
                return;
            }
            const Rendered result = render(std::move(request));
            raiseIfStopped();
            QMetaObject::invokeMethod(
                this, [this, result] { Q_EMIT rendered(result); }, Qt::QueuedConnection);
        });
    }) {}

ScreenRenderer::Rendered ScreenRenderer::render(Request request) {
    PreviewPicture& shown = request.shown;
    const bool needsNoConversion = shown.iccProfile.isEmpty();
    if (request.number != m_number) {
        m_number = 0; // in case that this one fails
        m_reductions = Reductions(shown.picture, shown.iccProfile, request.screen);
        m_number = request.number;
    }
    Rendered result{request.number, shown.size, paintable(m_reductions.resized(request.target)), {}};
    if (!shown.isReduced && (request.needsFull || needsNoConversion))
        result.full = imageOf(m_reductions.full());
    return result;
}

} // namespace tarsel
