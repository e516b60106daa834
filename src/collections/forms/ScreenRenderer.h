// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/NewestWork.h"
#include "collections/PreviewPicture.h"
#include "imaging/Reductions.h"

#include <QImage>
#include <QObject>

namespace tarsel {

/// Makes of a picture what the screen shows, on a thread of its own: its reduction to the size of the view,
/// in the screen's colours.
class ScreenRenderer final : public QObject {
    Q_OBJECT
public:
    struct Request {
        quint64 number = 0; ///< of the picture: another one has another number
        PreviewPicture shown;
        Size screen;
        Size target;            ///< device pixels
        bool needsFull = false; ///< each pixel is going to be shown
    };
    struct Rendered {
        quint64 number = 0;
        Size size;    ///< of the full picture
        QImage image; ///< the size of the request's target
        QImage full;  ///< null for a picture that is shown reduced, and while it isn't needed
    };

    explicit ScreenRenderer(QObject* parent = nullptr);

    /// Drops what was requested before and is not yet rendered.
    void request(Request request) { m_work.request(std::move(request)); }
    void cancel() { m_work.cancel(); }

Q_SIGNALS:
    void rendered(const tarsel::ScreenRenderer::Rendered& result);

private:
    Rendered render(Request request);

    // Of the picture rendered last. They belong to the thread.
    quint64 m_number = 0;
    Reductions m_reductions;

    NewestWork<Request> m_work; // last, so that it ends first
};

} // namespace tarsel
