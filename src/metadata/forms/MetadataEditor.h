// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "imaging/ImageBox.h"
#include "metadata/forms/FileChange.h"
#include "metadata/modMetadata.h"

#include <QObject>
#include <functional>

class QDialog;
class QWidget;

namespace tarsel {

/// The commands of the metadata pane. Each change goes into the file of the picture on show at once; until it
/// is written, the commands do nothing. What is changed is what the file holds at that moment, so that other
/// programs' changes stay. Then the lists show what is different in the file, each row in its place. A
/// command belongs to the picture on show when it begins, whatever is selected before it ends; without one it
/// does nothing.
class MetadataEditor final : public QObject {
    Q_OBJECT
public:
    enum Tab { Exif = 0, Iptc = 1 };

    /// `ibMain` holds the picture on show, whose path is in its Tag.
    MetadataEditor(ImageBox& ibMain, ListView& lvExif, ListView& lvIPTC, QWidget* owner);

    Tab CurrentMetadataTab = Exif;
    /// Whether another picture is about to take the place of the one on show: commands do nothing then.
    std::function<bool()> isLoading = [] { return false; };

    bool isWriting() const { return m_change.isRunning(); }

    void cmdEXIFBar(int index);
    void cmdIPTCBar(int index);
    void subEditAttribute();
    void subAddExifAttribute();
    void subDeleteAttribute();
    void subClearAllAttributes();

Q_SIGNALS:
    void metadataChanged();        ///< of the picture on show
    void slowChanged(bool isSlow); ///< writing a file takes long, or such a one is written
    /// What a change could not do: a value that its attribute can't take, an XMP packet that can't follow.
    void remarked(const QString& text);
    void ended(); ///< the command, with its messages

private:
    using Change = std::function<bool(const QString& path, ImageBox& box)>;

    void run(const char* routine, const QString& trappingText, const std::function<void()>& body);
    bool change(const Change& change, const QStringList& own = {});
    bool update(bool isIptc, const QString& name, const modMetadata::AttributeValue& value);
    ListView& list() const { return CurrentMetadataTab == Exif ? m_exif : m_iptc; }
    bool isShown() const; ///< the picture that the command in work is about

    QString nameOf(int row) const; ///< the attribute of a row of the current list
    void ask(QDialog& dialog, const std::function<void()>& write);
    void editText(const QString& name, const QString& value);
    void editKeywords();
    void editCategories();
    void addExif(const QString& name, const modMetadata::AttributeValue& value);
    void showInRow(const QString& name, const QString& value);
    void deleteExif();
    void deleteIptc();
    bool clear(ListView& rows, const QString& question, const Change& clearing);
    void LoadXiffFile();
    void SaveXiffFile();
    void showXiffRow(const QString& name, const QString& value);
    void openIptcFile();
    void saveIptcFile();

    ImageBox& m_box;
    ListView& m_exif;
    ListView& m_iptc;
    QWidget* m_owner;
    FileChange m_change;
    const char* m_routine = "";
    QString m_path; ///< of the picture that the command in work is about
    bool m_isBusy = false;
};

} // namespace tarsel
