// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

namespace tarsel {

/// The datasets of an IPTC block (Information Interchange Model).
///
/// Layout of a dataset: 0x1C, record 8, number 8, size 16, data. A size with the top bit set says instead
/// how many bytes of size follow. All numbers are big-endian. Record 1 is the envelope, whose dataset 90
/// names the character set; record 2 holds what users know.
///
/// Texts are UTF-8 when the envelope says so or when they read as that, else Windows-1252. A new text that
/// isn't plain ASCII is written as UTF-8 and marked so; where older texts are unmarked in Windows-1252 and
/// the new one fits there as well, it follows them, and where it doesn't, they are turned into UTF-8 with it,
/// so that all texts keep reading right. Datasets that weren't changed keep their bytes.
///
/// The standard's greatest lengths (64 bytes for a keyword) are not enforced here: files hold longer texts,
/// and cutting would lose them. What users type is checked before. A text beyond 32767 bytes, the most that
/// a plain dataset holds, is refused with error 6.
class IimData {
public:
    IimData() = default;
    /// Reads as far as the datasets make sense; what follows, filling aside, is carried along.
    explicit IimData(const QByteArray& bytes);

    /// Empty when there is nothing but the marks of version and character set.
    QByteArray bytes() const;
    bool isEmpty() const;
    bool hasFields() const; ///< something in record 2 beside its version
    /// Whether the bytes ended with a complete dataset, or with filling.
    bool isComplete() const { return m_tail.isEmpty(); }

    /// By number of record 2. `setTexts` takes the place of all datasets of that number, `setText` of the
    /// first; an empty text removes all.
    QStringList texts(int number) const;
    QString text(int number) const;
    void setTexts(int number, const QStringList& texts);
    void setText(int number, const QString& text);

private:
    struct DataSet {
        quint8 record = 0;
        quint8 number = 0;
        QByteArray data;
        QByteArray raw; ///< as read; empty when it was made or changed here
    };
    bool readDataSet(const QByteArray& bytes, qsizetype& position);
    const DataSet* find(quint8 record, quint8 number) const;
    QString decode(const QByteArray& data) const;
    QByteArray encode(const QString& text);
    bool isMarkedUtf8() const;
    void markUtf8();
    std::vector<DataSet>::iterator placeFor(quint8 record, quint8 number);
    std::vector<QByteArray> encodeAll(int number, const QStringList& texts);

    std::vector<DataSet> m_dataSets;
    QByteArray m_tail;
};

} // namespace tarsel
