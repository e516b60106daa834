// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/clsFileInfo.h"

#include "base/Conversions.h"
#include "base/Locale.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QLocale>
#include <QMimeDatabase>

#include <limits>
#include <mutex>

namespace tarsel {

namespace {

QString dateText(const QDateTime& date, const DateForms& forms) {
    return date.toString(forms.shortDate) + QLatin1Char(' ') + date.toString(forms.longTime);
}

/// What the system calls files of that extension. Asked once for each extension: folders are long.
QString typeName(const QString& extension) {
    static std::mutex mutex;
    static QHash<QString, QString> known;
    const std::lock_guard lock(mutex);
    const auto found = known.constFind(extension);
    if (found != known.constEnd())
        return *found;
    const QMimeType type = QMimeDatabase().mimeTypeForFile(QStringLiteral("name.") + extension.toLower(),
                                                           QMimeDatabase::MatchExtension);
    QString name = type.isDefault() || type.comment().isEmpty()
                       ? clsFileInfo::tr("%1 File").arg(extension.toUpper())
                       : type.comment();
    known.insert(extension, name);
    return name;
}

} // namespace

void clsFileInfo::setFilePath(const QString& path) {
    if (!CheckIfFileExists(path))
        return;
    ClearFileInfo();
    m_path = path;
    RefreshInfo();
}

void clsFileInfo::ClearFileInfo() {
    const int flag = m_sizeFormatFlag;
    std::optional<DateForms> forms = std::move(m_dateForms);
    *this = {};
    m_sizeFormatFlag = flag;
    m_dateForms = std::move(forms);
}

void clsFileInfo::RefreshInfo() {
    const QFileInfo file(m_path);
    if (m_path.isEmpty() || !file.exists())
        return;
    m_name = StripFileFromPath(m_path);
    m_location = modFileSystem::GetFolderPart(m_path);
    m_extension = StripFileExtention(m_name);
    m_type = typeName(m_extension);
    m_size = qint32(std::min<qint64>(file.size(), std::numeric_limits<qint32>::max()));
    m_sizeText = sizeText(m_size, m_sizeFormatFlag == 1);
    m_englishSizeText = englishSizeText(m_size, m_sizeFormatFlag == 1);
    m_modifiedAt = file.lastModified();
    // Not every file system keeps the time of birth.
    m_createdAt = file.birthTime().isValid() ? file.birthTime() : m_modifiedAt;
    m_accessedAt = file.lastRead();
    const DateForms forms = m_dateForms ? *m_dateForms : service<Locale>().dateForms();
    m_created = dateText(m_createdAt, forms);
    m_modified = dateText(m_modifiedAt, forms);
    m_accessed = dateText(m_accessedAt, forms);
    m_hidden = file.isHidden();
    m_readOnly = !file.isWritable();
}

QString clsFileInfo::fSizeFormated(int flag) {
    m_sizeFormatFlag = flag;
    return m_sizeText;
}

bool clsFileInfo::CheckIfFileExists(const QString& path) {
    // A pipe would block the open.
    if (!QFileInfo(path).isFile())
        return false;
    return QFile(path).open(QIODevice::ReadOnly);
}

QString clsFileInfo::StripFileFromPath(const QString& path) {
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

QString clsFileInfo::StripFileExtention(const QString& name) {
    const qsizetype point = name.lastIndexOf(QLatin1Char('.'));
    return point < 0 ? QString() : name.mid(point + 1);
}

namespace {

constexpr const char* noSize = QT_TRANSLATE_NOOP("clsFileInfo", "0.0KB (0 bytes)");
constexpr const char* bytesOnly = QT_TRANSLATE_NOOP("clsFileInfo", "%1 bytes");

QString grouped(qint32 number) {
    return formatNumber(number, QStringLiteral("#,##0"));
}

/// With the points and commas of the user's locale in place of the English ones.
QString inUsersNumbers(const QString& number) {
    const QLocale locale;
    QString shown;
    for (const QChar character : number)
        shown += character == u'.'   ? locale.decimalPoint()
                 : character == u',' ? locale.groupSeparator()
                                     : QString(character);
    return shown;
}

/// For sizes of 1024 bytes and more.
QString sizeInUnits(qint32 size) {
    struct Step {
        qint32 belowKilobytes;
        double unit; ///< bytes
        const char* pattern;
        const char* name;
    };
    constexpr double kilobyte = 1024, megabyte = 1024 * kilobyte, gigabyte = 1024 * megabyte;
    static constexpr Step steps[] = {
        {10, kilobyte, "0.00", "KB"},         {1'000, kilobyte, "0.0", "KB"},
        {10'000, megabyte, "0.00", "MB"},     {1'000'000, megabyte, "0.0", "MB"},
        {10'000'000, gigabyte, "0.00", "GB"},
    };
    const Step* step = steps;
    while (size / 1024 >= step->belowKilobytes)
        ++step;
    return formatNumber(size / step->unit, QString::fromLatin1(step->pattern)) +
           QString::fromLatin1(step->name);
}

} // namespace

QString clsFileInfo::sizeText(qint32 size, bool longText) {
    if (size == -1)
        return tr(noSize);
    const QString bytes = tr(bytesOnly).arg(inUsersNumbers(grouped(size)));
    if (size < 1024)
        return bytes;
    const QString units = inUsersNumbers(sizeInUnits(size));
    return longText ? tr("%1 (%2)", "size, bytes").arg(units, bytes) : units;
}

QString clsFileInfo::englishSizeText(qint32 size, bool longText) {
    if (size == -1)
        return QString::fromLatin1(noSize);
    const QString bytes = QString::fromLatin1(bytesOnly).arg(grouped(size));
    if (size < 1024)
        return bytes;
    return longText ? QStringLiteral("%1 (%2)").arg(sizeInUnits(size), bytes) : sizeInUnits(size);
}

clsFileInfo& FileInfo() {
    static clsFileInfo shared;
    return shared;
}

} // namespace tarsel
