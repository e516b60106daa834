// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/IimData.h"

#include "base/CodePage.h"
#include "base/TrappedError.h"
#include "bytes/Numbers.h"

#include <QCoreApplication>
#include <QStringDecoder>
#include <algorithm>
#include <tuple>

namespace tarsel {

namespace {

constexpr char dataSetMark = 0x1C;
constexpr qsizetype headSize = 5;
constexpr qsizetype largestPlainSize = 0x7FFF;

constexpr quint8 envelopeRecord = 1;
constexpr quint8 characterSetNumber = 90;
constexpr quint8 applicationRecord = 2;
constexpr quint8 versionNumber = 0;
constexpr char utf8Escape[] = "\x1B%G";

/// Sizes of a dataset's head and data; a size of -1 when they can't be read.
struct Extent {
    qsizetype head = 0;
    qint64 data = -1;
};

Extent extentAt(QByteArrayView rest) {
    const auto size = loadNumber<quint16>(rest.data() + 3, ByteOrder::Big);
    if (size <= largestPlainSize)
        return {headSize, size};
    const qsizetype sizeBytes = size & largestPlainSize;
    if (sizeBytes == 0 || sizeBytes > 4 || rest.size() < headSize + sizeBytes)
        return {};
    const QByteArray longSize = rest.sliced(headSize, sizeBytes).toByteArray().rightJustified(4, '\0');
    return {headSize + sizeBytes, loadNumber<quint32>(longSize.constData(), ByteOrder::Big)};
}

bool isAscii(const QByteArray& data) {
    return std::ranges::all_of(data, [](char byte) { return quint8(byte) < 0x80; });
}

bool isUtf8(const QByteArray& data) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    [[maybe_unused]] const QString text = decoder(data);
    return !decoder.hasError();
}

/// A dataset in an eight-bit page that isn't UTF-8; previews and other binary data are left out.
bool isOldText(const QByteArray& data) {
    return !isUtf8(data) && std::ranges::none_of(data, [](char byte) {
        return quint8(byte) < 0x20 && byte != '\t' && byte != '\r' && byte != '\n';
    });
}

QByteArray plainDataSet(quint8 record, quint8 number, const QByteArray& data) {
    QByteArray bytes;
    for (const quint8 byte : {quint8(dataSetMark), record, number})
        bytes.append(char(byte));
    appendNumber(bytes, quint16(data.size()), ByteOrder::Big);
    return bytes + data;
}

} // namespace

IimData::IimData(const QByteArray& bytes) {
    qsizetype position = 0;
    while (readDataSet(bytes, position)) {
    }
    const QByteArray rest = bytes.mid(position);
    if (std::ranges::any_of(rest, [](char byte) { return byte != '\0'; }))
        m_tail = rest;
}

bool IimData::readDataSet(const QByteArray& bytes, qsizetype& position) {
    const QByteArrayView rest = QByteArrayView(bytes).sliced(position);
    if (rest.size() < headSize || rest[0] != dataSetMark)
        return false;
    const Extent extent = extentAt(rest);
    if (extent.data < 0 || extent.data > rest.size() - extent.head)
        return false;
    const qsizetype size = extent.head + qsizetype(extent.data);
    m_dataSets.push_back({quint8(rest[1]), quint8(rest[2]),
                          rest.sliced(extent.head, qsizetype(extent.data)).toByteArray(),
                          rest.first(size).toByteArray()});
    position += size;
    return true;
}

bool IimData::isEmpty() const {
    return m_tail.isEmpty() && std::ranges::all_of(m_dataSets, [](const DataSet& set) {
               return (set.record == envelopeRecord && set.number == characterSetNumber) ||
                      (set.record == applicationRecord && set.number == versionNumber);
           });
}

bool IimData::hasFields() const {
    return std::ranges::any_of(m_dataSets, [](const DataSet& set) {
        return set.record == applicationRecord && set.number != versionNumber;
    });
}

QByteArray IimData::bytes() const {
    QByteArray bytes;
    if (isEmpty())
        return bytes;
    for (const DataSet& set : m_dataSets)
        bytes += set.raw.isEmpty() ? plainDataSet(set.record, set.number, set.data) : set.raw;
    return bytes + m_tail;
}

