// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/MetadataEditor.h"

#include "base/Dialogs.h"
#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "base/Locale.h"
#include "base/SaveFileDialog.h"
#include "embedded/IptcFields.h"
#include "metadata/forms/frmExifEditAttribute.h"
#include "metadata/forms/frmExifNewAttribute.h"
#include "metadata/forms/frmIPTCCategory.h"
#include "metadata/forms/frmIPTCKeywords.h"
#include "metadata/modMetadata.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QScopedValueRollback>

namespace tarsel {

namespace {

const QString keywords = QStringLiteral("Keywords");
const QString categories = QStringLiteral("Supplemental Categories");
const QString xiffFilter = QStringLiteral("EXIF File (*.xiff)|*.xiff");
const QString ffoFilter = QStringLiteral("IPTC File Info (*.ffo)|*.ffo");

QString extensionOf(const QString& path) {
    return QFileInfo(path).suffix().toLower();
}

template <const char* Ending>
QString withEnding(int, const QString& path) {
    return path.endsWith(QLatin1String(Ending), Qt::CaseInsensitive) ? path : path + QLatin1String(Ending);
}
constexpr char xiffEnding[] = ".xiff", ffoEnding[] = ".ffo";

bool asks(const QString& text) {
    return service<Dialogs>().messageBox(text, MessageIcon::Question, MessageButtons::YesNo,
                                         ApplicationName) == MessageAnswer::Yes;
}

void inform(const QString& text, MessageIcon icon) {
    service<Dialogs>().messageBox(text, icon, MessageButtons::Ok, ApplicationName);
}

} // namespace

MetadataEditor::MetadataEditor(ImageBox& ibMain, ListView& lvExif, ListView& lvIPTC, QWidget* owner) :
    QObject(owner), m_box(ibMain), m_exif(lvExif), m_iptc(lvIPTC), m_owner(owner) {
    m_threads.setMaxThreadCount(1);
}

MetadataEditor::~MetadataEditor() {
    m_threads.waitForDone();
}

void MetadataEditor::cmdEXIFBar(int index) {
    void (MetadataEditor::*const commands[])() = {
        &MetadataEditor::subEditAttribute,   &MetadataEditor::subAddExifAttribute,
        &MetadataEditor::subDeleteAttribute, &MetadataEditor::subClearAllAttributes,
        &MetadataEditor::LoadXiffFile,       &MetadataEditor::SaveXiffFile,
    };
    (this->*commands[index])();
}

void MetadataEditor::cmdIPTCBar(int index) {
    void (MetadataEditor::*const commands[])() = {
        &MetadataEditor::subEditAttribute,      &MetadataEditor::openIptcFile,
        &MetadataEditor::saveIptcFile,          &MetadataEditor::subDeleteAttribute,
        &MetadataEditor::subClearAllAttributes,
    };
    (this->*commands[index])();
}

void MetadataEditor::run(const char* routine, const QString& trappingText,
                         const std::function<void()>& body) {
    if (m_isBusy || isLoading() || !m_box.HasImage() || m_box.Tag.isEmpty())
        return;
    const QScopedValueRollback busy(m_isBusy, true);
    m_path = m_box.Tag;
    const ErrorSubject subject(m_path);
    TrappingString = trappingText;
    std::ignore = trap(routine, body);
}

bool MetadataEditor::isShown() const {
    return m_box.HasImage() && m_box.Tag == m_path && !isLoading();
}

/// Changes the metadata that the file holds now, and those of the box when its picture is still on show.
/// False when the change was refused.
bool MetadataEditor::change(const Change& change) {
    const QString path = m_path;
    ImageBox edited;
    edited.PageNumber = m_box.PageNumber;
    bool isDone = false;
    std::optional<TrappedError> failure;
    QEventLoop written;
    m_threads.start([&] {
        failure = failureOf([&] {
            modMetadata::ReadMetadata(path, edited);
            isDone = change(path, edited);
        });
        QMetaObject::invokeMethod(&written, &QEventLoop::quit, Qt::QueuedConnection);
    });
    written.exec();
    m_threads.waitForDone(); // the program's end quits the loop as well
    if (failure)
        throw *failure;
    if (isDone && isShown()) {
        m_box.metadata() = edited.metadata();
        Q_EMIT metadataChanged();
    }
    return isDone;
}

bool MetadataEditor::update(bool isIptc, const QString& name, const QString& value) {
    const DateForms forms = service<Locale>().dateForms();
    return change([&](const QString& path, ImageBox& box) {
        return modMetadata::UpdateMetadataAttribute(path, isIptc, name, value, box, forms);
    });
}

void MetadataEditor::showInRow(const QString& label, const QString& value) {
    const int row = list().selectedIndex();
    if (isShown() && row >= 0 &&
        (CurrentMetadataTab == Exif ? list().row(row).tag : list().row(row).text) == label)
        list().setSubItem(row, 1, value);
}

// --- edit, add

void MetadataEditor::subEditAttribute() {
    run("FrmMain.subEditAttribute", tr("Editing EXIF/IPTC Metadata"), [this] {
        const int row = list().selectedIndex();
        if (row < 0)
            return;
        const ListRow& chosen = list().row(row);
        if (CurrentMetadataTab == Exif && chosen.key.isEmpty())
            return;
        const QString name = CurrentMetadataTab == Exif ? chosen.tag : chosen.text;
        if (name == categories)
            editCategories();
        else if (name == keywords)
            editKeywords();
        else
            editText(name, chosen.text, chosen.subItems.value(0));
    });
}

void MetadataEditor::editText(const QString& name, const QString& label, const QString& value) {
    frmExifEditAttribute dialog(name, label, value, m_owner);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const bool isIptc = CurrentMetadataTab == Iptc;
    if (!update(isIptc, name, dialog.MetadataValue()))
        return;
    QString shown = dialog.MetadataValue();
    if (isIptc && modMetadata::IsIptcDate(name)) {
        const DateForms forms = service<Locale>().dateForms();
        shown = shortDateText(toDate(shown, forms), forms);
    }
    showInRow(name, shown);
}

void MetadataEditor::editKeywords() {
    frmIPTCKeywords dialog(iptcList(m_box.metadata(), "IptcKeyword"), m_owner);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QStringList items = dialog.keywords();
    const bool isDone = change([&](const QString& path, ImageBox& box) {
        modMetadata::SetIptcList(path, keywords, items, box);
        return true;
    });
    if (isDone)
        showInRow(keywords, items.join(u','));
}

/// "None" leaves an urgency that is there.
void MetadataEditor::editCategories() {
    frmIPTCCategory dialog(iptcList(m_box.metadata(), "IptcSupplementalCategory"),
                           iptcUrgency(m_box.metadata()), m_owner);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QStringList items = dialog.categories();
    const int urgency = dialog.urgency();
    const bool isDone = change([&](const QString& path, ImageBox& box) {
        if (urgency != 0)
            setIptcUrgency(box.metadata(), urgency);
        modMetadata::SetIptcList(path, categories, items, box);
        return true;
    });
    if (isDone)
        showInRow(categories, items.join(u','));
}

void MetadataEditor::subAddExifAttribute() {
    run("FrmMain.subAddExifAttribute", tr("Adding new metadata attribute!"), [this] {
        const QStringList served{QStringLiteral("jpeg"), QStringLiteral("jpg"), QStringLiteral("tif"),
                                 QStringLiteral("tiff")};
        if (CurrentMetadataTab == Iptc || !served.contains(extensionOf(m_path)))
            return;
        frmExifNewAttribute dialog(m_exif, m_owner);
        if (dialog.exec() != QDialog::Accepted ||
            !update(false, dialog.MetadataName(), dialog.MetadataValue()))
            return;
        if (!isShown())
            return;
        ListRow row;
        row.text = row.key = row.tag = dialog.MetadataName();
        row.icon = modMetadata::editableIcon;
        row.subItems = {dialog.MetadataValue()};
        m_exif.add(row);
    });
}

// --- delete, clear

void MetadataEditor::subDeleteAttribute() {
    run("FrmMain.subDeleteAttribute", tr("Deleting metadata EXIF/IPTC attribute"), [this] {
        if (list().selectedIndex() < 0)
            return;
        if (CurrentMetadataTab == Exif)
            deleteExif();
        else
            deleteIptc();
    });
}

void MetadataEditor::deleteExif() {
    TrappingString = tr("Deleting exif attribute from the selected file");
    const int row = m_exif.selectedIndex();
    const QString name = m_exif.row(row).tag;
    const bool isDone = change([&](const QString& path, ImageBox& box) {
        return modMetadata::DeleteExifAttribute(path, name, box);
    });
    if (!isDone)
        inform(tr("Error deleting attribute"), MessageIcon::Stop);
    else if (isShown() && row < m_exif.count() && m_exif.row(row).tag == name)
        m_exif.remove(row);
}

/// A date can't be emptied: an empty text isn't a date.
void MetadataEditor::deleteIptc() {
    const ListRow row = m_iptc.row(m_iptc.selectedIndex());
    if (row.subItems.value(0).trimmed().isEmpty())
        return;
    const bool isList = row.text == keywords || row.text == categories;
    const bool isDone = isList ? change([&](const QString& path, ImageBox& box) {
        modMetadata::ClearIptcList(path, row.text, box);
        return true;
    })
                               : update(true, row.text, {});
    if (isDone)
        showInRow(row.text, {});
    else
        inform(tr("Error deleting the attribute!"), MessageIcon::Stop);
}

void MetadataEditor::subClearAllAttributes() {
    run("FrmMain.subClearAllAttributes", tr("Clear all EXIF/IPTC Metadata"), [this] {
        if (CurrentMetadataTab == Exif) {
            if (clear(m_exif,
                      tr("All EXIF metadata available in the current image will be deleted!\n"
                         "Do you want to continue?"),
                      [](const QString&, ImageBox& box) { return box.ExifClear(), true; }))
                m_exif.clear();
        } else if (clear(m_iptc,
                         tr("All IPTC metadata available in the current image will be deleted!\n"
                            "Do you want to continue?"),
                         [](const QString&, ImageBox& box) { return box.IptcClear(), true; })) {
            for (int row = 0; row < m_iptc.count(); ++row)
                m_iptc.setSubItem(row, 1, {});
        }
    });
}

bool MetadataEditor::clear(ListView& rows, const QString& question, const Change& clearing) {
    if (rows.isEmpty() || !asks(question))
        return false;
    const bool isDone = change([&](const QString& path, ImageBox& box) {
        clearing(path, box);
        box.SaveMetadataOnly(path);
        return true;
    });
    return isDone && isShown();
}

// --- side files

void MetadataEditor::LoadXiffFile() {
    run("FrmMain.LoadXiffFile", tr("Open EXIF .xiff file"), [this] {
        if (!m_exif.isEmpty() &&
            !asks(tr("Loading a .xiff will only overwrite user editable EXIF attributes!\n"
                     "Do you want to continue?")))
            return;
        const auto choice = service<Dialogs>().openFileDialog({tr("Open EXIF .xiff file"), xiffFilter, {}});
        if (!choice)
            return;
        const DateForms forms = service<Locale>().dateForms();
        QList<std::pair<QString, QString>> applied;
        const bool isDone = change([&](const QString& path, ImageBox& box) {
            applied = modMetadata::ApplyXiffFile(choice->path, box, forms);
            if (!applied.isEmpty())
                box.SaveMetadataOnly(path);
            return true;
        });
        for (const auto& [name, value] : applied)
            if (isDone && isShown())
                showXiffRow(name, value);
    });
}

void MetadataEditor::showXiffRow(const QString& name, const QString& value) {
    for (int i = 0; i < m_exif.count(); ++i)
        if (m_exif.row(i).key.compare(name, Qt::CaseInsensitive) == 0)
            return m_exif.setSubItem(i, 1, value);
    const QString label = modMetadata::ExifNameInWords(name.trimmed());
    ListRow row;
    row.key = name;
    row.text = label.isEmpty() ? name : label;
    row.icon = modMetadata::editableIcon;
    row.subItems = {value};
    m_exif.add(row);
}

void MetadataEditor::SaveXiffFile() {
    run("FrmMain.SaveXiffFile", tr("Save EXIF Information to file"), [this] {
        if (m_exif.isEmpty())
            return;
        const auto choice =
            saveFileDialogFor({tr("Save EXIF Information to file"), xiffFilter, {}}, withEnding<xiffEnding>);
        if (choice && modMetadata::WriteXiffFile(withEnding<xiffEnding>(0, choice->path), m_exif) == 0)
            inform(tr("There is no user editable EXIF attributes in this current image!\n"
                      "Either create new attribute or select another image having editable attribute."),
                   MessageIcon::Information);
    });
}

void MetadataEditor::openIptcFile() {
    run("FrmMain.cmdIPTCBar", tr("Open IPTC .ffo file"), [this] {
        if (m_iptc.isEmpty())
            return;
        if (m_box.HasImage() && m_box.HasIptc() &&
            !asks(tr("Loading a .ffo file will replace all IPTC metadata of the current image.\n"
                     "Do you want to continue?")))
            return;
        const auto choice = service<Dialogs>().openFileDialog({tr("Open IPTC .ffo file"), ffoFilter, {}});
        if (!choice)
            return;
        const bool isDone = change([&](const QString& path, ImageBox& box) {
            box.IptcLoadFromFile(choice->path);
            if (box.HasIptc())
                box.SaveMetadataOnly(path);
            return box.HasIptc();
        });
        if (!isDone || !isShown())
            return;
        const QString listed = m_iptc.tag();
        m_iptc.clear();
        modMetadata::ListIptcAttributes(m_box, m_iptc, listed);
    });
}

void MetadataEditor::saveIptcFile() {
    run("FrmMain.cmdIPTCBar", tr("Save IPTC Information"), [this] {
        if (m_iptc.isEmpty())
            return;
        const auto choice =
            saveFileDialogFor({tr("Save IPTC Information"), ffoFilter, {}}, withEnding<ffoEnding>);
        if (choice)
            m_box.IptcSaveToFile(withEnding<ffoEnding>(0, choice->path));
    });
}

} // namespace tarsel
