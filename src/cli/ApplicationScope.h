// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ScratchFolder.h"

#include <QCoreApplication>
#include <memory>
#include <optional>

namespace tarsel::cli {

/// Whose texts a run has. Scripts get the same ones everywhere.
enum class RunLanguage { OfUser, English };

/// The application object for as long as the scope lives. There is one at a time.
class ApplicationScope {
public:
    explicit ApplicationScope(RunLanguage language);
    ~ApplicationScope();
    ApplicationScope(const ApplicationScope&) = delete;
    ApplicationScope& operator=(const ApplicationScope&) = delete;

    /// Replaces the application object by one with fonts, which takes longer to start. It runs on the
    /// offscreen platform and needs no display.
    static void provideFonts();

private:
    static ApplicationScope* current;

    void provideRuntimeFolder();
    void provideTexts() const;

    RunLanguage m_language;
    std::optional<ScratchFolder> m_runtimeFolder;
    std::unique_ptr<QCoreApplication> m_application;
};

} // namespace tarsel::cli
