// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/clsFile.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "tests/support/ErrorNumberOf.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarsel;
using test::errorNumberOf;

namespace {

class ClsFile : public testing::Test {
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("list.tbf"));
    clsFile file;

    void openWith(const QByteArray& bytes) {
        writeFileSafely(path, bytes);
        ASSERT_TRUE(file.OpenForRead(path));
    }

    QStringList readAll(int fields) {
        QStringList all;
        while (!file.fEof())
            all << file.readFields(fields);
        return all;
    }

    QStringList list(std::initializer_list<const char*> texts) {
        QStringList result;
        for (const char* text : texts)
            result << QString::fromUtf8(text);
        return result;
    }
};

} // namespace

TEST_F(ClsFile, RecordsAreQuotedCommaSeparatedLinesWithCrLf) {
    ASSERT_TRUE(file.OpenForWrite(path));
    file.writeline(QStringLiteral("/a b.jpg"));
    file.write_ImageBasket(QStringLiteral("/\u00E4,b.jpg"), QString());
    file.closefile();
    EXPECT_EQ(readWholeFile(path), QByteArray("\"/a b.jpg\"\r\n\"/\xE4,b.jpg\",\"\"\r\n"));
}

TEST_F(ClsFile, WhatWasWrittenIsReadBackFieldByField) {
    const QStringList written = list({"5", "contrast", "", "a, b", " blanks ", "zwei\r\nZeilen", "日本", "Ã¤",
                                      "#", "True", "-1", "", "", "", "", "", "", "", "end"});
    ASSERT_TRUE(file.OpenForWrite(path));
    file.write_EditingList(written);
    file.write_EditingList(written);
    file.closefile();
    ASSERT_TRUE(file.OpenForRead(path));
    EXPECT_EQ(file.read_EditingList(), written);
    EXPECT_FALSE(file.fEof());
    EXPECT_EQ(file.read_EditingList(), written);
    EXPECT_TRUE(file.fEof()); // no empty row follows the last line end
}

TEST_F(ClsFile, FieldsAreReadQuotedOrNotAndWithAnyLineEnd) {
    const QStringList expected = list({"a", "b", "c d", ""});
    for (const char* bytes : {"\"a\",\"b\"\r\n\"c d\",\"\"\r\n", "a,b\nc d,\n", "  a , b \rc d,\r",
                              "a,b\r\nc d,\"\"", "\xEF\xBB\xBF\"a\" , \"b\"\r\n\"c d\",\"\"\r\n"}) {
        openWith(bytes);
        EXPECT_EQ(readAll(2), expected) << bytes;
    }
}

TEST_F(ClsFile, FieldsEndAtAQuoteAndRunOnOverLines) {
    const struct {
        const char* bytes;
        QStringList fields;
    } cases[] = {{"\"a\"\r\n\"b\",\"c\"\r\n", list({"a", "b", "c"})}, // one is missing on its line
                 {"\"he said \"hi\"\",\"b\"\r\n", list({"he said ", "hi\"\""})},
                 {"\"never closed, and\r\nmore", list({"never closed, and\r\nmore"})}};
    for (const auto& c : cases) {
        openWith(c.bytes);
        EXPECT_EQ(file.readFields(int(c.fields.size())), c.fields) << c.bytes;
    }
    EXPECT_TRUE(file.fEof());
    openWith("\"a\",\"b\"\r\n\"c\"\r\n");
    EXPECT_EQ(file.readFields(2), list({"a", "b"}));
    EXPECT_EQ(errorNumberOf([&] { file.readFields(2); }), ErrorNumber::InputPastEnd);
}

TEST_F(ClsFile, LinesAreReadWithoutTheirEnds) {
    openWith("\"a\"\r\n\r\nb\nc");
    EXPECT_EQ(file.readLine(), QStringLiteral("\"a\""));
    EXPECT_EQ(file.readLine(), QString());
    EXPECT_EQ(file.readLine(), QStringLiteral("b"));
    EXPECT_EQ(file.readLine(), QStringLiteral("c"));
    EXPECT_TRUE(file.fEof());
    EXPECT_EQ(file.readLine(), QString());
}

TEST_F(ClsFile, AFieldOrLineOfMegabytesIsRefusedAndEndsTheFile) {
    const std::string megabytes(3 << 20, 'a');
    for (const std::string& text : {megabytes, '"' + megabytes + '"'})
        for (const bool isLine : {false, true}) {
            openWith(text.c_str());
            EXPECT_EQ(errorNumberOf([&] { isLine ? (void)file.readLine() : (void)file.readFields(1); }),
                      ErrorNumber::InvalidCall);
            EXPECT_TRUE(file.fEof());
        }
}

TEST_F(ClsFile, WithoutAnOpenFileNothingIsReadWrittenOrRaised) {
    EXPECT_TRUE(file.fEof());
    EXPECT_FALSE(file.OpenForRead(folder.filePath(QStringLiteral("missing"))));
    EXPECT_FALSE(file.OpenForRead(folder.path()));
    EXPECT_FALSE(file.OpenForWrite(folder.filePath(QStringLiteral("missing/list.ibf"))));
    EXPECT_FALSE(file.isOpen());
    EXPECT_TRUE(file.openError());
    EXPECT_TRUE(file.fEof());
    EXPECT_EQ(file.readLine(), QString());
    EXPECT_EQ(file.readFields(2), QStringList({QString(), QString()}));
    file.writeline(QStringLiteral("lost"));
    file.closefile();
}

TEST_F(ClsFile, AListThatIsNeverClosedLeavesTheOldOneAndItsOpeningClearsTheError) {
    writeFileSafely(path, "old");
    {
        clsFile dropped;
        EXPECT_FALSE(dropped.OpenForWrite(folder.path()));
        ASSERT_TRUE(dropped.OpenForWrite(path));
        EXPECT_FALSE(dropped.openError());
        dropped.writeline(QStringLiteral("never closed"));
    }
    EXPECT_EQ(readWholeFile(path), QByteArray("old"));
}
