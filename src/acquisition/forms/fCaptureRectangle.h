// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/forms/FrozenScreen.h"

#include <QObject>
#include <memory>
#include <vector>

class QFrame;
class QLabel;
class QLayout;

namespace tarsel {

class CapturePane;

/// Shows the screen as it was, on all monitors, for a region to be cut out of it.
class fCaptureRectangle final : public QObject {
    Q_OBJECT
public:
    fCaptureRectangle();
    ~fCaptureRectangle() override;

    void ShowPicture(ScreenPicture screen);
    /// Takes the panes off the screen.
    void hide();

Q_SIGNALS:
    void taken(const tarsel::Picture& picture);
    void left();

private:
    void coverMonitors();
    void leaveOldMonitors();
    void addBar(CapturePane& pane);
    void addButtons(QLayout& row);
    void moveBar();
    void placeBar();
    void toggleKeys();
    void take();

    std::unique_ptr<FrozenScreen> m_frozen;
    std::vector<std::unique_ptr<CapturePane>> m_panes;
    QFrame* m_bar = nullptr;  ///< a child of the first monitor's pane
    QLabel* m_keys = nullptr; ///< in the bar
    bool m_barIsBelow = false;
};

} // namespace tarsel
