// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>

// What the program and its scanner process say to each other. No Qt here: the process does without it.
//
// A request is a record, then `bytes` of text. It is answered by an Answer; StartFrame by a Frame, then any
// number of Lines, before the Answer that ends it. Each of these is a record, then its `bytes`. Bytes come in
// messages of scannerChunk, the last of which is shorter.
namespace tarsel {

constexpr std::size_t scannerChunk = 65536;
constexpr std::uint32_t mostRequestBytes = 32768; ///< name of a device, value of a text option

enum class ScannerCommand : std::uint32_t {
    ListDevices, ///< closes the device, and searches again; the answer has the packed devices
    Open,        ///< the device of this name, in place of the one that is open
    Close,
    ReadOptions, ///< the answer has the packed options
    SetOption,  ///< to `word`, or to the text; the answer's info has SANE_INFO bits and `word` what was taken
    StartFrame, ///< one frame of a page, until its end
    EndPages,   ///< no further page is wanted: the device comes to rest
};

enum class ScannerSetting : std::uint32_t { Word, Text, Automatic, Button };

struct ScannerRequest {
    ScannerCommand command = ScannerCommand::ListDevices;
    std::uint32_t serial = 0; ///< comes back in the replies
    std::int32_t option = 0;  ///< number of the option, from 1
    ScannerSetting setting = ScannerSetting::Word;
    std::int32_t word = 0;
    std::uint32_t bytes = 0;
};

enum class ScannerReplyKind : std::uint32_t { Answer, Frame, Lines };

struct ScannerReply {
    ScannerReplyKind kind = ScannerReplyKind::Answer;
    std::uint32_t serial = 0;
    std::int32_t status = 0; ///< a SANE_Status; of a frame that ended well SANE_STATUS_EOF
    std::int32_t info = 0;
    std::int32_t word = 0;
    std::uint32_t bytes = 0;
};

/// SANE_Parameters, as the process found them after the start of the frame.
struct ScannerFrame {
    std::int32_t format = 0; ///< a SANE_Frame
    std::int32_t isLast = 0;
    std::int32_t bytesPerLine = 0;
    std::int32_t pixelsPerLine = 0;
    std::int32_t lines = 0; ///< -1: nobody knows
    std::int32_t depth = 0;
};

} // namespace tarsel
