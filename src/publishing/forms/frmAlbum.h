// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/FormBinding.h"
#include "publishing/AlbumOptions.h"

#include <QDialog>
#include <memory>

namespace tarsel {

namespace Ui {
class frmAlbum;
}

/// The options of a web album. It shows those of the last time and writes them back on Generate. The lines of
/// metadata are not among what is kept. Modeless.
///
/// Its layout is frmAlbum.ui; albumFields joins the controls with the record.
class frmAlbum final : public QDialog {
    Q_OBJECT
public:
    explicit frmAlbum(settings::Album& settings, QWidget* owner = nullptr);
    ~frmAlbum() override;
    frmAlbum(const frmAlbum&) = delete;
    frmAlbum& operator=(const frmAlbum&) = delete;

Q_SIGNALS:
    /// Generate was pressed: the dialog is hidden, and closes after this.
    void generate(const tarsel::AlbumOptions& options);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void subLoadAlbumOptions();
    AlbumOptions subStoreAlbumOptions();
    void joinNumbers();
    void showImages();
    void connectButtons();
    void showBackgrounds();
    void showTemplate();
    void cmdGenerate_Click();
    void browseFolder();
    QStringList lines() const;
    void setLines(const QStringList& lines);
    void addLine(const QString& line);
    void chooseLines();
    void removeLine();
    void openLines();
    void saveLines();

    settings::Album& m_settings;
    std::unique_ptr<Ui::frmAlbum> m_ui;
    std::unique_ptr<FormBinding<settings::Album>> m_binding;
};

} // namespace tarsel
