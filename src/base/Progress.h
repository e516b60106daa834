// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <atomic>

namespace tarsel {

/// Set by the Cancel of the progress dialog (or by an interrupt of the command line); long batch loops test
/// it after each item, clear it and leave.
inline std::atomic<bool> CancelRequested = false;

/// A progress bar as the loops see it.
class Progress {
public:
    virtual ~Progress() = default;
    virtual void start(int maximum, int value = 0) = 0; ///< sets range and value and shows the bar
    virtual void setValue(int value) = 0;
    virtual void hide() = 0;
    virtual void setSubject(const QString& /*fileName*/) {} ///< the file in work
};

/// A bar that nobody sees.
class NoProgress final : public Progress {
public:
    void start(int, int) override {}
    void setValue(int) override {}
    void hide() override {}
};

} // namespace tarsel
