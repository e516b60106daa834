// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"
#include "imaging/ImageBox.h"

#include <QObject>
#include <QThreadPool>
#include <optional>

namespace tarsel {

/// Saves the picture on show under a name and in a format that the user chooses. Encoding and writing run in
/// the background; the end of the program waits for them.
class ImageDocument final : public QObject {
    Q_OBJECT
public:
    explicit ImageDocument(QObject* parent = nullptr);

    /// Asks for the name. `source` is the file that the picture is from: it isn't replaced by less than it
    /// holds. The box's colours follow the format, its other settings stay.
    void ShowSaveDialog(ImageBox box, const QString& source);

Q_SIGNALS:
    void progressed(const QString& text); ///< for the status line

private:
    void start(ImageBox box, const QString& target);
    void finish(const QString& target, const std::optional<TrappedError>& failure);

    QThreadPool m_threads; ///< one: saves follow each other
};

} // namespace tarsel
