// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

#include <QObject>
#include <QThreadPool>
#include <functional>
#include <optional>

namespace tarsel {

/// Writes files in the background, one after the other, and says how that went. Its end waits for them.
class BackgroundSave final : public QObject {
    Q_OBJECT
public:
    BackgroundSave() { m_threads.setMaxThreadCount(1); }

    /// `write` makes the file `target`, on another thread. Its failure is trapped as `routine`.
    void start(const QString& target, const char* routine, std::function<void()> write);
    /// The same where another name may be chosen for the file: `write` returns its path.
    void startNew(const QString& target, const char* routine, std::function<QString()> write);
    bool isSaving() const { return m_running > 0; }

Q_SIGNALS:
    void progressed(const QString& text); ///< for the status line
    void saved(const QString& path);
    void ended(bool hasFailed); ///< after the last file in work

private:
    void finish(const QString& target, const char* routine, const std::optional<TrappedError>& failure);

    int m_running = 0;
    bool m_hasFailed = false; ///< one of those in work
    QThreadPool m_threads;
};

/// "photo-1" beside "photo.png", without an extension: the first name that no picture of the folder has, in
/// any format. In the folder of the user's pictures where that of the photo takes no files.
QString unusedNameBeside(const QString& source);

/// Why a picture that was read from `source` must not be saved as `target`; empty when it may. A file isn't
/// replaced by one of its pictures. `damage` is what was wrong with it.
QString replacingRefusal(const QString& source, const QString& target, const QString& damage);

/// What `source` has and a file without transparency of 8 bits a channel doesn't, where `target` is the same
/// file: a sentence, or nothing.
QString lossByReplacing(const QString& source, const QString& target);

} // namespace tarsel
