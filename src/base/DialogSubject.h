// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

namespace tarsel {

/// What the questions and file dialogs of a command are about: for as long as this lives, F1 in one of them
/// opens the page of the control of that name, whatever has the focus in the window below. For the main
/// thread only.
class DialogSubject {
public:
    /// `control`: a string literal.
    explicit DialogSubject(const char* control) : m_before(std::exchange(named, control)) {}
    ~DialogSubject() { named = m_before; }
    DialogSubject(const DialogSubject&) = delete;
    DialogSubject& operator=(const DialogSubject&) = delete;

    static const char* current() { return named; } ///< nullptr where no command has named one

private:
    inline static const char* named = nullptr;
    const char* m_before;
};

} // namespace tarsel
