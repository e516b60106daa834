// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ExifText.h"

#include "base/CodePage.h"
#include "base/Conversions.h"
#include "bytes/ByteReader.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QStringEncoder>
#include <QStringList>
#include <cmath>
#include <limits>

namespace tarsel {

namespace {

constexpr quint16 copyrightTag = 0x8298;
constexpr qsizetype characterSetSize = 8;
constexpr char asciiMark[] = "ASCII\0\0";
constexpr char unicodeMark[] = "UNICODE";
constexpr char jisMark[] = "JIS\0\0\0\0";

QByteArray mark(const char (&name)[characterSetSize]) {
    return QByteArray(name, characterSetSize);
}

// --- bytes to text -----------------------------------------------------------------------------------------

QByteArray untilNul(QByteArrayView bytes) {
    const qsizetype end = bytes.indexOf('\0');
    return bytes.first(end < 0 ? bytes.size() : end).toByteArray();
}

/// The holders of a copyright: photographer and editor, each ended by a zero; a line each.
QString copyrightText(QByteArrayView bytes) {
    QStringList holders;
    for (const QByteArray& part : bytes.toByteArray().split('\0'))
        if (const QString holder = codePage::decode(part).trimmed(); !holder.isEmpty())
            holders << holder;
    return holders.join(u'\n');
}

QString hexText(QByteArrayView bytes) {
    return QString::fromLatin1(bytes.toByteArray().toHex(',').toUpper());
}

QString utf16Text(QByteArrayView bytes, ByteOrder order) {
    QStringDecoder decode(order == ByteOrder::Big ? QStringDecoder::Utf16BE : QStringDecoder::Utf16LE);
    const QString text = decode(bytes.first(bytes.size() / 2 * 2));
    return text.left(text.indexOf(QChar(u'\0')) < 0 ? text.size() : text.indexOf(QChar(u'\0')));
}

/// Writers disagree on the byte order of the UNICODE set. Latin text shows it: its zero bytes are at even
/// positions in big-endian text.
ByteOrder orderOfText(QByteArrayView bytes, ByteOrder otherwise) {
    if (bytes.startsWith("\xFE\xFF"))
        return ByteOrder::Big;
    if (bytes.startsWith("\xFF\xFE"))
        return ByteOrder::Little;
    qsizetype even = 0;
    qsizetype odd = 0;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) {
        even += bytes[i] == '\0';
        odd += bytes[i + 1] == '\0';
    }
    if (even == odd)
        return otherwise;
    return even > odd ? ByteOrder::Big : ByteOrder::Little;
}

QString commentText(QByteArrayView bytes, ByteOrder order) {
    if (bytes.size() < characterSetSize)
        return codePage::decode(untilNul(bytes));
    const QByteArrayView set = bytes.first(characterSetSize);
    const QByteArrayView rest = bytes.sliced(characterSetSize);
    if (set == mark(unicodeMark))
        return utf16Text(rest, orderOfText(rest, order));
    if (set == mark(jisMark)) {
        QStringDecoder decode("ISO-2022-JP");
        if (decode.isValid())
            return decode(untilNul(rest));
    }
    const bool isMarked = set == mark(asciiMark) || set == QByteArray(characterSetSize, '\0');
    return codePage::decode(untilNul(isMarked ? rest : bytes));
}

template <class Number>
Number numberAt(QByteArrayView bytes, qsizetype index, ByteOrder order) {
    return ByteReader(bytes, order).number<Number>(index * qsizetype(sizeof(Number))).value_or(0);
}

template <class Number>
QString rationalAt(QByteArrayView bytes, qsizetype index, ByteOrder order) {
    return QStringLiteral("%1/%2")
        .arg(numberAt<Number>(bytes, index * 2, order))
        .arg(numberAt<Number>(bytes, index * 2 + 1, order));
}

QString elementText(ExifType type, QByteArrayView bytes, qsizetype index, ByteOrder order) {
    switch (type) {
    case ExifType::Byte:
        return QString::number(numberAt<quint8>(bytes, index, order));
    case ExifType::SignedByte:
        return QString::number(numberAt<qint8>(bytes, index, order));
    case ExifType::Short:
        return QString::number(numberAt<quint16>(bytes, index, order));
    case ExifType::SignedShort:
        return QString::number(numberAt<qint16>(bytes, index, order));
    case ExifType::Long:
    case ExifType::Directory:
        return QString::number(numberAt<quint32>(bytes, index, order));
    case ExifType::SignedLong:
        return QString::number(numberAt<qint32>(bytes, index, order));
    case ExifType::Rational:
        return rationalAt<quint32>(bytes, index, order);
    case ExifType::SignedRational:
        return rationalAt<qint32>(bytes, index, order);
    case ExifType::Float:
        return numberText(numberAt<float>(bytes, index, order));
    case ExifType::Double:
        return numberText(numberAt<double>(bytes, index, order));
    case ExifType::Ascii:
    case ExifType::Undefined:
        break;
    }
    return {};
}

// --- text to bytes -----------------------------------------------------------------------------------------

template <class Number>
bool appendInteger(QByteArray& bytes, const QString& word, ByteOrder order) {
    bool isNumber = false;
    const qint64 number = word.toLongLong(&isNumber);
    if (!isNumber || number < std::numeric_limits<Number>::min() ||
        number > std::numeric_limits<Number>::max())
        return false;
    appendNumber(bytes, Number(number), order);
    return true;
}

template <class Number>
bool appendPair(QByteArray& bytes, const QString& numerator, const QString& denominator, ByteOrder order) {
    return appendInteger<Number>(bytes, numerator, order) && appendInteger<Number>(bytes, denominator, order);
}

/// A decimal of up to six places becomes a fraction over a power of ten.
template <class Number>
bool appendRational(QByteArray& bytes, const QString& word, ByteOrder order) {
    if (const qsizetype slash = word.indexOf(u'/'); slash >= 0)
        return appendPair<Number>(bytes, word.left(slash), word.mid(slash + 1), order);
    static const QRegularExpression decimal(QStringLiteral("^([+-]?\\d+)(?:\\.(\\d{1,6}))?$"));
    const QRegularExpressionMatch match = decimal.match(word);
    if (!match.hasMatch())
        return false;
    const QString places = match.captured(2);
    return appendPair<Number>(bytes, match.captured(1) + places, u'1' + QString(places.size(), u'0'), order);
}

template <class Number>
bool appendReal(QByteArray& bytes, const QString& word, ByteOrder order) {
    bool isNumber = false;
    const auto number = Number(word.toDouble(&isNumber));
    if (!isNumber || !std::isfinite(number))
        return false;
    appendNumber(bytes, number, order);
    return true;
}

bool appendElement(ExifType type, QByteArray& bytes, const QString& word, ByteOrder order) {
    switch (type) {
    case ExifType::Byte:
        return appendInteger<quint8>(bytes, word, order);
    case ExifType::SignedByte:
        return appendInteger<qint8>(bytes, word, order);
    case ExifType::Short:
        return appendInteger<quint16>(bytes, word, order);
    case ExifType::SignedShort:
        return appendInteger<qint16>(bytes, word, order);
    case ExifType::Long:
        return appendInteger<quint32>(bytes, word, order);
    case ExifType::SignedLong:
        return appendInteger<qint32>(bytes, word, order);
    case ExifType::Rational:
        return appendRational<quint32>(bytes, word, order);
    case ExifType::SignedRational:
        return appendRational<qint32>(bytes, word, order);
    case ExifType::Float:
        return appendReal<float>(bytes, word, order);
    case ExifType::Double:
        return appendReal<double>(bytes, word, order);
    case ExifType::Ascii:
    case ExifType::Undefined:
    case ExifType::Directory:
        break;
    }
    return false;
}

std::optional<ExifValueBytes> numbersFromText(ExifType type, const QString& text, ByteOrder order) {
    const QStringList words = text.simplified().split(u' ', Qt::SkipEmptyParts);
    ExifValueBytes value{type, quint32(words.size()), {}};
    for (const QString& word : words)
        if (!appendElement(type, value.bytes, word, order))
            return std::nullopt;
    if (words.isEmpty())
        return std::nullopt;
    return value;
}

std::optional<ExifValueBytes> hexFromText(ExifType type, const QString& text) {
    static const QRegularExpression list(QStringLiteral("^[0-9A-Fa-f]{2}(,[0-9A-Fa-f]{2})*$"));
    const QString trimmed = text.trimmed();
    if (!list.match(trimmed).hasMatch())
        return std::nullopt;
    const QByteArray bytes = QByteArray::fromHex(trimmed.toLatin1());
    return ExifValueBytes{type, quint32(bytes.size()), bytes};
}

QByteArray commentBytes(const QString& text, ByteOrder order) {
    if (std::ranges::all_of(text, [](QChar letter) { return letter.unicode() < 0x80; }))
        return mark(asciiMark) + text.toLatin1();
    QStringEncoder encode(order == ByteOrder::Big ? QStringEncoder::Utf16BE : QStringEncoder::Utf16LE);
    return mark(unicodeMark) + QByteArray(encode(text));
}

QByteArray utf16Bytes(const QString& text) {
    QStringEncoder encode(QStringEncoder::Utf16LE);
    return QByteArray(encode(text)) + QByteArray(2, '\0');
}

std::optional<ExifValueBytes> textValue(ExifType type, const QByteArray& bytes) {
    return ExifValueBytes{type, quint32(bytes.size()), bytes};
}

} // namespace

