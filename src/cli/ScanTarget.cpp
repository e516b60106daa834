// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ScanTarget.h"

#include "base/FailureOf.h"
#include "base/FileNames.h"
#include "cli/Arguments.h"
#include "cli/FilePaths.h"
#include "cli/OldFiles.h"
#include "imaging/SaveFormats.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace tarsel::cli {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ScanTarget)
};

constexpr const char* nameInFolder = "Scan"; ///< of pages that get no name of their own

const SaveFormat& formatCalled(const QString& name) {
    const SaveFormat* format = findSaveFormat(name);
    if (!format)
        throw UsageError{Texts::tr("\"%1\" is not a format that can be written").arg(name)};
    return *format;
}

} // namespace

ScanTarget::ScanTarget(const Arguments& arguments) :
    m_oldFile(arguments.has("overwrite") ? OldFile::Replace : OldFile::Keep),
    m_isMulti(arguments.has("multi")) {
    requireOption(arguments, "out");
    const QString word = arguments.value("out");
    const QString path = filePath(word);
    const QFileInfo out(path);
    const bool isFolder = out.isDir() || word.endsWith(u'/');
    if (!isFolder && out.suffix().isEmpty())
        throw UsageError{Texts::tr("\"%1\" needs an extension, such as .tif").arg(word)};
    const QString format = arguments.value("format", isFolder ? QStringLiteral("tif") : out.suffix());
    const SaveFormat& known = formatCalled(format);
    if (!isFolder && &formatCalled(out.suffix()) != &known)
        throw UsageError{Texts::tr("--format %1 and the extension of \"%2\" differ").arg(format, word)};
    const QString extension = QLatin1String(known.extension);
    if (m_isMulti && extension != QLatin1String("tif") && extension != QLatin1String("pdf"))
        throw UsageError{Texts::tr("--multi takes TIF or PDF, not \"%1\"").arg(format)};
    m_suffix = u'.' + (isFolder ? extension : out.suffix());
    m_start = isFolder ? QDir(path).filePath(QLatin1String(nameInFolder))
                       : QDir(out.path()).filePath(out.completeBaseName());
    m_named = isFolder ? QString() : path;
}

void ScanTarget::begin(bool isOnePage) {
    const QFileInfo start(m_start);
    if (!QFileInfo(start.path()).isDir())
        fail(ErrorNumber::PathNotFound, start.path());
    m_isNumbered = !m_isMulti && (!isOnePage || m_named.isEmpty());
    if (m_isMulti)
        m_document.emplace(pathOf(1), m_oldFile);
    if (!m_isNumbered)
        return requireReplaceable(pathOf(1));
    const QRegularExpression numbered(
        QRegularExpression::anchoredPattern(QRegularExpression::escape(start.fileName()) +
                                            QStringLiteral("\\d+") + QRegularExpression::escape(m_suffix)));
    for (const QString& name : QDir(start.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System))
        if (numbered.match(name).hasMatch())
            requireReplaceable(QDir(start.path()).filePath(name));
}

void ScanTarget::requireReplaceable(const QString& path) const {
    if (m_oldFile == OldFile::Keep)
        requireFree(path);
}

QString ScanTarget::pathOf(int number) const {
    if (m_isNumbered)
        return m_start + QString::number(number) + m_suffix;
    return m_named.isEmpty() ? m_start + m_suffix : m_named;
}

AcquiredFile ScanTarget::save(const ScannedPage& page) {
    AcquiredFile file{pathOf(page.number), {}};
    file.error = failureOf([&] {
        const bool isSaved = m_document ? m_document->add(page) : saveScannedPage(page, file.path, m_oldFile);
        if (!isSaved)
            failForOldFile(file.path);
    });
    return file;
}

} // namespace tarsel::cli
