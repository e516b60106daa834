// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/SavedRows.h"

#include "base/IgnoringErrors.h"
#include "base/Locale.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "codecs/MetadataWriter.h"
#include "codecs/PictureFile.h"
#include "collections/clsFileInfo.h"
#include "imaging/Upright.h"
#include "metadata/modMetadata.h"
#include "output/Naming.h"
#include "output/RowSources.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tarsel {

namespace {

bool isImportable(quint8 wanted, const QString& path) {
    return wanted == 1 && !path.trimmed().isEmpty() && clsFileInfo::CheckIfFileExists(path);
}

QString replacesUnknown() {
    return QCoreApplication::translate("SavedRows", "replaces a file that may be of a row outside the slice");
}

/// A JPEG file with other metadata; nothing for another file, for one that shows its picture turned when it
/// is wanted upright, and where the metadata can't be changed.
std::optional<QByteArray> jpegCopy(const QString& source, const EmbeddedMetadata& metadata, bool upright) {
    std::optional<QByteArray> bytes;
    ignoringErrors([&] {
        const PictureFile file(source);
        if (file.usualExtension() == outputExtension() && !(upright && fileOrientation(file) != 1))
            bytes = bytesWithMetadata(source, 1, metadata);
    });
    return bytes;
}

} // namespace

std::function<bool()> SavedRows::consume(const ListRow& row, ImageBox& box, RowResult& result) {
    const OutputName target = nameOf(row, box, result);
    result.target = target.path();
    if (const QString fault = nameFault(target); !fault.isEmpty())
        fail(ErrorNumber::PathNotFound, fault);
    if (m_settings.Overwrite != 1 && QFileInfo::exists(result.target)) {
        result.skip(SkipReason::Exists);
        return {};
    }
    if (!box.LoadDamage().isEmpty() || replacesItsPages(row.tag, result.target))
        m_sources.noteReadInPart(result.row);
    importMetadata(box, result);
    setSaveOptions(box);
    if (!mayWrite(result))
        return {};
    if (m_run.dryRun) {
        noteWritten(result);
        result.skip(SkipReason::DryRun);
        return {};
    }
    m_sources.keepReadable(result.row, result.target);
    return [this, &box, &result, source = readablePath(row.tag)] {
        const std::optional<QByteArray> bytes = fileOf(box, source, result);
        return bytes && write(*bytes, result);
    };
}

/// Whether the picture is as in its source, and wanted so. A copy also has segments that no one looks into.
bool SavedRows::mayBeCopied(const ImageBox& box) const {
    return !m_changesPictures && m_settings.JpegDepth == 0 && m_settings.StripPrivate == 0 &&
           box.LoadDamage().isEmpty();
}

/// Nothing, and the row is skipped, when no file keeps to the budget.
std::optional<QByteArray> SavedRows::fileOf(const ImageBox& box, const QString& source,
                                            RowResult& result) const {
    if (m_run.budget.bytes == 0)
        return box.encoded(outputExtension());
    if (mayBeCopied(box)) {
        const std::optional<QByteArray> copy =
            jpegCopy(source, box.metadata().blocks(), m_settings.UprightByExif == 1);
        if (copy && copy->size() <= m_run.budget.bytes)
            return copy;
    }
    try {
        return jpegWithin(m_run.budget, box.picture(), box.saveSettings(), box.metadata().blocks()).bytes;
    } catch (const TrappedError& error) {
        if (error.number != ErrorNumber::InvalidCall)
            throw;
        result.skip(SkipReason::TooLarge, error.description);
        return std::nullopt;
    }
}

OutputName SavedRows::nameOf(const ListRow& row, const ImageBox& box, RowResult& result) const {
    return outputName(m_settings, {result.row, row.text, sourceFolder(row, m_run.pagesToDocumentFolder)},
                      [&](const QString& token) { return tokenText(token, row, box, result); });
}

