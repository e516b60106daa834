// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/Printers.h"

#include <QPrinterInfo>
#include <mutex>

namespace tarsel {

namespace {

/// Qt loads its part for the printing system at the first question, without a lock.
std::mutex& oneAtATime() {
    static std::mutex mutex;
    return mutex;
}

} // namespace

OpenPrinter::OpenPrinter(const QString& name) :
    printer(QPrinterInfo::printerInfo(name), QPrinter::HighResolution) {
    isThere = printer.printerName() == name;
    const QPrinterInfo info(printer);
    usualPaper = info.defaultPageSize();
    papers = info.supportedPageSizes();
    printer.setFullPage(true);
}

FoundPrinters findPrinters() {
    const std::lock_guard lock(oneAtATime());
    return {QPrinterInfo::availablePrinterNames(), QPrinterInfo::defaultPrinterName()};
}

std::shared_ptr<OpenPrinter> openPrinter(const QString& name) {
    const std::lock_guard lock(oneAtATime());
    return std::make_shared<OpenPrinter>(name);
}

} // namespace tarsel
