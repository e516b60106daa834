// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QThreadPool>
#include <functional>

namespace tarsel {

/// Changes files on a thread of its own, one after the other, while the window is painted and answers.
class FileChange final : public QObject {
    Q_OBJECT
public:
    explicit FileChange(QObject* parent = nullptr);
    ~FileChange() override; ///< waits for the file that is being changed

    /// Returns when the work is done and raises its error. Keys and clicks wait at first, so that none is
    /// lost to a change that takes no time; in a slow one they reach the window.
    void run(const std::function<void()>& work);
    bool isRunning() const { return m_isRunning; }

Q_SIGNALS:
    void slowChanged(bool isSlow); ///< the change takes long, or such a one has ended

private:
    QThreadPool m_threads;
    bool m_isRunning = false;
};

} // namespace tarsel
