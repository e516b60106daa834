// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ApplicationScope.h"

#include "base/Translation.h"

#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <clocale>
#include <cstdlib>
#include <langinfo.h>
#include <string>
#include <string_view>

namespace tarsel::cli {

namespace {

char programName[] = "tarsel";
char* programArguments[] = {programName, nullptr};
int programArgumentCount = 1;

/// Keeps the language of a locale that is about to be replaced.
void keepLanguage() {
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* value = std::getenv(name); value && *value) {
            ::setenv("LANGUAGE", std::string(value).c_str(), 1);
            return;
        }
}

/// File names are UTF-8 whatever the locale says; Qt would warn of any other.
void requireUtf8Locale() {
    std::setlocale(LC_ALL, "");
    if (std::string_view(nl_langinfo(CODESET)) == "UTF-8")
        return;
    keepLanguage();
    ::setenv("LC_ALL", "C.UTF-8", 1);
}

/// Warnings of libraries are nothing that a user could act on; those of our own categories are.
void showOwnAndFatalMessages(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const bool isOwn = context.category && std::string_view(context.category).starts_with("tarsel");
    if (isOwn || type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "tarsel: %s\n", qUtf8Printable(text));
}

} // namespace

ApplicationScope* ApplicationScope::current = nullptr;

ApplicationScope::ApplicationScope(RunLanguage language) : m_language(language) {
    current = this;
    requireUtf8Locale();
    if (m_language == RunLanguage::English)
        ::setenv("LANGUAGE", "en", 1); // also what libraries and our other processes say
    qInstallMessageHandler(showOwnAndFatalMessages);
    m_application = std::make_unique<QCoreApplication>(programArgumentCount, programArguments);
    provideTexts();
}

/// The comments of types of files follow Qt's locale.
void ApplicationScope::provideTexts() const {
    if (m_language == RunLanguage::OfUser)
        installTranslation();
    else
        QLocale::setDefault(QLocale::c());
}

void ApplicationScope::provideFonts() {
    if (qobject_cast<QGuiApplication*>(current->m_application.get()))
        return;
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    current->provideRuntimeFolder();
    current->m_application.reset();
    current->m_application = std::make_unique<QGuiApplication>(programArgumentCount, programArguments);
    current->provideTexts();
}

/// A graphical Qt asks for the user's runtime folder. Where there is none, under cron or in a container, it
/// would make one that nobody removes.
void ApplicationScope::provideRuntimeFolder() {
    if (qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        return;
    m_runtimeFolder.emplace();
    ::setenv("XDG_RUNTIME_DIR", QFile::encodeName(m_runtimeFolder->path()).constData(), 1);
}

ApplicationScope::~ApplicationScope() {
    current = nullptr;
}

} // namespace tarsel::cli
