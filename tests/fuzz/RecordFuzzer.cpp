// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/QuotedRecordReader.h"
#include "base/TrappedError.h"
#include "configuration/RecordImage.h"

#include <cstdint>
#include <cstdlib>

using namespace tarsel;

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

/// Any bytes are some record, and one that was read is stored and read without a change.
void tryConfiguration(const QByteArray& bytes) {
    try {
        const QByteArray image = recordImage(recordFromImage(bytes));
        require(recordImage(recordFromImage(image)) == image);
    } catch (const TrappedError& error) {
        require(error.number == ErrorNumber::Overflow); // a text that grew beyond its count
    }
}

/// Fields and lines come to their end, and hold no more than the bytes do.
void tryQuotedRecords(const QByteArray& bytes) {
    qsizetype fields = 0, length = 0;
    for (QuotedRecordReader reader(bytes, {}); !reader.atEnd(); ++fields)
        length += reader.field().size();
    require(fields <= bytes.size() && length <= bytes.size());
    qsizetype lines = 0;
    for (QuotedRecordReader reader(bytes, {}); !reader.atEnd(); ++lines)
        require(!reader.line().contains(QLatin1Char('\n')));
    require(lines <= bytes.size());
}

} // namespace

/// Each input goes through the reader of the settings and that of basket and task files.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    tryConfiguration(bytes);
    tryQuotedRecords(bytes);
    return 0;
}
