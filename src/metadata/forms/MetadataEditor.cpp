// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/MetadataEditor.h"

#include "base/DialogSubject.h"
#include "base/Dialogs.h"
#include "base/EditLock.h"
#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/Locale.h"
#include "base/SaveFileDialog.h"
#include "embedded/IptcFields.h"
#include "metadata/forms/ChangedRows.h"
#include "metadata/forms/MetadataRefusal.h"
#include "metadata/forms/frmExifEditAttribute.h"
#include "metadata/forms/frmExifNewAttribute.h"
#include "metadata/forms/frmIPTCCategory.h"
#include "metadata/forms/frmIPTCKeywords.h"

#include <QFileInfo>
#include <QScopedValueRollback>

namespace tarsel {

namespace {

const QString keywords = QStringLiteral("Keywords");
const QString categories = QStringLiteral("Supplemental Categories");

QString xiffFilter() {
    return MetadataEditor::tr("EXIF File (*.xiff)|*.xiff");
}
QString ffoFilter() {
    return MetadataEditor::tr("IPTC File Info (*.ffo)|*.ffo");
}

QString extensionOf(const QString& path) {
    return QFileInfo(path).suffix().toLower();
}

bool asks(const QString& text) {
    return service<Dialogs>().messageBox(text, MessageIcon::Question, MessageButtons::YesNo,
                                         ApplicationName) == MessageAnswer::Yes;
}

void inform(const QString& text, MessageIcon icon) {
    service<Dialogs>().messageBox(text, icon, MessageButtons::Ok, ApplicationName);
}

/// Rows of a side file have a key alone.
QString attributeOf(const ListRow& row) {
    return row.tag.isEmpty() ? row.key : row.tag;
}

/// A new value as its row shows it.
QString shownText(bool isIptc, const modMetadata::AttributeValue& value) {
    const auto* date = std::get_if<QDateTime>(&value);
    if (!date)
        return std::get<QString>(value);
    return isIptc ? shortDateText(*date, service<Locale>().dateForms())
                  : formatDate(*date, modMetadata::ExifRowDate);
}

/// A list as the file has it now, with what the user added to the list on show and removed from it: the items
/// that another program has added meanwhile stay.
QStringList mergedItems(const QStringList& shown, const QStringList& wanted, const QStringList& present) {
    if (present == shown)
        return wanted;
    QStringList items = present;
    for (const QString& item : shown)
        if (!wanted.contains(item))
            items.removeAll(item);
    for (const QString& item : wanted)
        if (!shown.contains(item) && !items.contains(item))
            items << item;
    return items;
}

} // namespace

MetadataEditor::MetadataEditor(ImageBox& ibMain, ListView& lvExif, ListView& lvIPTC, QWidget* owner) :
    QObject(owner), m_box(ibMain), m_exif(lvExif), m_iptc(lvIPTC), m_owner(owner) {
    connect(&m_change, &FileChange::slowChanged, this, &MetadataEditor::slowChanged);
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
    m_isBusy = true;
    m_routine = routine;
    m_path = m_box.Tag;
    TrappingString = trappingText;
    {
        const ErrorSubject subject(m_path);
        const DialogSubject dialogSubject("PicMetadata");
        runOrRefuse(routine, body);
    }
    m_isBusy = false;
    if (isShown())
        Q_EMIT metadataChanged();
    Q_EMIT ended();
}

bool MetadataEditor::isShown() const {
    return m_box.HasImage() && m_box.Tag == m_path && !isLoading();
}

/// Changes the metadata that the file holds now, and those of the box and the lists when its picture is still
/// on show; the caller takes care of the rows of the EXIF attributes `own`, which the change may name. False
/// when the change was refused.
bool MetadataEditor::change(const Change& change, const QStringList& own) {
    const QString path = m_path;
    ImageBox edited;
    edited.PageNumber = m_box.PageNumber;
    bool isDone = false;
    m_change.run([&] {
        const EditLock lock(path);
        modMetadata::ReadMetadata(path, edited);
        isDone = change(path, edited);
    });
    if (isDone && isShown()) {
        showChangedExif(m_exif, m_box.metadata(), edited.metadata(), own);
        showChangedIptc(m_iptc, m_box.metadata(), edited.metadata(), service<Locale>().dateForms());
        m_box.metadata() = edited.metadata();
    }
    if (const QStringList remarks = modMetadata::remarksOn(edited.metadata()); isDone && !remarks.isEmpty())
        Q_EMIT remarked(remarks.join(QStringLiteral("; ")));
    return isDone;
}

/// Without a message box where the value doesn't fit: the row stays as it was.
bool MetadataEditor::update(bool isIptc, const QString& name, const modMetadata::AttributeValue& value) {
    TrappingString = tr("Updating metadata attribute");
    const DateForms forms = service<Locale>().dateForms();
    const bool isDone = change(
        [&](const QString& path, ImageBox& box) {
            return modMetadata::UpdateMetadataAttribute(path, isIptc, name, value, box, forms);
        },
        {name});
    if (!isDone)
        Q_EMIT remarked(
            tr("%1 can't take this value: %2")
                .arg(isIptc ? modMetadata::IptcLabelInWords(name) : name, shownText(isIptc, value)));
    return isDone;
}

void MetadataEditor::showInRow(const QString& name, const QString& value) {
    const int row = list().selectedIndex();
    if (isShown() && row >= 0 && nameOf(row) == name)
        list().setSubItem(row, 1, value);
}

QString MetadataEditor::nameOf(int row) const {
    return CurrentMetadataTab == Exif ? attributeOf(m_exif.row(row)) : m_iptc.row(row).text;
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
        const QString name = nameOf(row);
        if (name == categories)
            editCategories();
        else if (name == keywords)
            editKeywords();
        else
            editText(name, chosen.subItems.value(0));
    });
}

