// SPDX-License-Identifier: MIT
#include "publishing/joined/JoinedReader.h"

#include "publishing/joined/JoinedTrailer.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace tarsel::joined {

namespace {

/// Of a list; more would be no list of pictures.
constexpr std::uint64_t longestList = 64 << 20;

/// Decimal digits and nothing else.
std::optional<std::uint64_t> numberOf(std::string_view text) {
    std::uint64_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return number;
}

/// The text before the first `separator`, which goes too; all of it where there is none.
std::string_view takeUntil(std::string_view& text, std::string_view separator) {
    const std::size_t end = text.find(separator);
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + separator.size());
    return taken;
}

class ListReader {
public:
    ListReader(const ByteSource& file, std::string_view list, std::uint64_t listOffset) :
        m_file(file), m_list(list) {
        m_contents.listOffset = listOffset;
    }

    std::optional<JoinedContents> read() {
        while (!m_list.empty()) {
            std::string_view line = takeUntil(m_list, "\r\n");
            const std::string_view name = takeUntil(line, ";");
            const auto offset = numberOf(takeUntil(line, ";"));
            if (!offset || *offset > m_contents.listOffset)
                return std::nullopt;
            if (name == optionsName) {
                m_contents.optionsOffset = *offset;
                return m_contents;
            }
            const auto size = numberOf(takeUntil(line, ";"));
            if (!size || *size >= m_contents.listOffset - *offset || !isBlock(*offset, *size))
                return std::nullopt;
            m_contents.pictures.push_back({std::string(name), *offset, *size});
        }
        return std::nullopt;
    }

private:
    bool isBlock(std::uint64_t offset, std::uint64_t size) const {
        return blockOf(m_file, offset + size, 1) == std::string(1, '\0');
    }

    const ByteSource& m_file;
    std::string_view m_list;
    JoinedContents m_contents;
};

} // namespace

std::optional<std::string> blockOf(const ByteSource& file, std::uint64_t offset, std::uint64_t size) {
    const auto total = std::uint64_t(std::max<std::int64_t>(file.size, 0));
    if (offset > total || size > total - offset)
        return std::nullopt;
    std::string bytes(std::size_t(size), '\0');
    if (file.read(std::int64_t(offset), bytes.data(), std::int64_t(size)) != std::int64_t(size))
        return std::nullopt;
    return bytes;
}

std::optional<JoinedContents> readJoined(const ByteSource& file) {
    const auto total = std::uint64_t(std::max<std::int64_t>(file.size, 0));
    if (total < trailerSize)
        return std::nullopt;
    const auto trailer = blockOf(file, total - trailerSize, trailerSize);
    if (!trailer || !trailer->starts_with(trailerHeader))
        return std::nullopt;
    std::string_view digits = std::string_view(*trailer).substr(trailerHeader.size(), positionDigits);
    const auto position = numberOf(takeUntil(digits, " "));
    // The list ends with a line end and a zero byte before the trailer.
    if (!position || digits.find_first_not_of(' ') != std::string_view::npos ||
        *position >= total - trailerSize || total - trailerSize - *position > longestList)
        return std::nullopt;
    const auto list = blockOf(file, *position, total - trailerSize - *position - 1);
    if (!list)
        return std::nullopt;
    return ListReader(file, *list, *position).read();
}

} // namespace tarsel::joined
