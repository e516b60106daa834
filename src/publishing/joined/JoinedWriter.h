// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tarsel::joined {

/// Writes a file that shows pictures by itself: a player with everything that it shows behind it.
///
///   block          bytes   content
///   player         S + 1   the S bytes of the program, a zero byte
///   each picture   J + 1   the J bytes of the JPEG file, a zero byte
///   options        6 or more  the record of JoinedOptions.h
///   list           F + 1   lines with CR LF at their ends, a zero byte:
///                            NAME;OFFSET;J;         for each picture, in their order
///                            OPTIONS;OFFSET;        last
///   trailer        15      08 00 0B 00, the list's offset in 10 decimal digits with blanks after them, a
///                          zero byte
///
/// Offsets count from 0 and are decimal. A player takes the list to be 3 bytes shorter than F, without the
/// last ";" and line end. The list has no escape: a ";" in a name becomes a ",", a line end a blank;
/// the name "OPTIONS" gets a blank after it.
class JoinedWriter {
public:
    using Sink = std::function<void(std::string_view)>;

    /// Everything goes to `sink`, in order; its exceptions pass through.
    explicit JoinedWriter(Sink sink) : m_sink(std::move(sink)) {}

    void player(std::string_view program);
    /// The program in pieces: `next` returns one after the other, an empty one at the end.
    void player(const std::function<std::string_view()>& next);
    void picture(std::string_view name, std::string_view jpeg);
    /// The end of the file: the options record, the list, the trailer. False, and nothing written, when the
    /// list would begin at an offset of more than ten digits.
    [[nodiscard]] bool finish(std::string_view options);

    std::uint64_t size() const { return m_size; } ///< written so far
    /// As it is in the file, once that is finished.
    const std::string& list() const { return m_list; }

private:
    void write(std::string_view bytes);
    void writeBlock(std::string_view bytes);

    Sink m_sink;
    std::string m_list;
    std::uint64_t m_size = 0;
};

} // namespace tarsel::joined
