// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QTemporaryDir>
#include <memory>
#include <optional>

namespace tarsel::cli {

/// The application object for as long as it lives. One with fonts takes longer to start; it runs on the
/// offscreen platform and needs no display.
class ApplicationScope {
public:
    explicit ApplicationScope(bool withFonts);
    ~ApplicationScope();
    ApplicationScope(const ApplicationScope&) = delete;
    ApplicationScope& operator=(const ApplicationScope&) = delete;

private:
    void provideRuntimeFolder();

    std::optional<QTemporaryDir> m_runtimeFolder;
    std::unique_ptr<QCoreApplication> m_application;
};

} // namespace tarsel::cli
