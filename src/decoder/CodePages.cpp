// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/CodePages.h"

#include <algorithm>
#include <array>
#include <iconv.h>
#include <map>

namespace tarsel::decoder {

namespace {

constexpr int westernCharset = 0;
constexpr struct {
    int charset;
    const char* codePage;
} codePages[] = {{westernCharset, "CP1252"},
                 {128, "CP932"},
                 {129, "CP949"},
                 {130, "CP1361"},
                 {134, "CP936"},
                 {136, "CP950"},
                 {161, "CP1253"},
                 {162, "CP1254"},
                 {163, "CP1258"},
                 {177, "CP1255"},
                 {178, "CP1256"},
                 {186, "CP1257"},
                 {204, "CP1251"},
                 {222, "CP874"},
                 {238, "CP1250"},
                 {255, "CP850"}};

/// Characters of single bytes, and of pairs by their first byte; 0 for what the code page doesn't have.
struct CodePage {
    std::array<char32_t, 256> singles = {};
    std::map<std::uint8_t, std::array<char32_t, 256>> pairs;
};

class Converter {
public:
    explicit Converter(const char* codePage) : m_state(::iconv_open("UTF-32LE", codePage)) {}
    ~Converter() {
        if (isOpen())
            ::iconv_close(m_state);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool isOpen() const { return m_state != iconv_t(-1); }
    /// 0 for bytes that are not exactly one character.
    char32_t character(std::initializer_list<int> codes) const {
        char bytes[2] = {};
        std::ranges::transform(codes, bytes, [](int code) { return char(code); });
        char32_t result[2] = {};
        char *from = bytes, *to = reinterpret_cast<char*>(result);
        std::size_t left = codes.size(), room = sizeof result;
        ::iconv(m_state, nullptr, nullptr, nullptr, nullptr);
        const bool isRead = ::iconv(m_state, &from, &left, &to, &room) != std::size_t(-1) && left == 0;
        ::iconv(m_state, nullptr, nullptr, &to, &room); // what it kept for a following accent
        return isRead && room == sizeof result[1] ? result[0] : 0;
    }

private:
    iconv_t m_state;
};

CodePage readCodePage(const char* name) {
    CodePage page;
    const Converter converter(name);
    for (int byte = 0; byte < 256 && converter.isOpen(); ++byte) {
        page.singles[std::size_t(byte)] = converter.character({byte});
        if (page.singles[std::size_t(byte)] != 0 || byte < 0x80)
            continue;
        std::array<char32_t, 256> pairs = {};
        for (int second = 0x30; second < 256; ++second)
            pairs[std::size_t(second)] = converter.character({byte, second});
        if (std::ranges::any_of(pairs, [](char32_t character) { return character != 0; }))
            page.pairs[std::uint8_t(byte)] = pairs;
    }
    return page;
}

const std::map<int, CodePage>& allCodePages() {
    static const std::map<int, CodePage> pages = [] {
        std::map<int, CodePage> read;
        for (const auto& [charset, name] : codePages)
            read[charset] = readCodePage(name);
        return read;
    }();
    return pages;
}

} // namespace

void prepareCodePages() {
    allCodePages();
}

void joinSurrogates(std::vector<char32_t>& characters) {
    const auto isHigh = [](char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; };
    const auto isLow = [](char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; };
    for (std::size_t i = 0; i + 1 < characters.size(); ++i)
        if (isHigh(characters[i]) && isLow(characters[i + 1])) {
            characters[i] = 0x10000 + ((characters[i] - 0xD800) << 10) + (characters[i + 1] - 0xDC00);
            characters[i + 1] = zeroWidthSpace;
        }
}

std::vector<char32_t> decodedText(int charset, const QByteArray& text) {
    const auto& pages = allCodePages();
    const auto found = pages.find(charset);
    const CodePage& page = found == pages.end() ? pages.at(westernCharset) : found->second;
    std::vector<char32_t> characters;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto byte = std::uint8_t(text[i]);
        const auto pairs = page.pairs.find(byte);
        if (pairs != page.pairs.end() && i + 1 < text.size()) {
            characters.push_back(pairs->second[std::uint8_t(text[++i])]);
            characters.push_back(zeroWidthSpace);
        } else {
            const char32_t character = page.singles[byte];
            characters.push_back(character != 0 ? character : byte);
        }
    }
    return characters;
}

} // namespace tarsel::decoder
