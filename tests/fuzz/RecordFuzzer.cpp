// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/QuotedRecordReader.h"
#include "base/TrappedError.h"
#include "configuration/RecordImage.h"
#include "tests/fuzz/Fuzzers.h"

using namespace tarsel;
using fuzz::require;

namespace {

/// Any bytes are some record, and one that was read is stored and read without a change.
void tryConfiguration(const QByteArray& bytes) {
    try {
        const QByteArray image = recordImage(recordFromImage(bytes));
        require(recordImage(recordFromImage(image)) == image,
                "a record that was read is stored without a change");
    } catch (const TrappedError& error) {
        require(error.number == ErrorNumber::Overflow, "only a text that grew beyond its count is refused");
    }
}

/// Fields and lines come to their end, and hold no more than the bytes do.
void tryQuotedRecords(const QByteArray& bytes) {
    qsizetype fields = 0, length = 0;
    for (QuotedRecordReader reader(bytes); !reader.atEnd(); ++fields)
        length += reader.field().size();
    require(fields <= bytes.size() && length <= bytes.size(), "fields hold no more than the bytes");
    qsizetype lines = 0;
    for (QuotedRecordReader reader(bytes); !reader.atEnd(); ++lines)
        require(!reader.line().contains(QLatin1Char('\n')), "a line is one line");
    require(lines <= bytes.size(), "there are no more lines than bytes");
}

} // namespace

void fuzz::readConfiguration(const QByteArray& bytes) {
    tryConfiguration(bytes);
    tryQuotedRecords(bytes);
}
