// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ScratchFolder.h"

#include <QCoreApplication>
#include <memory>
#include <optional>

namespace tarsel::cli {

/// The application object for as long as the scope lives, with the texts of the user's language. There is one
/// at a time.
class ApplicationScope {
public:
    ApplicationScope();
    ~ApplicationScope();
    ApplicationScope(const ApplicationScope&) = delete;
    ApplicationScope& operator=(const ApplicationScope&) = delete;

    /// Replaces the application object by one with fonts, which takes longer to start. It runs on the
    /// offscreen platform and needs no display.
    static void provideFonts();

private:
    static ApplicationScope* current;

    void provideRuntimeFolder();

    std::optional<ScratchFolder> m_runtimeFolder;
    std::unique_ptr<QCoreApplication> m_application;
};

} // namespace tarsel::cli
