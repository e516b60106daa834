// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/HomeFolder.h"

#include "collections/UnwaitedWork.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarsel {

namespace {

/// Each may be on a file system of its own, by its variable or by a link.
constexpr struct {
    const char* variable;
    const char* usualPlace; ///< in the home
} foldersBeside[] = {
    {"XDG_DATA_HOME", "/.local/share"}, {"XDG_CONFIG_HOME", "/.config"}, {"XDG_CACHE_HOME", "/.cache"}};

void takeHomeOfUser() {
    if (!qEnvironmentVariableIsEmpty("HOME"))
        return;
    if (const passwd* user = ::getpwuid(::getuid()); user && user->pw_dir && *user->pw_dir)
        qputenv("HOME", user->pw_dir);
}

/// That they are missing is an answer too.
bool answer(std::chrono::milliseconds longestWait) {
    const QByteArray home = qgetenv("HOME");
    QByteArrayList folders{home};
    for (const auto& [variable, usualPlace] : foldersBeside)
        folders << (qEnvironmentVariableIsEmpty(variable) ? home + usualPlace : qgetenv(variable));
    const auto answered = startUnwaited([folders] {
        struct stat found = {};
        for (const QByteArray& folder : folders)
            ::stat((folder + "/.").constData(), &found);
    });
    return answered.wait_for(longestWait) == std::future_status::ready;
}

} // namespace

bool takeHomeThatAnswers(std::chrono::milliseconds longestWait) {
    takeHomeOfUser();
    if (answer(longestWait))
        return true;
    QTemporaryDir home(QDir::tempPath() + QStringLiteral("/tarsel-jpeg-home-XXXXXX"));
    home.setAutoRemove(false); // what is made meanwhile may be the user's
    qputenv("HOME", QFile::encodeName(home.path()));
    for (const auto& [variable, usualPlace] : foldersBeside)
        qunsetenv(variable);
    return false;
}

} // namespace tarsel
