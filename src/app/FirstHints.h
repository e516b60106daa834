// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <QObject>

namespace tarsel {

class NoticeBar;

/// Three hints for a newcomer, each when its moment has come: what is listed, how to choose a task, how to
/// save; the empty basket itself says how pictures come into it. One that was closed, or whose work was done
/// without it, doesn't come again.
class FirstHints final : public QObject {
    Q_OBJECT
public:
    enum Hint { OwnPictures, ChooseTask, SaveBasket, HintCount };

    FirstHints(NoticeBar& bar, settings::WindowSettings& settings, QObject* parent = nullptr);

    void beginFirstRun(); ///< none of them was seen
    void offer(Hint hint);
    void done(Hint hint);

private:
    void setSeen(const QString& text);

    NoticeBar& m_bar;
    settings::WindowSettings& m_settings;
};

} // namespace tarsel
