// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"

#include <gtest/gtest.h>

using namespace tarsel;

TEST(CodePage, EverySingleByteReadsAsOneCharacterAndComesBack) {
    for (int value = 0; value < 256; ++value) {
        const QByteArray bytes(1, char(value));
        const QString text = codePage::decode(bytes);
        EXPECT_EQ(text.size(), 1) << value;
        EXPECT_EQ(codePage::encode(text), bytes) << value;
    }
}

TEST(CodePage, ThePageHoldsWhatWesternFilesNeed) {
    EXPECT_EQ(codePage::encode(QStringLiteral("\u20AC \u2013 \u0178 \u00E4")),
              QByteArray("\x80 \x96 \x9F \xE4"));
    EXPECT_EQ(codePage::decode("\x84Stra\xDF"
                               "e\x93"),
              QStringLiteral("\u201EStra\u00DFe\u201C"));
}

TEST(CodePage, NoTextIsLostOnItsWayThroughAFile) {
    // the third and fourth would read as UTF-8 as one byte each
    for (const char* utf8 : {"", "plain", "\u00C3\u00A4", "\u00E4\u00C3\u00A4", "\u65E5\u672C \u00E9",
                             "\U0001F4F7 camera", "\u0416\u20AC"}) {
        const QString text = QString::fromUtf8(utf8);
        EXPECT_EQ(codePage::decode(codePage::encode(text)), text) << utf8;
    }
}

TEST(CodePage, BytesThatAreNearlyUtf8ReadAsSingleBytes) {
    // stray continuation, cut character, overlong slash, surrogate, beyond the last character
    for (const char* bytes : {"\xA4", "a\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                              "\xF0\x8F\xBF\xBF", "\xF5\x80\x80\x80", "\xE2\x82", "\xC3\xA4\xFF"})
        EXPECT_EQ(codePage::decode(bytes).size(), qsizetype(qstrlen(bytes))) << bytes;
}

TEST(CodePage, ACutNeverSplitsACharacter) {
    const QByteArray bytes = codePage::encode(QStringLiteral("a\u00E9\u65E5\U0001F4F7z"));
    for (qsizetype size = 0; size <= bytes.size() + 1; ++size) {
        const QByteArray kept = codePage::cut(bytes, size);
        EXPECT_LE(kept.size(), size);
        EXPECT_GT(kept.size() + 4, std::min(size, bytes.size()));
        EXPECT_TRUE(bytes.startsWith(kept));
        EXPECT_FALSE(QString::fromUtf8(kept).contains(QChar::ReplacementCharacter)) << size;
    }
    EXPECT_EQ(codePage::cut("\xE4\xF6\xFC", 2), QByteArray("\xE4\xF6"));
}
