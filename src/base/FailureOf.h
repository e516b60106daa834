// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

#include <exception>
#include <new>
#include <optional>

namespace tarsel {

/// The error of `work`. Values cross threads, exceptions don't.
template <class Work>
std::optional<TrappedError> failureOf(Work&& work) {
    try {
        work();
        return std::nullopt;
    } catch (const TrappedError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return TrappedError{ErrorNumber::OutOfMemory, errorText(ErrorNumber::OutOfMemory), {}};
    } catch (const std::exception& error) {
        return TrappedError{ErrorNumber::InvalidCall, QString::fromUtf8(error.what()), {}};
    }
}

} // namespace tarsel
