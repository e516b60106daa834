// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"

#include <QDir>
#include <cstdint>
#include <gtest/gtest.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Files named by their fault, some found by the fuzzer: it stops the program when one does harm.
TEST(Fixtures, EveryBrokenFileIsReadWithoutHarm) {
    const QDir folder(QStringLiteral(TARSEL_FIXTURES));
    const QStringList names = folder.entryList(QDir::Files);
    ASSERT_GE(names.size(), 10);
    for (const QString& name : names) {
        SCOPED_TRACE(qPrintable(name));
        const QByteArray bytes = tarsel::readWholeFile(folder.filePath(name));
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               size_t(bytes.size()));
    }
}
