// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/RecordImage.h"

#include "base/CodePage.h"
#include "base/TrappedError.h"
#include "configuration/ConfigFields.h"
#include "tests/support/Digest.h"
#include "tests/support/ErrorNumberOf.h"

#include <gtest/gtest.h>
#include <limits>
#include <map>

using namespace tarsel;

namespace {

/// What a value is after it was stored: fixed texts come back filled up with blanks.
ConfigValue stored(const ConfigField& field, const ConfigValue& value) {
    if (field.type != FieldType::F)
        return value;
    const QString text = std::get<QString>(value);
    return codePage::decode(codePage::encode(text).leftJustified(fixedTextSize, ' '));
}

std::vector<ConfigValue> bounds(FieldType type) {
    switch (type) {
    case FieldType::I1:
        return {quint8(0), quint8(1), quint8(255)};
    case FieldType::I2:
        return {qint16(-32768), qint16(-1), qint16(0), qint16(32767)};
    case FieldType::I4:
        return {std::numeric_limits<qint32>::min(), qint32(-1), qint32(0x00FEDCBA),
                std::numeric_limits<qint32>::max()};
    case FieldType::R8:
        return {0.0, -1.5, std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min(),
                std::numeric_limits<double>::infinity()};
    case FieldType::S:
        return {QString(), QStringLiteral("x"), QStringLiteral("\u00E9\u20AC"),
                QStringLiteral("\u65E5\u672C"), QString(65535, QLatin1Char('s'))};
    case FieldType::F:
        return {QString(), QStringLiteral("/home/m\u00FCller"), QStringLiteral("/\u65E5\u672C"),
                QString(fixedTextSize, QLatin1Char('f'))};
    }
    return {};
}

int storedSize(const ConfigField& field, const ConfigRecordData& record) {
    if (field.type == FieldType::S)
        return 2 + int(codePage::encode(std::get<QString>(field.value(record))).size());
    const std::map<FieldType, int> sizes{{FieldType::I1, 1},
                                         {FieldType::I2, 2},
                                         {FieldType::I4, 4},
                                         {FieldType::R8, 8},
                                         {FieldType::F, fixedTextSize}};
    return sizes.at(field.type);
}

} // namespace

TEST(RecordImage, TheDefaultRecordIsByteForByteTheSameInEveryVersion) {
    const QByteArray image = recordImage(defaultRecord(QStringLiteral("/p")));
    EXPECT_EQ(image.size(), 1242);
    EXPECT_EQ(test::digestOf(image), "465a275d2cb3c687");
    EXPECT_EQ(defaultRecord(QStringLiteral("/p/ ")).Twain.Folder, QStringLiteral("/p/ "));
}

TEST(RecordImage, EveryFieldComesBackAtItsBoundsAndTouchesNoOther) {
    for (const ConfigField& changed : configFields()) {
        for (const ConfigValue& value : bounds(changed.type)) {
            ConfigRecordData record = defaultRecord(QStringLiteral("/p"));
            changed.assign(record, value);
            const ConfigRecordData back = recordFromImage(recordImage(record));
            for (const ConfigField& field : configFields())
                ASSERT_TRUE(field.value(back) == stored(field, field.value(record)))
                    << changed.name << " / " << field.name;
        }
    }
}

TEST(RecordImage, AFileCutAnywhereHoldsTheFieldsBeforeTheCutAndZerosAfterThem) {
    const ConfigRecordData record = defaultRecord(QStringLiteral("/home/u"));
    const QByteArray image = recordImage(record);
    const ConfigRecordData zeros = recordFromImage({});
    EXPECT_EQ(zeros.SplitterMain, 0) << "not the default";
    for (qsizetype size = 0; size <= image.size(); ++size) {
        const ConfigRecordData cut = recordFromImage(image.left(size));
        qsizetype end = 0;
        for (const ConfigField& field : configFields()) {
            end += storedSize(field, record);
            const ConfigValue read = field.value(cut);
            ASSERT_TRUE(read == (end <= size ? stored(field, field.value(record)) : field.value(zeros)))
                << field.name << " at " << size;
        }
    }
}

TEST(RecordImage, AFolderTooLongForItsFieldIsCutBetweenCharacters) {
    for (const int length : {254, 255, 256, 257, 300}) {
        ConfigRecordData record;
        record.LastFolder = QString(length - 1, QLatin1Char('a')) + QStringLiteral("\u65E5\u65E5");
        const QString back = recordFromImage(recordImage(record)).LastFolder;
        EXPECT_FALSE(back.contains(QChar::ReplacementCharacter));
        EXPECT_TRUE(record.LastFolder.startsWith(back.trimmed()));
        EXPECT_LE(back.trimmed().toUtf8().size(), fixedTextSize);
        EXPECT_GT(back.trimmed().toUtf8().size(), fixedTextSize - 4);
    }
}

TEST(RecordImage, ATextBeyondItsCountIsRefused) {
    ConfigRecordData record;
    record.Tasks.WatermarkImage = QString(65536, QLatin1Char('w'));
    EXPECT_EQ(test::errorNumberOf([&] { recordImage(record); }), ErrorNumber::Overflow);
}
