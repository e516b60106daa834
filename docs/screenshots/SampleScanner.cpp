// SPDX-License-Identifier: GPL-3.0-or-later
#include "docs/screenshots/SampleScanner.h"

#include <utility>

namespace tarsel {

namespace {

ScanOption option(const QString& name, const char* title, ScanOptionType type, const ScanValue& value) {
    ScanOption made;
    made.name = name;
    made.title = QString::fromLatin1(title);
    made.type = type;
    made.value = value;
    made.isActive = made.isSettable = true;
    return made;
}

ScanOption list(const QString& name, const char* title, const std::vector<ScanValue>& choices) {
    const bool isText = std::holds_alternative<QString>(choices.front());
    ScanOption made =
        option(name, title, isText ? ScanOptionType::String : ScanOptionType::Int, choices.front());
    made.choices = choices;
    return made;
}

ScanOption number(const QString& name, const char* title, ScanUnit unit, ScanRange range, double value) {
    ScanOption made = option(name, title, ScanOptionType::Fixed, value);
    made.unit = unit;
    made.range = range;
    return made;
}

ScanOption group(const char* title) {
    return option({}, title, ScanOptionType::Group, {});
}

std::vector<ScanOption> makeOptions() {
    const auto text = [](const char* value) { return ScanValue(QString::fromLatin1(value)); };
    constexpr double width = 216, height = 297;
    std::vector<ScanOption> options{
        group("Scan Mode"),
        list(scanOption::source, "Scan source", {text("Flatbed"), text("Automatic Document Feeder")}),
        list(scanOption::mode, "Scan mode", {text("Color"), text("Gray"), text("Lineart")}),
        list(scanOption::resolution, "Scan resolution", {75, 150, 300, 600, 1200}),
        list(scanOption::depth, "Bit depth", {8, 16}),
        group("Geometry"),
        number(scanOption::left, "Top-left x", ScanUnit::Millimetre, {0, width, 0}, 0),
        number(scanOption::top, "Top-left y", ScanUnit::Millimetre, {0, height, 0}, 0),
        number(scanOption::right, "Bottom-right x", ScanUnit::Millimetre, {0, width, 0}, width),
        number(scanOption::bottom, "Bottom-right y", ScanUnit::Millimetre, {0, height, 0}, height),
        group("Enhancement"),
        number(scanOption::brightness, "Brightness", ScanUnit::Percent, {-100, 100, 1}, 0),
        number(scanOption::contrast, "Contrast", ScanUnit::Percent, {-100, 100, 1}, 0),
        option(QStringLiteral("invert"), "Invert colors", ScanOptionType::Bool, false),
        option(QStringLiteral("calibrate"), "Calibrate", ScanOptionType::Button, {}),
    };
    options[3].value = 300;
    options[3].unit = ScanUnit::Dpi;
    options[4].unit = ScanUnit::Bit;
    return options;
}

} // namespace

SampleScanner::SampleScanner() :
    devices{{QStringLiteral("sample:0"), QStringLiteral("Sample"), QStringLiteral("Flatbed 2400"),
             QStringLiteral("flatbed scanner")}},
    m_options(makeOptions()) {}

ScanOptions SampleScanner::sampleOptions() {
    return ScanOptions(makeOptions());
}

void SampleScanner::answer(std::function<void()> signal) {
    ++m_pending;
    QMetaObject::invokeMethod(
        this,
        [this, signal = std::move(signal)] {
            --m_pending;
            signal();
        },
        Qt::QueuedConnection);
}

void SampleScanner::listDevices() {
    m_isOpen = false;
    answer([this] { Q_EMIT devicesListed(devices); });
}

void SampleScanner::open(const QString&) {
    m_isOpen = false;
    answer([this] {
        if (fault)
            return Q_EMIT failed(*std::exchange(fault, std::nullopt));
        m_isOpen = true;
        Q_EMIT opened(ScanOptions(m_options));
    });
}

void SampleScanner::close() {
    m_isOpen = false;
    answer([this] { Q_EMIT closed(); });
}

void SampleScanner::apply(const ScanSetting& setting) {
    taken.push_back(setting);
    for (ScanOption& each : m_options)
        if (each.name == setting.name && setting.value.index() > 0)
            each.value = setting.value;
}

void SampleScanner::setOptions(const std::vector<ScanSetting>& settings) {
    for (const ScanSetting& each : settings)
        apply(each);
    answer([this] { Q_EMIT optionsChanged(ScanOptions(m_options), {}); });
}

// --- pages

void SampleScanner::TwainAcquire(const ScanRequest& request) {
    requests.push_back(request);
    m_ofRequest = 0;
    ++m_pending;
    if (!holdsPages)
        QMetaObject::invokeMethod(
            this, [this] { acquireAll(); }, Qt::QueuedConnection);
}

void SampleScanner::acquireAll() {
    const bool isFeeder = !requests.back().isPreview && ScanOptions(m_options).isFeeder() == true;
    for (int i = 0; i < (isFeeder ? pagesInFeeder : pagesOfFlatbed); ++i)
        deliver();
    if (fault)
        end({ScanEndReason::Failed, m_ofRequest, std::exchange(fault, std::nullopt)});
    else
        end({ScanEndReason::Done, m_ofRequest, {}});
}

void SampleScanner::deliver(int lines) {
    const ScanRequest& request = requests.back();
    ScannedPage arrived;
    arrived.picture = page;
    arrived.isCut = cutsPages;
    arrived.number = request.firstNumber + m_ofRequest++;
    Q_EMIT progress({arrived.number, lines, page.height(), false});
    if (!request.isPreview)
        m_count = arrived.number;
    Q_EMIT pageArrived(arrived, request.save ? request.save(arrived) : AcquiredFile{});
}

void SampleScanner::end(const ScanEnd& end, bool crashes) {
    --m_pending;
    m_isOpen = m_isOpen && !crashes;
    Q_EMIT finished(end);
}

void SampleScanner::cancel() {
    ++cancelled;
    if (!requests.empty() && m_pending > 0)
        QMetaObject::invokeMethod(
            this,
            [this] {
                end({ScanEndReason::Cancelled, m_ofRequest, {}});
            },
            Qt::QueuedConnection);
}

} // namespace tarsel
