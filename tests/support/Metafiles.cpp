// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Metafiles.h"

#include <QtEndian>
#include <vector>

namespace tarsel::test {

namespace {

template <class Number, class Values>
QByteArray numbers(const Values& values) {
    QByteArray bytes;
    for (const auto value : values) {
        char raw[sizeof(Number)];
        qToLittleEndian(Number(value), raw);
        bytes.append(raw, sizeof raw);
    }
    return bytes;
}

} // namespace

QByteArray wmfRecord(quint16 function, std::initializer_list<int> parameters) {
    return numbers<quint32>(std::vector{3 + parameters.size()}) + numbers<quint16>(std::vector{function}) +
           numbers<quint16>(parameters);
}

QByteArray wmf(const QByteArray& records, bool isPlaceable) {
    const auto mark = numbers<quint16>(std::vector{0xCDD7, 0x9AC6, 0, 0, 0, 40, 20, 96, 0, 0, 0});
    const auto header = numbers<quint16>(std::vector{1, 9, 0x300, 0, 0, 9, 0, 0, 0});
    const QByteArray window = wmfRecord(0x020B, {0, 0}) + wmfRecord(0x020C, {20, 40});
    return (isPlaceable ? mark : QByteArray()) + header + window + records + wmfRecord(0, {});
}

QByteArray redLeftHalf() {
    return wmfRecord(0x02FC, {0, 0x00FF, 0, 0}) + wmfRecord(0x02FA, {5, 0, 0, 0, 0}) + // brush, no pen
           wmfRecord(0x012D, {0}) + wmfRecord(0x012D, {1}) + wmfRecord(0x041B, {20, 20, 0, 0});
}

QByteArray emfRecord(quint32 type, std::initializer_list<qint32> parameters) {
    return numbers<quint32>(std::vector{type, quint32(8 + 4 * parameters.size())}) +
           numbers<qint32>(parameters);
}

QByteArray emf(const QByteArray& records) {
    // bounds, frame in hundredths of a millimetre, mark, .., the device has 960 units on 254 millimetres
    const QByteArray header = emfRecord(
        1, {0, 0, 39, 19, 0, 0, 1058, 529, 0x464D4520, 0x10000, 0, 0, 0, 0, 0, 0, 960, 960, 254, 254});
    return header + records + emfRecord(14, {0, 16, 20});
}

} // namespace tarsel::test