QString exifText(const ExifBlock& block, const ExifEntry& entry) {
    const QByteArrayView bytes = block.value(entry);
    const ExifTag* tag = exifTagAt(entry.group, entry.tag);
    const ExifWording wording = tag ? tag->wording : ExifWording::Plain;
    if (wording == ExifWording::Comment)
        return commentText(bytes, block.order());
    if (wording == ExifWording::Utf16)
        return utf16Text(bytes, ByteOrder::Little);
    if (entry.type == ExifType::Ascii && entry.tag == copyrightTag)
        return copyrightText(bytes);
    if (entry.type == ExifType::Ascii)
        return codePage::decode(untilNul(bytes));
    if (entry.type == ExifType::Undefined || (entry.type == ExifType::Byte && entry.count > 1))
        return hexText(bytes);
    QStringList words;
    for (qsizetype i = 0; i < qsizetype(entry.count); ++i)
        words.append(elementText(entry.type, bytes, i, block.order()));
    return words.join(u' ');
}

std::optional<ExifValueBytes> exifValueFromText(const ExifTag& tag, const QString& text, ByteOrder order) {
    if (tag.wording == ExifWording::Comment)
        return textValue(ExifType::Undefined, commentBytes(text, order));
    if (tag.wording == ExifWording::Utf16)
        return textValue(ExifType::Byte, utf16Bytes(text));
    if (tag.type == ExifType::Ascii && tag.tag == copyrightTag)
        return textValue(ExifType::Ascii, text.toUtf8().replace('\n', '\0') + '\0');
    if (tag.type == ExifType::Ascii)
        return textValue(ExifType::Ascii, text.toUtf8() + '\0');
    if (tag.type == ExifType::Undefined || (tag.type == ExifType::Byte && text.contains(u',')))
        return hexFromText(tag.type, text);
    return numbersFromText(tag.type, text, order);
}

} // namespace tarsel
