// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Translation.h"
#include "tests/support/TestLanguages.h"
#include "tests/support/Text.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// A folder with German texts, and the same as those of other languages.
class Translations : public testing::Test {
protected:
    void SetUp() override {
        const QString german = translationsFolder() + text("/tarsel-jpeg_de.qm");
        if (!QFile::exists(german))
            GTEST_SKIP() << "translations are not built without Qt's lrelease";
        for (const char* language : {"de", "pt_BR", "nl"})
            ASSERT_TRUE(QFile::copy(german, fileOf(language)));
    }
    void TearDown() override { qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>()); }
    QString fileOf(const QString& language) const {
        return folder.filePath(text("tarsel-jpeg_%1.qm").arg(language));
    }
    QString fileOf(const char* language) const { return fileOf(QString::fromLatin1(language)); }

    QTemporaryDir folder;
};

} // namespace

TEST_F(Translations, TheFirstLanguageOfTheUserThatHasTextsIsTaken) {
    const struct {
        const char *languages, *taken;
    } cases[] = {
        {"de-DE de", "de"}, {"de-Latn-AT", "de"}, {"nl", "nl"}, {"pt-BR", "pt_BR"}, {"fr-FR fr nl de", "nl"},
        {"pt-PT", ""},      {"en-GB en de", ""},  {"C de", ""}, {"fr en de", ""},   {"", ""},
    };
    for (const auto& c : cases) {
        const QStringList languages = text(c.languages).split(u' ', Qt::SkipEmptyParts);
        EXPECT_EQ(installTranslation(languages, folder.path()), *c.taken ? fileOf(c.taken) : QString())
            << c.languages;
    }
}

TEST_F(Translations, CountsHaveTheFormsOfTheirLanguage) {
    const auto pictures = [](int count) {
        return countedText("ModernAlbum", "1 picture", "%n pictures", count).toStdString();
    };
    EXPECT_EQ(pictures(1) + ", " + pictures(3), "1 picture, 3 pictures");
    const NotedLanguage german("de");
    EXPECT_EQ(pictures(1) + ", " + pictures(3), "1 Bild, 3 Bilder");
}
