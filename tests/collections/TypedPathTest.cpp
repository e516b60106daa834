// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/TypedPath.h"
#include "collections/OfferedFiles.h"
#include "tests/support/MadePictures.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarsel::test {

TEST(TypedPath, IsAbsoluteRelativeOfTheHomeFolderOrAnUrlAndMayNameAFile) {
    const QTemporaryDir top;
    const QByteArray usualHome = qgetenv("HOME");
    qputenv("HOME", top.path().toLocal8Bit());
    QDir(top.path()).mkpath(QStringLiteral("a b"));
    writeBytes(top.filePath(QStringLiteral("a b/x.jpg")), "x");
    const auto placed = [&](QString text) { return text.replace(QLatin1String("TOP"), top.path()); };
    const std::vector<QStringList> cases{
        {u"TOP/a b"_qs, u"TOP/a b"_qs, u""_qs},
        {u"  TOP/a b/../a b/ "_qs, u"TOP/a b"_qs, u""_qs},
        {u"~"_qs, u"TOP"_qs, u""_qs},
        {u"~/a b/x.jpg"_qs, u"TOP/a b"_qs, u"TOP/a b/x.jpg"_qs},
        {u".."_qs, u"TOP"_qs, u""_qs},
        {u"x.jpg"_qs, u"TOP/a b"_qs, u"TOP/a b/x.jpg"_qs},
        {u"~x"_qs, u""_qs, u""_qs},
        {u"file://TOP/a%20b"_qs, u"TOP/a b"_qs, u""_qs},
        {u"TOP/missing"_qs, u""_qs, u""_qs},
        {u" "_qs, u""_qs, u""_qs},
    };
    for (const QStringList& each : cases) {
        const auto [place, refusal] = typedPath(placed(each[0]), placed(QStringLiteral("TOP/a b")));
        EXPECT_EQ((QStringList{place.folder, place.file}), (QStringList{placed(each[1]), placed(each[2])}));
        EXPECT_NE(refusal.isEmpty(), place.folder.isEmpty()) << each[0].toStdString();
    }
    qputenv("HOME", usualHome);
}

TEST(TypedPath, AnArgumentIsALocalFileUnlessItIsAnAddress) {
    const std::pair<QString, QString> cases[] = {
        {u"x.jpg"_qs, u"/here/x.jpg"_qs},
        {u"../100%25 #1?.jpg"_qs, u"/100%25 #1?.jpg"_qs},
        {u"a:b.jpg"_qs, u"/here/a:b.jpg"_qs},
        {u"/there/./x.jpg"_qs, u"/there/x.jpg"_qs},
        {u"file:///a%20b/x.jpg"_qs, u"/a b/x.jpg"_qs},
        {u"http://host/x.jpg"_qs, u""_qs},
    };
    for (const auto& [argument, path] : cases)
        EXPECT_EQ(localPath(urlOfArgument(argument, QStringLiteral("/here"))), path)
            << argument.toStdString();
}

} // namespace tarsel::test
