// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "imaging/ImageBox.h"

#include <QWidget>

class QLayout;

namespace tarsel {

class ActionTable;
class ImageBoxView;

/// The picture on show, with the choice between the original and the picture with the tasks applied.
class PreviewPane final : public QWidget {
    Q_OBJECT
public:
    PreviewPane(ImageBox& ibMain, const ActionTable& actions, QWidget* parent = nullptr);

    ImageBoxView& ibMain() const { return *m_view; }
    /// 0 "Original", 1 "Optimized".
    int previewType() const;
    void setPreviewType(int type);

Q_SIGNALS:
    void cmdPreviewPrevious();
    void cmdPreviewNext();
    void previewTypeChosen(int type); ///< by the user, and another one than before

private:
    QLayout* makeBar();
    void connectActions();
    void chooseType();

    const ActionTable& m_actions;
    ImageBoxView* m_view;
    int m_shownType = 0;
};

} // namespace tarsel
