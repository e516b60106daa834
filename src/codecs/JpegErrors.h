// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <csetjmp>
#include <cstdio>
#include <jpeglib.h>

namespace tarsel {

/// Error handling for one libjpeg object: a fatal error jumps back into `guarded`, a warning is tolerated.
/// Nothing that has a destructor may live in the frames that a jump leaves: steps are plain functions.
class JpegErrors {
public:
    /// To be assigned to the object's `err`.
    jpeg_error_mgr* manager();

    /// Runs `step(argument)`; false when libjpeg ended it.
    template <class Argument>
    bool guarded(void (*step)(Argument&), Argument& argument) {
        if (setjmp(m_return) != 0)
            return false;
        step(argument);
        return true;
    }

    QString message() const { return QString::fromLatin1(m_message); } ///< of the fatal error
    /// The data ended before a first row of blocks was complete.
    bool endedBeforeFirstRows() const { return m_damage == Damage::BeforeFirstRows; }
    /// The data ended after that.
    bool endedEarly() const { return m_damage != Damage::None; }
    void giveUp(const char* reason); ///< from inside a step: ends it with this message

private:
    enum class Damage { None, BeforeFirstRows, Later };
    struct Manager {
        jpeg_error_mgr base;
        JpegErrors* owner;
    };
    static void exitOnError(j_common_ptr jpeg);
    static void noteWarning(j_common_ptr jpeg, int level);
    void noteEnd(const jpeg_decompress_struct& jpeg);
    static void printNothing(j_common_ptr) {}

    Manager m_manager = {};
    std::jmp_buf m_return = {};
    char m_message[JMSG_LENGTH_MAX] = {};
    Damage m_damage = Damage::None;
};

} // namespace tarsel
