// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/frmExecutable.h"

#include "controls/FormScrollArea.h"
#include "publishing/EffectBuilder.h"
#include "publishing/forms/PublishingParts.h"
#include "publishing/forms/ui_frmExecutable.h"

#include <QShowEvent>
#include <QTimer>

namespace tarsel {

namespace {

using Settings = settings::PublishingSettings;

constexpr FormField<Settings> fields[] = {
    {"txtRaining", &Settings::RainingText}, {"cmdRollingTextColor", &Settings::RollingTextColor},
    {"optClock", &Settings::ClockType},     {"chkDate", &Settings::ClockDate},
    {"cmdDateColor", &Settings::DateColor}, {"cmdDigitalClockColor", &Settings::DigitalClockColor},
    {"cmdHour", &Settings::HourColor},      {"cmdMinute", &Settings::MinuteColor},
    {"cmdSecond", &Settings::SecondColor},  {"cboSystem", &Settings::PlayerSystem},
};

} // namespace

frmExecutable::frmExecutable(Settings& settings, const Picture& picture, QWidget* owner) :
    QDialog(owner), m_settings(settings), m_ui(std::make_unique<Ui::frmExecutable>()) {
    m_ui->setupUi(this);
    m_ui->picPreview->setPicture(picture);
    m_binding = std::make_unique<FormBinding<Settings>>(*this, settings, fields);
    connectSamplesLink(*m_ui->lblSamplesLink, QStringLiteral("greetings"));
    connect(m_ui->lstStyles, &QListWidget::currentRowChanged, this, &frmExecutable::chooseStyle);
    m_ui->lstStyles->setCurrentRow(int(styleOf(settings)));
    m_binding->onAnyChange([this] { showEffect(); });
    connect(m_ui->cmdCreate, &QPushButton::clicked, this, &frmExecutable::cmdCreate_Click);
}

frmExecutable::~frmExecutable() = default;

/// Some controls ask for their final size only after they have been shown. Before that the size is nearly
/// right, and the base class looks for a place where all of it is on the screen.
void frmExecutable::showEvent(QShowEvent* event) {
    if (!event->spontaneous())
        fitToScreen(*this, sizeHint());
    QDialog::showEvent(event);
    if (!event->spontaneous())
        QTimer::singleShot(0, this, [this] { fitToScreen(*this, sizeHint()); });
}

void frmExecutable::chooseStyle() {
    QWidget* panel = m_ui->FrameNothing;
    switch (styleOf(shown())) {
    case GreetingStyle::RainingText:
        panel = m_ui->frameRollingText;
        break;
    case GreetingStyle::Clock:
        panel = m_ui->frameClock;
        break;
    case GreetingStyle::Simple:
    case GreetingStyle::Watery:
        break;
    }
    m_ui->stackOptions->setCurrentWidget(panel);
    showEffect();
}

void frmExecutable::showEffect() {
    joined::EffectOptions options;
    takeEffectOptions(shown(), options);
    m_ui->picPreview->setEffect(players::Style(styleOf(shown())), options);
}

Settings frmExecutable::shown() const {
    Settings settings = m_binding->shown();
    settings.EffectStyle = qint16(m_ui->lstStyles->currentRow());
    return settings;
}

void frmExecutable::cmdCreate_Click() {
    const Settings chosen = shown();
    if (!hasPlayer(effectPlayer(chosen), PlayerSystem(chosen.PlayerSystem)))
        return;
    hide();
    storeEffectSettings(chosen, m_settings);
    Q_EMIT create(chosen);
    accept();
}

} // namespace tarsel
