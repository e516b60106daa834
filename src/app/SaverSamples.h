// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "collections/NewestWork.h"
#include "publishing/forms/SaverPreview.h"

#include <QImage>
#include <QStringList>

namespace tarsel {

/// The first pictures of the basket for the preview of a screen saver: their thumbnails at once, and sharp
/// ones as they are read on a thread.
class SaverSamples final : public QObject {
    Q_OBJECT
public:
    /// Rows whose sizes are known; thumbnails that are not made yet are null. `upright` as for a batch,
    /// `pixelRatio` that of the preview's screen.
    SaverSamples(const ListView& lvPages, bool upright, double pixelRatio, QObject* parent = nullptr);

    const std::vector<SaverSample>& thumbnails() const { return m_thumbnails; }
    /// Begins to read the sharp ones, and deletes the object when that has ended.
    void read();
    void stop() { m_work.cancel(); } ///< waits for nothing

Q_SIGNALS:
    void loaded(int index, const QPixmap& picture); ///< in place of the thumbnail with that index

private:
    void readAll(const QStringList& paths, const std::stop_token& stop);

    const bool m_upright;
    const double m_pixelRatio;
    std::vector<SaverSample> m_thumbnails;
    QStringList m_paths;
    NewestWork<QStringList> m_work; ///< last, so that it ends first
};

} // namespace tarsel