/// A part of the name that can't be found out is left out.
QString SavedRows::tokenText(const QString& token, const ListRow& row, const ImageBox& box,
                             RowResult& result) const {
    QString fault;
    QString text = fncRetrieveNamingString(box, token, readablePath(row.tag), outputExtension(), &fault);
    if (!fault.isEmpty())
        result.remark(QCoreApplication::translate("SavedRows", "the name lacks %1: %2").arg(token, fault));
    return text;
}

void SavedRows::importMetadata(ImageBox& box, RowResult& result) const {
    if (const QString& file = m_settings.ImportIPTCFile; isImportable(m_settings.ImportIPTC, file)) {
        if (modMetadata::HasIptcFields(file))
            box.IptcLoadFromFile(file);
        else
            result.notes << modMetadata::remarkOnEmptyFfo(file);
    }
    if (isImportable(m_settings.ImportEXIF, m_settings.ImportEXIFFile))
        modMetadata::ApplyXiffFile(m_settings.ImportEXIFFile, box, service<Locale>().dateForms());
    result.notes << modMetadata::remarksOn(box.metadata());
    box.ExifSet(QStringLiteral("Software"), modMetadata::ProductTitle);
    if (m_settings.StripPrivate == 1)
        modMetadata::RemovePrivateMetadata(box);
}

void SavedRows::setSaveOptions(ImageBox& box) const {
    box.JpegQuality = m_settings.JpegQuality;
    box.JpegEncoding = m_settings.JpegProgressive == 1;
    box.ColorFormat = m_settings.JpegDepth != 0 ? 2 : 0;
}

bool SavedRows::mayWrite(RowResult& result) const {
    const SourceGuard::Verdict verdict = m_sources.verdictOn(result.row, result.target);
    if (verdict.isFailure) { // the rest of the run is not concerned
        result.remarks.prepend(verdict.refusal);
        return false;
    }
    if (!verdict.refusal.isEmpty()) {
        result.skip(SkipReason::Refused, verdict.refusal);
        return false;
    }
    if (!verdict.remark.isEmpty())
        result.remark(verdict.remark);
    return m_settings.Overwrite != 1 || heedsRowsOutside(result);
}

/// Of rows with one name the last one stays, as in one run. An earlier one makes the file as long as there is
/// none: the later one may fail.
bool SavedRows::heedsRowsOutside(RowResult& result) const {
    const int outside = m_outside.rowOf(result.target);
    if (outside > result.row) {
        const QString fact =
            QCoreApplication::translate("SavedRows", "the file of row %1 has the same name").arg(outside);
        if (QFileInfo::exists(result.target)) {
            result.skip(SkipReason::Refused, fact);
            return false;
        }
        result.remark(fact);
    } else if (outside != 0) {
        result.remark(
            QCoreApplication::translate("SavedRows", "takes the place of the file of row %1").arg(outside));
    } else if (!m_outside.areKnown() && QFileInfo::exists(result.target)) {
        result.remark(replacesUnknown());
    }
    return true;
}

/// False for a file that turned up under a name that must be new. Where it may be of a row outside, that is
/// said also when it turned up meanwhile.
bool SavedRows::write(const QByteArray& bytes, RowResult& result) const {
    if (m_settings.Overwrite != 1 || m_outside.rowOf(result.target) > result.row)
        return writeNewFileSafely(result.target, bytes);
    if (!m_outside.areKnown() && !result.remarks.contains(replacesUnknown())) {
        if (writeNewFileSafely(result.target, bytes))
            return true;
        result.remark(replacesUnknown());
    }
    writeFileSafely(result.target, bytes);
    return true;
}

void SavedRows::noteWritten(const RowResult& result) {
    m_sources.noteWritten(result.row, result.target);
}

void SavedRows::noteDone(RowResult& result) {
    if (const QString kept = m_sources.noteDone(result.row); !kept.isEmpty())
        result.remark(kept);
}

} // namespace tarsel
