// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "configuration/ConfigRecord.h"

#include <QDialog>
#include <QTimer>
#include <array>

class QBoxLayout;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;

namespace tarsel {

class NamePreview;

/// The dialog of the batch save. It shows the answers of the last time and writes them back on Save; whether
/// the run goes ahead is told by BatchSave::Confirmed alone, not by the dialog's result.
///
/// Option buttons are named after their group and index: "OptName_0".
class frmSaveSinglePage final : public QDialog {
    Q_OBJECT
public:
    /// The lists serve the preview of names; they must not change while the dialog lives.
    frmSaveSinglePage(BatchSave& settings, const ListView& lvPages, const ListView& lvEditBatch,
                      QWidget* owner = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// A check box that opens a path field and its Browse button.
    struct ImportRow {
        QCheckBox* check = nullptr;
        QLineEdit* path = nullptr;
        QPushButton* browse = nullptr;
    };

    QWidget* makePictureGroup();
    QWidget* makeDestinationGroup();
    QWidget* makeNameGroup();
    QWidget* makeImportGroup();
    QBoxLayout* makeButtons();
    QButtonGroup* makeOptions(const char* name, const QStringList& texts);
    QComboBox* makeTextBox(const char* name, const char* meaning, const QStringList& entries);
    ImportRow addImport(QBoxLayout* box, const char* kind, const char* dialogTitle, const char* filter);
    void arrange();

    void subSetUp();
    void connectChanges();
    void enableControls();
    void browseFolder();
    void browseImport(QLineEdit* path, const char* title, const char* filter);

    void cmdStarConversion_Click();
    void cmdExit_Click();
    bool countIsAccepted();
    void copyNames(BatchSave& settings) const;
    void copyDestination(BatchSave& settings) const;
    void copyImports(BatchSave& settings) const;
    void previewNames();

    BatchSave& m_settings;
    QSlider* sldJPGQuality = nullptr;
    QLabel* lblJPGQuality = nullptr;
    QCheckBox* chkJPGProgressive = nullptr;
    QButtonGroup* optJPEGDepth = nullptr;
    QCheckBox* chkProcessEditingList = nullptr;
    QButtonGroup* OptName = nullptr;
    QComboBox* cboRenamePrefix = nullptr;
    QComboBox* cboSeparator1 = nullptr;
    QComboBox* cboSeparator2 = nullptr;
    QComboBox* cboRenameSuffix = nullptr;
    QLineEdit* txtRenameGeneric = nullptr;
    QComboBox* cboRenameGeneric = nullptr;
    QButtonGroup* optDestinationFolder = nullptr;
    QLineEdit* txtDestinationFolder = nullptr;
    QPushButton* cmdDestinationFolder = nullptr;
    QCheckBox* chkOverwrite = nullptr;
    ImportRow m_exif;
    ImportRow m_iptc;
    NamePreview* m_preview = nullptr;
    QTimer m_previewDelay;
};

} // namespace tarsel
