// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/forms/frmAbout.h"

#include "base/ProgramIdentity.h"
#include "controls/FormScrollArea.h"
#include "controls/LineIcon.h"
#include "controls/ListControl.h"
#include "help/BuildFacts.h"
#include "help/forms/ui_frmAbout.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>

/// Outside of the namespace, as the macro asks for: the resources are part of a static library.
static void loadLicences() {
    Q_INIT_RESOURCE(licences);
}

namespace tarsel {

frmAbout::frmAbout(QWidget* owner) :
    QDialog(owner), m_parts({tr("Part"), tr("Version"), tr("Licence"), tr("Used for")}),
    m_ui(std::make_unique<Ui::frmAbout>()) {
    m_ui->setupUi(this);
    constexpr int iconSize = 48;
    const QIcon program = windowIcon(); // that of the window below
    m_ui->imgIcon->setPixmap(
        (program.isNull() ? lineIcon(QStringLiteral("iDetailIcon")) : program).pixmap(iconSize, iconSize));
    QFont large = m_ui->lblName->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setBold(true);
    m_ui->lblName->setFont(large);
    m_ui->lblName->setText(programIdentity::title);
    m_ui->lblVersion->setText(tr("Version %1").arg(QStringLiteral(TARSEL_VERSION)));
    showFacts();
    listParts();
    offerLicences();
    connect(m_ui->cmdCopy, &QPushButton::clicked, this, [this] {
        QGuiApplication::clipboard()->setText(buildReport());
        m_ui->lblCopied->setText(tr("Copied."));
    });
    fitToScreen(*this, {152 * fontMetrics().averageCharWidth(), 30 * fontMetrics().height()});
    m_ui->tbsAbout->setFocus(); // Ctrl+Tab changes its pages, Return closes
}

frmAbout::~frmAbout() = default;

void frmAbout::showFacts() {
    QStringList lines;
    for (const auto& [name, value] : buildFacts())
        lines << QStringLiteral("%1: %2").arg(name, value);
    m_ui->lblFacts->setPlainText(lines.mid(1).join(QLatin1Char('\n'))); // the version stands above
}

void frmAbout::listParts() {
    for (const PartFacts& part : programParts()) {
        ListRow row;
        row.text = part.name;
        const QString version =
            part.isInUse || part.version.isEmpty() ? part.version : tr("%1, when built").arg(part.version);
        row.subItems = {version, part.licence, part.purpose};
        m_parts.add(row);
    }
    auto* lvParts = new ListControl(m_parts, this);
    lvParts->setObjectName(QStringLiteral("lvParts"));
    lvParts->setAccessibleName(tr("Parts of others"));
    lvParts->setFullRowSelect(true);
    const int letter = fontMetrics().averageCharWidth();
    lvParts->setColumnWidth(0, 18 * letter);
    lvParts->setColumnWidth(1, 26 * letter);
    lvParts->setColumnWidth(2, 44 * letter);
    lvParts->setWideColumn(3);
    m_ui->layParts->addWidget(lvParts);
    setTabOrder(m_ui->tbsAbout, lvParts->view());
    setTabOrder(lvParts->view(), m_ui->cboLicence);
}

/// The licences of the libraries come with them; those of what our own files are under come with us.
void frmAbout::offerLicences() {
    loadLicences();
    m_ui->txtLicence->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    const std::pair<QString, QString> licences[] = {
        {tr("GNU General Public License, version 3 or later: this program"),
         QStringLiteral("GPL-3.0-or-later")},
        {tr("MIT: the players of slide shows and greetings"), QStringLiteral("MIT")},
        {tr("Bitstream Vera: the font of greetings"), QStringLiteral("Bitstream-Vera")},
    };
    for (const auto& [title, name] : licences)
        m_ui->cboLicence->addItem(title, name);
    const auto show = [this] {
        QFile text(QStringLiteral(":/licences/%1.txt").arg(m_ui->cboLicence->currentData().toString()));
        m_ui->txtLicence->setPlainText(text.open(QIODevice::ReadOnly) ? QString::fromUtf8(text.readAll())
                                                                      : QString());
    };
    connect(m_ui->cboLicence, &QComboBox::currentIndexChanged, this, show);
    show();
}

} // namespace tarsel