/// Until what the dialog asks for is written, or the user gives it up: a failure takes nothing that was
/// typed.
void MetadataEditor::ask(QDialog& dialog, const std::function<void()>& write) {
    while (dialog.exec() == QDialog::Accepted && !runOrRefuse(m_routine, write) && isShown() &&
           m_owner->isVisible()) {
    }
}

void MetadataEditor::editText(const QString& name, const QString& value) {
    frmExifEditAttribute dialog(name, value, m_owner);
    ask(dialog, [&] {
        const bool isIptc = CurrentMetadataTab == Iptc;
        const modMetadata::AttributeValue entered = dialog.MetadataValue();
        if (update(isIptc, name, entered))
            showInRow(name, shownText(isIptc, entered));
    });
}

void MetadataEditor::editKeywords() {
    const QStringList shown = iptcList(m_box.metadata(), "IptcKeyword");
    frmIPTCKeywords dialog(shown, m_owner);
    ask(dialog, [&] {
        const QStringList wanted = dialog.keywords();
        change([&](const QString& path, ImageBox& box) {
            const QStringList present = iptcList(box.metadata(), "IptcKeyword");
            modMetadata::SetIptcList(path, keywords, mergedItems(shown, wanted, present), box);
            return true;
        });
    });
}

/// "None" leaves an urgency that is there.
void MetadataEditor::editCategories() {
    const QStringList shown = iptcList(m_box.metadata(), "IptcSupplementalCategory");
    frmIPTCCategory dialog(shown, iptcUrgency(m_box.metadata()), m_owner);
    ask(dialog, [&] {
        const QStringList wanted = dialog.categories();
        const int urgency = dialog.urgency();
        change([&](const QString& path, ImageBox& box) {
            if (urgency != 0)
                setIptcUrgency(box.metadata(), urgency);
            const QStringList present = iptcList(box.metadata(), "IptcSupplementalCategory");
            modMetadata::SetIptcList(path, categories, mergedItems(shown, wanted, present), box);
            return true;
        });
    });
}

void MetadataEditor::subAddExifAttribute() {
    run("FrmMain.subAddExifAttribute", tr("Adding new metadata attribute!"), [this] {
        const QStringList served{QStringLiteral("jpeg"), QStringLiteral("jpg"), QStringLiteral("tif"),
                                 QStringLiteral("tiff")};
        if (CurrentMetadataTab == Iptc || !served.contains(extensionOf(m_path)))
            return;
        frmExifNewAttribute dialog(m_exif, m_owner);
        ask(dialog, [&] { addExif(dialog.MetadataName(), dialog.MetadataValue()); });
    });
}

void MetadataEditor::addExif(const QString& name, const modMetadata::AttributeValue& value) {
    if (!update(false, name, value) || !isShown())
        return;
    ListRow row;
    row.text = row.key = row.tag = name;
    row.icon = modMetadata::editableIcon;
    row.subItems = {shownText(false, value)};
    m_exif.add(row);
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
    const QString name = nameOf(row);
    bool isThere = false;
    const bool isDone = change([&](const QString& path, ImageBox& box) {
        isThere = box.metadata().HasExif(name);
        return modMetadata::DeleteExifAttribute(path, name, box);
    });
    if (isDone) {
        if (isShown() && m_exif.selectedIndex() < 0)
            m_exif.selectOnly(std::min(row, m_exif.count() - 1));
        return;
    }
    const QString reason = isThere ? tr("%1 can't be removed: the picture or other attributes depend on it.")
                                   : tr("The file has no attribute %1.");
    inform(tr("Error deleting attribute") + QLatin1Char('\n') + reason.arg(name), MessageIcon::Stop);
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
        const auto choice = service<Dialogs>().openFileDialog({tr("Open EXIF .xiff file"), xiffFilter(), {}});
        if (!choice)
            return;
        const DateForms forms = service<Locale>().dateForms();
        QList<std::pair<QString, QString>> applied;
        QStringList names;
        const auto apply = [&](const QString& path, ImageBox& box) {
            applied = modMetadata::ApplyXiffFile(choice->path, box, forms);
            for (const auto& [name, value] : applied)
                names << name;
            if (!applied.isEmpty())
                box.SaveMetadataOnly(path);
            return true;
        };
        const bool isDone = change(apply, names);
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
        const auto path =
            savePathFor({tr("Save EXIF Information to file"), xiffFilter(), {}}, QStringLiteral(".xiff"));
        if (!path)
            return;
        if (const QString remark = modMetadata::remarkOnXiffFile(m_exif); !remark.isEmpty())
            Q_EMIT remarked(remark);
        if (modMetadata::WriteXiffFile(*path, m_exif) == 0)
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
        const auto choice = service<Dialogs>().openFileDialog({tr("Open IPTC .ffo file"), ffoFilter(), {}});
        if (!choice)
            return;
        const bool isDone = change([&](const QString& path, ImageBox& box) {
            box.IptcLoadFromFile(choice->path);
            if (box.HasIptc())
                box.SaveMetadataOnly(path);
            return box.HasIptc();
        });
        if (!isDone)
            Q_EMIT remarked(modMetadata::remarkOnEmptyFfo(choice->path));
    });
}

void MetadataEditor::saveIptcFile() {
    run("FrmMain.cmdIPTCBar", tr("Save IPTC Information"), [this] {
        if (m_iptc.isEmpty())
            return;
        const auto path = savePathFor({tr("Save IPTC Information"), ffoFilter(), {}}, QStringLiteral(".ffo"));
        if (path)
            m_box.IptcSaveToFile(*path);
    });
}

} // namespace tarsel
