// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/frmScreenSaverOptions.h"

#include "controls/FormScrollArea.h"
#include "publishing/SaverBuilder.h"
#include "publishing/forms/AlbumNumber.h"
#include "publishing/forms/PublishingParts.h"
#include "publishing/forms/ui_frmScreenSaverOptions.h"

#include <QShowEvent>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

using Settings = settings::PublishingSettings;

constexpr FormField<Settings> fields[] = {
    {"OptType", &Settings::SaverType},
    {"txtInterval", &Settings::SaverInterval},
    {"cmdPageBackgroundColor", &Settings::SaverBackColor},
    {"sldQuality", &Settings::SaverQuality},
    {"chkProcessEditingList", &Settings::SaverProcessTasks},
    {"cboSystem", &Settings::PlayerSystem},
};
constexpr int shortest = 1, longest = 9, usual = 3; ///< seconds between two pictures

/// A label that wraps by itself would let the form's height depend on its width.
void foldInTwo(QLabel& note) {
    QString text = note.text();
    if (const qsizetype blank = text.indexOf(u' ', text.size() / 2); blank >= 0)
        text[blank] = u'\n';
    note.setText(text);
}

} // namespace

frmScreenSaverOptions::frmScreenSaverOptions(Settings& settings, std::vector<SaverSample> samples,
                                             QWidget* owner) :
    QDialog(owner),
    m_settings(settings), m_ui(std::make_unique<Ui::frmScreenSaverOptions>()) {
    m_ui->setupUi(this);
    m_ui->lblQuality->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("1000")));
    m_binding = std::make_unique<FormBinding<Settings>>(*this, settings, fields);
    foldInTwo(*m_ui->lblNote);
    m_ui->lblQuality->setNum(m_ui->sldQuality->value());
    joinNumber(*m_ui->txtInterval, *m_ui->vsInterval, shortest, longest, usual);
    connectSamplesLink(*m_ui->lblSamplesLink, QStringLiteral("screensavers"));
    m_ui->picPreview->setSamples(std::move(samples));
    m_binding->onAnyChange([this] { followOptions(); });
    followOptions();
    connect(m_ui->cmdCreate, &QPushButton::clicked, this, &frmScreenSaverOptions::cmdCreate_Click);
}

frmScreenSaverOptions::~frmScreenSaverOptions() = default;

void frmScreenSaverOptions::showSample(int index, const QPixmap& picture) {
    m_ui->picPreview->setPicture(index, picture);
}

/// Some controls ask for their final size only after they have been shown. Before that the size is nearly
/// right, and the base class looks for a place where all of it is on the screen.
void frmScreenSaverOptions::showEvent(QShowEvent* event) {
    if (!event->spontaneous())
        fitToScreen(*this, sizeHint());
    QDialog::showEvent(event);
    if (!event->spontaneous())
        QTimer::singleShot(0, this, [this] { fitToScreen(*this, sizeHint()); });
}

void frmScreenSaverOptions::followOptions() {
    const Settings shown = m_binding->shown();
    m_ui->picPreview->setBackground(shownColor(shown.SaverBackColor));
    m_ui->picPreview->setInterval(std::clamp<int>(shown.SaverInterval, shortest, longest));
}

void frmScreenSaverOptions::cmdCreate_Click() {
    const Settings shown = m_binding->shown();
    if (!hasPlayer(saverPlayer(shown), PlayerSystem(shown.PlayerSystem)))
        return;
    hide();
    m_binding->store(StoreMoment::AfterChecks);
    m_settings.SaverInterval = std::clamp<qint16>(m_settings.SaverInterval, shortest, longest);
    Q_EMIT generate();
    accept();
}

} // namespace tarsel
