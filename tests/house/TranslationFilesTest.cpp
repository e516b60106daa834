// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace {

const QDir folder(QStringLiteral(TARSEL_ROOT "/translations"));

struct Message {
    QString context, source, comment;
    QString state;            ///< "unfinished", "obsolete", "vanished", or empty
    QStringList translations; ///< one, or each form of a plural

    QString name() const { return context + QStringLiteral(": ") + source + u'|' + comment; }
};

void readTranslation(QXmlStreamReader& reader, Message& message) {
    message.state = reader.attributes().value(QLatin1String("type")).toString();
    QString text;
    while (reader.readNext() != QXmlStreamReader::EndElement ||
           reader.name() != QLatin1String("translation")) {
        if (reader.isStartElement())
            message.translations << reader.readElementText();
        else
            text += reader.text();
    }
    if (message.translations.isEmpty())
        message.translations << text;
}

QList<Message> messagesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    QXmlStreamReader reader(&file);
    QList<Message> messages;
    QString context;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("name"))
            context = reader.readElementText();
        else if (reader.name() == QLatin1String("message"))
            messages.append({context, {}, {}, {}, {}});
        else if (reader.name() == QLatin1String("source"))
            messages.last().source = reader.readElementText();
        else if (reader.name() == QLatin1String("comment"))
            messages.last().comment = reader.readElementText();
        else if (reader.name() == QLatin1String("translation"))
            readTranslation(reader, messages.last());
    }
    EXPECT_FALSE(reader.hasError()) << qPrintable(path);
    return messages;
}

/// Everything that a pattern finds, in the order of the alphabet.
QStringList found(const QString& text, const char* pattern) {
    QStringList all;
    for (auto match = QRegularExpression(QString::fromUtf8(pattern)).globalMatch(text); match.hasNext();)
        all << match.next().captured();
    all.sort();
    return all;
}

/// What the program reads in a text stands in its translation too. A plural may leave out its number.
void expectSameParts(const Message& message, const QString& translation) {
    for (const char* part : {"%L?[1-9]", "\\|\\s*\\*[^|]*", "^ +", " +$", "--[a-z-]+"})
        EXPECT_EQ(found(translation, part), found(message.source, part)) << qPrintable(message.name());
    EXPECT_EQ(found(translation, "&[^ &]").size(), found(message.source, "&[^ &]").size())
        << "mnemonic: " << qPrintable(message.name());
    if (message.translations.size() < 2) {
        EXPECT_EQ(found(translation, "%n"), found(message.source, "%n")) << qPrintable(message.name());
    }
}

} // namespace

TEST(TranslationFiles, AreCompleteAndKeepPlaceholdersFiltersAndMnemonics) {
    for (const QString& name : folder.entryList({QStringLiteral("*.ts")}))
        for (const Message& message : messagesOf(folder.filePath(name))) {
            EXPECT_EQ(message.state.toStdString(), "") << qPrintable(message.name());
            for (const QString& translation : message.translations) {
                EXPECT_EQ(translation.isEmpty(), message.source.isEmpty()) << qPrintable(message.name());
                expectSameParts(message, translation);
            }
        }
}

TEST(TranslationFiles, GermanQuotationMarksComeInPairs) {
    for (const Message& message : messagesOf(folder.filePath(QStringLiteral("tarsel-jpeg_de.ts"))))
        for (const QString& text : message.translations) {
            EXPECT_EQ(text.count(u'„'), text.count(u'“')) << qPrintable(text);
            EXPECT_FALSE(text.contains(u'”') ||
                         text.contains(QLatin1String("..")) != text.contains(QLatin1String("...")))
                << qPrintable(text);
        }
}

/// lupdate reads the sources before macros are replaced.
TEST(TranslationFiles, NoMacroHidesTextsFromThem) {
    static const QRegularExpression macro(QStringLiteral("#\\s*define .*(_NOOP|\\btr\\(|translate\\()"));
    for (QDirIterator it(QStringLiteral(TARSEL_ROOT "/src"), {QStringLiteral("*.cpp"), QStringLiteral("*.h")},
                         QDir::Files, QDirIterator::Subdirectories);
         it.hasNext();) {
        QFile file(it.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_FALSE(macro.match(QString::fromUtf8(file.readAll())).hasMatch())
            << qPrintable(file.fileName());
    }
}

/// `cmake --build --preset dev --target update_translations` adds texts that are new.
TEST(TranslationFiles, HaveTheTextsOfTheSources) {
    if (QStringLiteral(TARSEL_LUPDATE).isEmpty())
        GTEST_SKIP() << "Qt's lupdate is not installed";
    const QTemporaryDir copies;
    for (const QString& name : folder.entryList({QStringLiteral("*.ts")})) {
        const QString copy = copies.filePath(name);
        ASSERT_TRUE(QFile::copy(folder.filePath(name), copy));
        ASSERT_EQ(QProcess::execute(QStringLiteral(TARSEL_LUPDATE),
                                    {QStringLiteral("-silent"), QStringLiteral("-no-obsolete"),
                                     QStringLiteral("-locations"), QStringLiteral("none"),
                                     QStringLiteral(TARSEL_ROOT "/src"), QStringLiteral("-ts"), copy}),
                  0);
        QSet<QString> before, after;
        for (const Message& message : messagesOf(folder.filePath(name)))
            before << message.name();
        for (const Message& message : messagesOf(copy))
            after << message.name();
        for (const QString& text : (after - before))
            ADD_FAILURE() << "new: " << qPrintable(text);
        for (const QString& text : (before - after))
            ADD_FAILURE() << "no longer used: " << qPrintable(text);
    }
}
