// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/RecordImage.h"

#include "base/CodePage.h"
#include "base/TrappedError.h"
#include "bytes/Numbers.h"
#include "configuration/ConfigFields.h"

#include <QCoreApplication>
#include <limits>
#include <tuple>
#include <utility>

namespace tarsel {

namespace {

QByteArray textBytes(const ConfigField& field, const QString& text) {
    const QByteArray bytes = codePage::encode(text);
    if (field.type == FieldType::F)
        return codePage::cut(bytes, fixedTextSize).leftJustified(fixedTextSize, ' ');
    if (bytes.size() > std::numeric_limits<quint16>::max())
        fail(ErrorNumber::Overflow, QCoreApplication::translate("RecordImage", "%1 is too long to be stored")
                                        .arg(QLatin1String(field.name)));
    return numberBytes<QByteArray>(quint16(bytes.size()), ByteOrder::Little) + bytes;
}

QByteArray fieldBytes(const ConfigField& field, const ConfigValue& value) {
    if (const QString* text = std::get_if<QString>(&value))
        return textBytes(field, *text);
    return std::visit(
        [](const auto& number) {
            if constexpr (std::is_same_v<std::decay_t<decltype(number)>, QString>)
                return QByteArray();
            else
                return numberBytes<QByteArray>(number, ByteOrder::Little);
        },
        value);
}

/// Takes fields from the front of the bytes. After an incomplete field there are no more bytes.
class FieldReader {
public:
    explicit FieldReader(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    ConfigValue value(FieldType type) {
        switch (type) {
        case FieldType::I1:
            return number<quint8>();
        case FieldType::I2:
            return number<qint16>();
        case FieldType::I4:
            return number<qint32>();
        case FieldType::R8:
            return number<double>();
        case FieldType::S:
            return codePage::decode(take(number<quint16>()));
        case FieldType::F:
            return codePage::decode(take(fixedTextSize));
        }
        return {};
    }

    bool isComplete() const { return m_isComplete; } ///< there were bytes for each field so far

private:
    template <class Number>
    Number number() {
        const QByteArray bytes = take(sizeof(Number));
        return bytes.isEmpty() ? Number(0) : loadNumber<Number>(bytes.constData(), ByteOrder::Little);
    }

    QByteArray take(qsizetype size) {
        const bool complete = size <= m_bytes.size() - m_at;
        QByteArray taken = complete ? m_bytes.mid(m_at, size) : QByteArray();
        m_at = complete ? m_at + size : m_bytes.size();
        m_isComplete = m_isComplete && complete;
        return taken;
    }

    QByteArray m_bytes;
    qsizetype m_at = 0;
    bool m_isComplete = true;
};

} // namespace

QByteArray recordImage(const ConfigRecordData& record) {
    QByteArray image;
    for (const ConfigField& field : configFields())
        image += fieldBytes(field, field.value(record));
    return image;
}

ConfigRecordData recordFromImage(const QByteArray& bytes) {
    ConfigRecordData record;
    FieldReader reader(bytes);
    for (const ConfigField& field : configFields())
        field.assign(record, reader.value(field.type));
    return record;
}

bool isWholeRecord(const QByteArray& bytes) {
    FieldReader reader(bytes);
    for (const ConfigField& field : configFields())
        std::ignore = reader.value(field.type);
    return reader.isComplete();
}

} // namespace tarsel
