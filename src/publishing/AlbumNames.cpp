// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumNames.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QFile>

namespace tarsel {

namespace {

constexpr char pageExtension[] = ".html";
constexpr qsizetype longestName = 255; // bytes that a file system allows

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(AlbumNames)
};

/// A backslash separates folders in the references of the pages, as browsers read it.
QString fault(const QString& title, const QStringList& names) {
    for (const QChar character : {QChar(u'/'), QChar(u'\\'), QChar(u'\0')})
        if (title.contains(character))
            return Texts::tr("it contains %1")
                .arg(character.isNull() ? QStringLiteral("NUL") : QLatin1Char('"') + character + u'"');
    for (const QString& name : names)
        if (QFile::encodeName(name).size() > longestName)
            return Texts::tr("\"%1\" is too long for a file name").arg(name);
    return {};
}

} // namespace

AlbumNames::AlbumNames(const QString& folder, const QString& title) :
    m_folder(folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/')), m_title(title),
    m_hasFolder(!folder.trimmed().isEmpty()) {}

QString AlbumNames::directory() const {
    return QStringLiteral("MyImages_") + m_title;
}

QString AlbumNames::page(const QString& row) const {
    return m_title + QLatin1Char('_') + row + QLatin1String(pageExtension);
}

bool AlbumNames::isPage(const QString& fileName) const {
    return !fileName.contains(QLatin1Char('/')) && fileName.startsWith(m_title + QLatin1Char('_')) &&
           fileName.endsWith(QLatin1String(pageExtension));
}

QString AlbumNames::picture(const QString& row) {
    return row + QStringLiteral(".jpg");
}

QString AlbumNames::thumbnail(const QString& row) {
    return row + QStringLiteral("_thumb.jpg");
}

QString AlbumNames::index() const {
    return m_folder + QStringLiteral("index.htm");
}

QString AlbumNames::directoryPath() const {
    return m_folder + directory();
}

QString AlbumNames::pagePath(const QString& row) const {
    return m_folder + page(row);
}

QString AlbumNames::inDirectory(const QString& fileName) const {
    return directoryPath() + QLatin1Char('/') + fileName;
}

void AlbumNames::requireUsable(const ListView& rows) const {
    if (!m_hasFolder)
        fail(ErrorNumber::PathNotFound, Texts::tr("the album has no folder"));
    if (const QString found = fault(m_title, {directory()}); !found.isEmpty())
        fail(ErrorNumber::InvalidCall,
             Texts::tr("the album title \"%1\" can't be part of a file name: %2").arg(m_title, found));
    for (int i = 0; i < rows.count(); ++i) {
        const QString name = rows.row(i).text;
        const QString found = fault(name, {page(name), picture(name), thumbnail(name)});
        if (!found.isEmpty())
            fail(ErrorNumber::InvalidCall, Texts::tr("row %1, \"%2\", can't be part of a file name: %3")
                                               .arg(QString::number(i + 1), name, found));
    }
}

} // namespace tarsel
