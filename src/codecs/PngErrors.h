// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <csetjmp>
#include <cstdio>
#include <png.h>

namespace tarsel {

/// Error handling for one libpng object: a fatal error jumps back into `guarded`, warnings are tolerated.
/// Nothing that has a destructor may live in the frames that a jump leaves.
class PngErrors {
public:
    /// Runs `step(argument)`; false when libpng ended it.
    template <class Argument>
    bool guarded(void (*step)(Argument&), Argument& argument) {
        if (setjmp(m_return) != 0)
            return false;
        step(argument);
        return true;
    }

    QString message() const { return QString::fromLatin1(m_message); } ///< of the fatal error

    /// libpng's two callbacks; the object's error pointer is this object.
    static void onError(png_structp png, png_const_charp message);
    static void onWarning(png_structp, png_const_charp) {}

private:
    std::jmp_buf m_return = {};
    char m_message[200] = {};
};

} // namespace tarsel
