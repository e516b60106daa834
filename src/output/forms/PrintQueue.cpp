// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/PrintQueue.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QFile>
#include <QPrintEngine>
#include <QPrinter>
#include <cups/cups.h>

namespace tarsel {

namespace {

class Options {
public:
    explicit Options(const PrintRequest& request) {
        for (const auto& [name, value] : request.options)
            m_count = cupsAddOption(name.constData(), value.constData(), m_count, &m_options);
    }
    ~Options() { cupsFreeOptions(m_count, m_options); }
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    int count() const { return m_count; }
    cups_option_t* all() const { return m_options; }

private:
    int m_count = 0;
    cups_option_t* m_options = nullptr;
};

/// The page "Advanced" of Qt's dialog keeps what the user chose there under this key: names and values in
/// turn.
QStringList advancedOptions(const QPrinter& printer) {
    constexpr auto cupsOptions = QPrintEngine::PrintEnginePropertyKey(0xfe00);
    return printer.printEngine()->property(cupsOptions).toStringList();
}

QByteArray sidesOf(const QPrinter& printer) {
    switch (printer.duplex()) {
    case QPrinter::DuplexLongSide:
        return "two-sided-long-edge";
    case QPrinter::DuplexShortSide:
        return "two-sided-short-edge";
    case QPrinter::DuplexAuto:
        return printer.pageLayout().orientation() == QPageLayout::Portrait ? "two-sided-long-edge"
                                                                           : "two-sided-short-edge";
    default:
        return "one-sided";
    }
}

} // namespace

PrintRequest printRequestOf(QPrinter& printer) {
    PrintRequest request{printer.printerName(), {}};
    const auto add = [&](const QByteArray& name, const QByteArray& value) {
        request.options.append({name, value});
    };
    add("print-scaling", "none"); // the document has the size of the paper
    add("media", printer.pageLayout().pageSize().key().toUtf8());
    add("sides", sidesOf(printer));
    add("copies", QByteArray::number(printer.copyCount()));
    add("Collate", printer.collateCopies() ? "true" : "false");
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        add("outputorder", "reverse");
    if (printer.colorMode() == QPrinter::GrayScale)
        add("print-color-mode", "monochrome");
    const QStringList advanced = advancedOptions(printer);
    for (qsizetype i = 0; i + 1 < advanced.size(); i += 2)
        add(advanced[i].toUtf8(), advanced[i + 1].toUtf8());
    return request;
}

void sendToPrinter(const PrintRequest& request, const QString& document, const QString& title) {
    const Options options(request);
    const int job = cupsPrintFile2(CUPS_HTTP_DEFAULT, request.printer.toUtf8().constData(),
                                   QFile::encodeName(document).constData(), title.toUtf8().constData(),
                                   options.count(), options.all());
    if (job == 0)
        throw TrappedError{
            ErrorNumber::InvalidCall,
            QCoreApplication::translate("PrintQueue", "The printer %1 did not take the pages: %2")
                .arg(request.printer, QString::fromUtf8(cupsLastErrorString()))};
}

} // namespace tarsel
