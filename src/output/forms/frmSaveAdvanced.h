// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/StatusLine.h"
#include "configuration/ConfigRecord.h"
#include "controls/FormBinding.h"
#include "imaging/ImageBox.h"
#include "output/LiveRoundTrip.h"
#include "output/forms/OptimizedPanes.h"

#include <QDialog>
#include <QTimer>
#include <memory>

class QCheckBox;

namespace tarsel {

namespace Ui {
class frmSaveAdvanced;
}

class BackgroundSave;
class ColorWell;

/// Saves one picture in any format and shows before what the format makes of it. Each change of an option
/// takes the picture through the encoder and back; the file that is saved has exactly the bytes whose size
/// and pixels are on show.
///
/// Its layout is frmSaveAdvanced.ui; the table `fields` joins the controls with the record.
class frmSaveAdvanced final : public QDialog {
    Q_OBJECT
public:
    struct Start {
        ImageBox picture;        ///< its metadata go into the file; Tag is the path it was read from
        QString source;          ///< the user's file, for the name that is offered
        QString temporaryFolder; ///< where the file of the last round trip stays
    };

    /// The record is kept up to date as options change. `batch` gets this dialog's options when the user
    /// wants that.
    frmSaveAdvanced(Start start, settings::SaveAdvanced& settings, settings::BatchSave& batch,
                    BackgroundSave& background, QWidget* owner = nullptr);
    ~frmSaveAdvanced() override;
    frmSaveAdvanced(const frmSaveAdvanced&) = delete;
    frmSaveAdvanced& operator=(const frmSaveAdvanced&) = delete;

    /// Whether a picture may be saved now.
    void offerSaving(bool offered);
    /// Whether size and right pane are those of the file that a save would write.
    bool isExact() const { return m_roundTrip.result() != nullptr; }
    int roundTripsBegun() const { return m_roundTrip.begun(); }
    bool shows(const Picture& picture) const { return m_start.picture.picture() == picture; }
    void done(int result) override;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void subSetUp();
    void shapeControls();
    bool hasStoredSize() const;
    void restoreSize();
    void showAllOptions();
    void buildZoomMenu();
    void makeStatusBar();
    void connectOptions();
    void changeFormat();
    void subColorFormat();
    void changeColors();
    void showQuality();
    void followOption();
    void subOptimize();
    void subSaveSettings();
    void showExact();
    void showOriginalInstead();
    void showDetails();
    void showFailure(const TrappedError& error);
    void clearResult();
    void showWaiting();
    void showZoom();
    void setPreviewLayout(PreviewLayout layout);
    void setPanel(const char* key, const QString& text) { m_status.setPanel(QLatin1String(key), text); }
    ColorWell& swatchInUse() const;
    void follow(QPoint pixel);
    void takePicked();
    void useForBatch();
    void cmdSave_Click();
    void savePending();

    Start m_start;
    settings::SaveAdvanced& m_settings;
    settings::BatchSave& m_batch;
    BackgroundSave& m_background;
    std::unique_ptr<Ui::frmSaveAdvanced> m_ui;
    std::unique_ptr<FormBinding<settings::SaveAdvanced>> m_binding;
    StatusLine m_status;
    OptimizedPanes* m_panes;
    QTimer m_patience; ///< before the dialog says that it is computing
    QTimer m_typing;   ///< while a number is being typed
    QTimer m_scrolling;
    ImageBox m_optimized;
    std::optional<Color> m_pointed;
    std::optional<RoundTripSettings> m_wanted;
    QString m_target; ///< is saved as soon as its bytes are there
    bool m_offersSaving = true;
    LiveRoundTrip m_roundTrip;
};

} // namespace tarsel
