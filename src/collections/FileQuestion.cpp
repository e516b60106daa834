// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/FileQuestion.h"

#include "collections/UnwaitedWork.h"

#include <mutex>
#include <tuple>

namespace tarsel {

struct FileQuestion::Asker {
    std::mutex mutex;
    FileQuestion* question; ///< null once it has gone
};

FileQuestion::FileQuestion() : m_asker(std::make_shared<Asker>()) {
    m_asker->question = this;
}

FileQuestion::~FileQuestion() {
    const std::lock_guard lock(m_asker->mutex);
    m_asker->question = nullptr;
}

void FileQuestion::ask(std::function<Answer()> question) {
    const int number = ++m_latest;
    std::ignore = startUnwaited([asker = m_asker, question = std::move(question), number] {
        Answer answer = question();
        const std::lock_guard lock(asker->mutex);
        FileQuestion* const self = asker->question;
        if (!self)
            return;
        const auto deliver = [self, number, answer = std::move(answer)] {
            if (number == self->m_latest)
                answer();
        };
        QMetaObject::invokeMethod(self, deliver, Qt::QueuedConnection);
    });
}

} // namespace tarsel
