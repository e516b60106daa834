// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bytes/TiffStructure.h"

#include <QByteArray>
#include <QString>
#include <any>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>

namespace tarsel {

/// The bytes of a picture, in a file or in memory. A file is opened once and read where bytes are asked for;
/// it may shrink meanwhile: bytes that don't exist are not returned. Copies share the file and what was read
/// from it. One source may be used by several threads.
class PictureSource {
public:
    /// The most that `all` reads of a file: more than any format that needs all bytes at once can use.
    static constexpr std::int64_t largestReadAtOnce = std::int64_t(512) << 20;

    PictureSource(QByteArray bytes); // NOLINT(google-explicit-constructor): bytes in memory are a source
    /// Errors 53 (missing), 70 (not readable), 5 (not a regular file).
    static PictureSource ofFile(const QString& path);

    std::int64_t size() const; ///< when it was opened
    /// Copies up to `count` bytes from offset `at`; returns how many.
    std::int64_t read(std::int64_t at, void* target, std::int64_t count) const;
    /// Up to `count` bytes from offset `at`.
    QByteArray bytes(std::int64_t at, std::int64_t count) const;
    /// The first bytes, up to 256 KB: signatures, and the headers of most files.
    QByteArray start() const;
    /// This source for readers of the ground floor. It shares the file.
    ByteSource byteSource() const;
    /// All bytes, kept for the next call. Error 0x8000FFFF when there are more than LargestReadAtOnce.
    QByteArray all() const;

    /// What a codec has found out about the source: made by the first caller, kept for the next questions.
    /// One source is read by one codec, which keeps one kind of it.
    template <class Finding>
    const Finding& finding(const std::function<Finding()>& make) const {
        const std::lock_guard lock(findingMutex());
        std::any& kept = keptFinding();
        if (!kept.has_value())
            kept = make();
        return std::any_cast<const Finding&>(kept);
    }

private:
    std::mutex& findingMutex() const;
    std::any& keptFinding() const;

    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace tarsel
