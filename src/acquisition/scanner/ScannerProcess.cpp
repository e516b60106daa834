// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/ScannerProcess.h"

#include "acquisition/scanner/OptionDecoding.h"
#include "acquisition/scanner/ScannerErrors.h"
#include "base/FailureOf.h"
#include "base/Stop.h"

#include <QCoreApplication>

namespace tarsel {

std::vector<ScanDevice> ScannerProcess::devices(const std::stop_token& stop) {
    raiseIfStopped(stop);
    m_device.clear();
    m_link.startWhereNoneRuns();
    ask({.command = ScannerCommand::ListDevices}, {},
        QCoreApplication::translate("ScannerProcess", "Search for scanners"), {m_limits.list, stop});
    const auto devices = unpackDevices(m_link.bytes());
    if (!devices)
        failScanning(ScannerFault::BrokenProtocol,
                     QCoreApplication::translate("ScannerProcess", "Search for scanners"));
    return *devices;
}

void ScannerProcess::open(const QString& device, const std::stop_token& stop) {
    raiseIfStopped(stop);
    m_device.clear();
    const QByteArray name = device.toUtf8();
    if (name.isEmpty() || name.contains('\0') || name.size() > qsizetype(mostRequestBytes))
        failScanning(ScannerFault::Invalid, device);
    m_link.startWhereNoneRuns();
    ask({.command = ScannerCommand::Open}, name, device, {m_limits.open, stop});
    m_device = device;
    readOptions(stop);
}

void ScannerProcess::close() {
    if (isOpen())
        ask({.command = ScannerCommand::Close}, {}, m_device, {m_limits.option});
    m_device.clear();
}

bool ScannerProcess::isOpen() {
    if (!m_device.isEmpty() && !m_link.isRunning())
        m_device.clear();
    return !m_device.isEmpty();
}

/// The process can have died since the last call: that is an error of its own then.
void ScannerProcess::requireOpen() {
    const QString device = m_device;
    if (device.isEmpty())
        failScanning(ScannerFault::NotOpen, {});
    if (!isOpen())
        failScanning(ScannerFault::Crashed, device);
}

/// The answer to a request; the error of its status where it has one.
ScannerReply ScannerProcess::ask(const ScannerRequest& request, const QByteArray& text,
                                 const QString& subject, const ScannerPatience& patience) {
    m_link.send(request, text, subject);
    const ScannerReply reply = m_link.receive(patience);
    if (const auto fault = faultOfStatus(reply.status))
        failScanning(*fault, subject);
    return reply;
}

void ScannerProcess::readOptions(const std::stop_token& stop) {
    ask({.command = ScannerCommand::ReadOptions}, {}, m_device, {m_limits.option, stop});
    const auto options = unpackOptions(m_link.bytes());
    if (!options)
        failScanning(ScannerFault::BrokenProtocol, m_device);
    m_options = *options;
}

namespace {

constexpr std::int32_t optionsHaveChanged = 2; ///< SANE_INFO_RELOAD_OPTIONS
constexpr std::int32_t valueWasRounded = 1;    ///< SANE_INFO_INEXACT

ScannerRequest requestFor(const ScanOption& option, std::int32_t number, const ScanSetting& setting) {
    ScannerRequest request{.command = ScannerCommand::SetOption, .option = number};
    const std::optional<std::int32_t> word = scanWord(option, setting.value);
    const bool isNothing = std::holds_alternative<std::monostate>(setting.value);
    if (isNothing)
        request.setting =
            option.type == ScanOptionType::Button ? ScannerSetting::Button : ScannerSetting::Automatic;
    else if (std::holds_alternative<QString>(setting.value))
        request.setting = ScannerSetting::Text;
    else if (word)
        request.word = *word;
    else
        failScanning(ScannerFault::BadValue, setting.name);
    return request;
}

} // namespace

std::optional<RoundedSetting> ScannerProcess::setOne(const ScanSetting& setting,
                                                     const std::stop_token& stop) {
    raiseIfStopped(stop);
    const ScanOption* option = m_options.findSettable(setting.name);
    if (!option)
        failScanning(ScannerFault::UnknownOption, setting.name);
    const auto number = std::int32_t(option - m_options.all().data() + 1);
    const ScannerRequest request = requestFor(*option, number, setting);
    const QString* text = std::get_if<QString>(&setting.value);
    m_link.send(request, text ? text->toUtf8() : QByteArray(), m_device);
    const ScannerReply reply = m_link.receive({m_limits.option, stop});
    const auto fault = faultOfStatus(reply.status);
    if (fault)
        failScanning(*fault == ScannerFault::Invalid ? ScannerFault::BadValue : *fault,
                     *fault == ScannerFault::Invalid ? setting.name : m_device);
    std::optional<RoundedSetting> rounded;
    if ((reply.info & valueWasRounded) && request.setting == ScannerSetting::Word)
        rounded = {setting.name, setting.value, scanValueOfWord(option->type, reply.word)};
    if (reply.info & optionsHaveChanged)
        readOptions(stop);
    return rounded;
}

std::vector<RoundedSetting> ScannerProcess::set(const std::vector<ScanSetting>& settings,
                                                const std::stop_token& stop) {
    requireOpen();
    std::vector<RoundedSetting> all;
    bool hasSet = false;
    const auto error = failureOf([&] {
        for (const ScanSetting& setting : settings) {
            if (const std::optional<RoundedSetting> rounded = setOne(setting, stop))
                all.push_back(*rounded);
            hasSet = true;
        }
    });
    if (isOpen() && (hasSet || !stop.stop_requested())) // what was set before a stop counts
        readOptions(stop.stop_requested() ? std::stop_token() : stop);
    if (error)
        throw *error;
    return all;
}

} // namespace tarsel
