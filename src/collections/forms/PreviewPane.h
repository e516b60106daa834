// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/PreviewPicture.h"
#include "imaging/ImageBox.h"

#include <QWidget>

class QHBoxLayout;
class QToolButton;

namespace tarsel {

class ActionTable;
class ImageBoxView;
class ShortenedButtons;

/// The picture on show, with the choice of its size, and between the original and the picture with the tasks
/// applied.
class PreviewPane final : public QWidget {
    Q_OBJECT
public:
    PreviewPane(ImageBox& ibMain, const ActionTable& actions, QWidget* parent = nullptr);

    ImageBoxView& ibMain() const { return *m_view; }
    /// To be called when there is another picture to show, or none.
    void pictureChanged(const PreviewPicture& shown);
    /// Whether the picture on show may be saved now.
    void offerSaving(bool offered);
    /// Whether the bar's buttons have mnemonics; a panel beside the picture may need their keys.
    void offerMnemonics(bool offered);
    /// 0 "Original", 1 "Optimized".
    int previewType() const { return m_shownType; }
    void setPreviewType(int type);
    /// 0 "Best Fit", 1 "Actual Size".
    int previewFit() const { return m_shownFit; }
    void setPreviewFit(int fit);

Q_SIGNALS:
    void cmdPreviewPrevious();
    void cmdPreviewNext();
    void previewTypeChosen(int type); ///< by the user, and another one than before
    void previewFitChosen();          ///< the same; the picture has its new size
    void saveImageDocument();
    void saveInteractively();
    void saveGreeting();

private:
    /// A menu of which one item is checked, whose text and icon the button repeats.
    struct Choice {
        const char* button;
        const char* menu;
        const char* items[2];
        const char* blanks; ///< at the end of the button's text
    };
    static const Choice typeChoice;
    static const Choice fitChoice;

    void fillBar();
    void connectActions();
    void connectView();
    int checkedItem(const Choice& choice) const;
    void check(const Choice& choice, int item);
    QString withMnemonic(const QAction& button, QString caption) const;
    void connectChoice(const Choice& choice, void (PreviewPane::*choose)());
    void addMenuButton(const char* name, const char* menu, std::initializer_list<const char*> items);
    void addTextButton(QToolButton* button);
    void enableSaving();
    void chooseType();
    void chooseFit();

    const ImageBox& m_box;
    const ActionTable& m_actions;
    ImageBoxView* m_view;
    QHBoxLayout* m_bar;
    ShortenedButtons* m_shortened;
    int m_shownType = 0;
    int m_shownFit = 0;
    bool m_offersSaving = true;
    bool m_offersMnemonics = true;
};

} // namespace tarsel