const IimData::DataSet* IimData::find(quint8 record, quint8 number) const {
    const auto found = std::ranges::find_if(
        m_dataSets, [&](const DataSet& set) { return set.record == record && set.number == number; });
    return found == m_dataSets.end() ? nullptr : &*found;
}

// --- texts -------------------------------------------------------------------------------------------------

QStringList IimData::texts(int number) const {
    QStringList texts;
    for (const DataSet& set : m_dataSets)
        if (set.record == applicationRecord && set.number == number)
            texts.append(decode(set.data));
    return texts;
}

QString IimData::text(int number) const {
    const DataSet* set = find(applicationRecord, quint8(number));
    return set ? decode(set->data) : QString();
}

void IimData::setText(int number, const QString& text) {
    QStringList all = texts(number);
    if (text.isEmpty())
        all.clear();
    else if (all.isEmpty())
        all.append(text);
    else
        all.first() = text;
    setTexts(number, all);
}

void IimData::setTexts(int number, const QStringList& newTexts) {
    if (texts(number) == newTexts)
        return;
    const std::vector<QByteArray> encoded = encodeAll(number, newTexts);
    std::erase_if(m_dataSets, [&](const DataSet& set) {
        return set.record == applicationRecord && set.number == number;
    });
    if (!newTexts.isEmpty() && !find(applicationRecord, versionNumber))
        m_dataSets.insert(placeFor(applicationRecord, versionNumber),
                          {applicationRecord, versionNumber, QByteArray("\0\x04", 2), {}});
    for (const QByteArray& data : encoded)
        m_dataSets.insert(placeFor(applicationRecord, quint8(number)),
                          {applicationRecord, quint8(number), data, {}});
}

/// Before anything is changed: a text that is too long changes nothing.
std::vector<QByteArray> IimData::encodeAll(int number, const QStringList& texts) {
    for (const QString& text : texts)
        if (text.toUtf8().size() > largestPlainSize)
            fail(ErrorNumber::Overflow,
                 QCoreApplication::translate("IimData", "IPTC dataset 2:%1 holds at most %2 bytes")
                     .arg(number)
                     .arg(largestPlainSize));
    std::vector<QByteArray> encoded;
    // Twice, as a later text may turn the block into UTF-8.
    for (int pass = 0; pass < 2; ++pass) {
        encoded.clear();
        for (const QString& text : texts)
            encoded.push_back(encode(text));
    }
    return encoded;
}

/// After the last dataset that comes before or has the same number.
std::vector<IimData::DataSet>::iterator IimData::placeFor(quint8 record, quint8 number) {
    const auto notBehind = [&](const DataSet& set) {
        return std::tie(set.record, set.number) <= std::tie(record, number);
    };
    const auto last = std::find_if(m_dataSets.rbegin(), m_dataSets.rend(), notBehind);
    return last.base();
}

QString IimData::decode(const QByteArray& data) const {
    QByteArray text = data;
    while (text.endsWith('\0'))
        text.chop(1);
    return isMarkedUtf8() && isUtf8(text) ? QString::fromUtf8(text) : codePage::decode(text);
}

QByteArray IimData::encode(const QString& text) {
    QByteArray utf8 = text.toUtf8();
    if (isMarkedUtf8() || isAscii(utf8))
        return utf8;
    const bool hasOldTexts = std::ranges::any_of(m_dataSets, [](const DataSet& set) {
        return set.record == applicationRecord && isOldText(set.data);
    });
    QByteArray inPage = codePage::encode(text);
    if (hasOldTexts && !isUtf8(inPage))
        return inPage;
    markUtf8();
    return utf8;
}

// --- character set -----------------------------------------------------------------------------------------

bool IimData::isMarkedUtf8() const {
    const DataSet* set = find(envelopeRecord, characterSetNumber);
    return set && set->data == utf8Escape;
}

void IimData::markUtf8() {
    for (DataSet& set : m_dataSets) {
        if (set.record != applicationRecord || !isOldText(set.data))
            continue;
        set.data = decode(set.data).toUtf8();
        set.raw.clear();
    }
    std::erase_if(m_dataSets, [](const DataSet& set) {
        return set.record == envelopeRecord && set.number == characterSetNumber;
    });
    m_dataSets.insert(placeFor(envelopeRecord, characterSetNumber),
                      {envelopeRecord, characterSetNumber, QByteArray(utf8Escape), {}});
}

} // namespace tarsel
