// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <memory>

namespace tarsel {

/// A question to the file system, for a thread that must not wait: it is asked on another one. Only the
/// answer to the latest question counts; a folder of the network may never answer.
class FileQuestion final : public QObject {
    Q_OBJECT
public:
    using Answer = std::function<void()>;

    FileQuestion();
    ~FileQuestion() override; ///< waits for nothing
    FileQuestion(const FileQuestion&) = delete;
    FileQuestion& operator=(const FileQuestion&) = delete;

    /// `question` runs on a thread of its own, and what it returns on this object's thread.
    void ask(std::function<Answer()> question);
    void forget() { ++m_latest; } ///< the answer is not wanted any more

private:
    struct Asker;
    std::shared_ptr<Asker> m_asker;
    int m_latest = 0;
};

} // namespace tarsel
