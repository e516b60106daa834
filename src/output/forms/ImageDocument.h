// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"
#include "imaging/ImageBox.h"
#include "output/BackgroundSave.h"

#include <QObject>
#include <functional>

class QWidget;

namespace tarsel {

/// Saves the picture on show under a name and in a format that the user chooses. Encoding and writing run in
/// the background; the end of the program waits for them.
class ImageDocument final : public QObject {
    Q_OBJECT
public:
    /// `settings` has the quality of JPEG files, which the user is asked for. `owner` is the window over
    /// which the dialogs open.
    ImageDocument(settings::SaveAdvanced& settings, QWidget* owner);

    /// Asks for the name, offering one that no file has. `source` is the file that the picture is from: it
    /// is replaced by less than it holds only after a question that says so, and by one of its pictures
    /// never. The box's colours follow the format, and no colour becomes transparent.
    void ShowSaveDialog(ImageBox box, const QString& source);

    /// The same for a picture that could not be saved as `wanted`: offers a file of that name and format.
    /// `done` is called on this thread with the path and whether it was saved; not when the user leaves.
    void ShowRescueDialog(const ImageBox& box, const QString& wanted,
                          const std::function<void(const QString& path, bool isSaved)>& done);

    BackgroundSave& background() { return m_background; }
    const BackgroundSave& background() const { return m_background; }

private:
    bool takeQuality();
    ImageBox prepared(ImageBox box, const QString& target) const;

    settings::SaveAdvanced& m_settings;
    QWidget* m_owner;
    BackgroundSave m_background;
};

} // namespace tarsel
