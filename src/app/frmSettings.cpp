// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmSettings.h"

#include "app/ui_frmSettings.h"
#include "base/Conversions.h"
#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "controls/FormScrollArea.h"
#include "controls/ListControl.h"
#include "controls/TypedCharacters.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QTimer>
#include <algorithm>

namespace tarsel {

namespace {

constexpr int smallestThumbnail = 20;
constexpr int largestThumbnail = 300;

using settings::Twain;
using Record = ConfigRecordData;

/// In the order in which they are stored.
constexpr FormField<Record> fields[] = {
    {"chkAllowTip", &Record::ShowTips},
    {"txtCaptureFolder", &Record::CaptureFolder},
    {"txtCaptureGeneric", &Record::CaptureGeneric},
    {"txtFolderThumbnailWidth", &Record::FolderThumbWidth},
    {"txtFolderThumbnailHeight", &Record::FolderThumbHeight},
    {"optFileSize", &Record::LongFileSize},
};
constexpr FormField<Twain> twainFields[] = {
    {"txtTwainFolder", &Twain::Folder},
    {"txtTwainGeneric", &Twain::GenericName},
};

/// Selects the text of a box that is entered. By the mouse too: its press would take the selection back.
class SelectOnEntering final : public QObject {
public:
    explicit SelectOnEntering(QLineEdit* box) : QObject(box) { box->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn)
            QTimer::singleShot(0, watched, [watched] { static_cast<QLineEdit*>(watched)->selectAll(); });
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

frmSettings::frmSettings(ConfigRecordData& record, const std::vector<ActionTable::Shortcut>& shortcuts,
                         QWidget* owner) :
    QDialog(owner),
    m_record(record), m_ui(std::make_unique<Ui::frmSettings>()), m_shortcuts({tr("Action"), tr("Shortcut")}) {
    m_ui->setupUi(this);
    std::ignore = trap("frmSettings.subSetup", [&] { subSetup(shortcuts); });
    connect(m_ui->cmdCaptureBrowse, &QPushButton::clicked, this, [this] { browse(m_ui->txtCaptureFolder); });
    connect(m_ui->cmdTwainBrowse, &QPushButton::clicked, this, [this] { browse(m_ui->txtTwainFolder); });
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmSettings::cmdOK_Click);
    for (QLineEdit* box : {m_ui->txtFolderThumbnailWidth, m_ui->txtFolderThumbnailHeight})
        prepareThumbnailBox(box);
    fitToScreen(*this, sizeHint().expandedTo({70 * fontMetrics().averageCharWidth(), 0}));
}

frmSettings::~frmSettings() = default;

void frmSettings::subSetup(const std::vector<ActionTable::Shortcut>& shortcuts) {
    m_binding = std::make_unique<FormBinding<Record>>(*this, m_record, fields);
    m_twain = std::make_unique<FormBinding<Twain>>(*this, m_record.Twain, twainFields);
    m_ui->chkFolderFullRowSelect->setChecked(m_record.FolderFullRowSelect == -1);
    m_ui->tbsSettings->setCurrentIndex(0);
    listShortcuts(shortcuts);
}

/// The keys of the lists first, then those of the commands.
void frmSettings::listShortcuts(const std::vector<ActionTable::Shortcut>& shortcuts) {
    const auto add = [this](const QString& action, const QString& keys) {
        ListRow row;
        row.text = action;
        row.subItems = {keys};
        m_shortcuts.add(row);
    };
    add(tr("Add Selected Files to basket"), tr("Enter [Return]"));
    add(tr("Select all files"), tr("Ctrl + A"));
    add(tr("Delete selected files from basket"), tr("Delete"));
    for (const auto& [text, keys] : shortcuts)
        if (keys != QKeySequence(Qt::Key_Return) && keys != QKeySequence(Qt::Key_Delete))
            add(text, keys.toString(QKeySequence::NativeText));
    auto* lvShortcuts = new ListControl(m_shortcuts, this);
    lvShortcuts->setObjectName(QStringLiteral("lvShortcuts"));
    lvShortcuts->setAccessibleName(tr("Shortcuts"));
    lvShortcuts->setFullRowSelect(true);
    lvShortcuts->setColumnWidth(1, 150);
    m_ui->layShortcuts->addWidget(lvShortcuts);
    setTabOrder(m_ui->cmdTwainBrowse, lvShortcuts->view());
    setTabOrder(lvShortcuts->view(), m_ui->cmdOK);
}

/// A side is 20 to 300 pixels: an emptied box holds 20 at once, other values are corrected when the box is
/// left. Pasted letters are an error; the value of the record is shown again then.
void frmSettings::prepareThumbnailBox(QLineEdit* box) {
    takeDigitsOnly(box);
    new SelectOnEntering(box);
    connect(box, &QLineEdit::textChanged, box, [box](const QString& text) {
        if (text.isEmpty())
            box->setText(QString::number(smallestThumbnail)); // with the caret at its end
    });
    connect(box, &QLineEdit::editingFinished, this, [this, box] { leaveThumbnailBox(box); });
}

bool frmSettings::leaveThumbnailBox(QLineEdit* box) {
    const auto failed = trap("frmSettings.subSetup", [box] {
        const int side = toInt32(box->text());
        box->setText(QString::number(std::clamp(side, smallestThumbnail, largestThumbnail)));
    });
    if (failed)
        box->setText(QString::number(box == m_ui->txtFolderThumbnailWidth ? m_record.FolderThumbWidth
                                                                          : m_record.FolderThumbHeight));
    return !failed;
}

void frmSettings::browse(QLineEdit* folder) {
    const auto chosen = service<Dialogs>().folderDialog(folder->text());
    if (chosen && !chosen->isEmpty())
        folder->setText(*chosen);
}

/// Pressed by its key, OK leaves the focus in the box that is being typed into.
void frmSettings::cmdOK_Click() {
    if (!leaveThumbnailBox(m_ui->txtFolderThumbnailWidth) ||
        !leaveThumbnailBox(m_ui->txtFolderThumbnailHeight))
        return;
    m_binding->store(StoreMoment::AfterChecks);
    m_twain->store(StoreMoment::AfterChecks);
    m_record.FolderFullRowSelect = m_ui->chkFolderFullRowSelect->isChecked() ? -1 : 0;
    m_record.BasketThumbWidth = m_record.FolderThumbWidth;
    m_record.BasketThumbHeight = m_record.FolderThumbHeight;
    m_record.BasketFullRowSelect = m_record.FolderFullRowSelect;
    accept();
}

} // namespace tarsel
