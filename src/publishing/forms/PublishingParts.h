// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publishing/Players.h"

#include <QColor>
#include <QtGlobal>

namespace tarsel {

class Hyperlink;

// What the dialogs of self-running files share.

/// The colour of a setting.
QColor shownColor(qint32 color);

/// Whether the player is there; else the user is informed how to get it.
bool hasPlayer(Player player, PlayerSystem system);

/// Lets the link open the samples of that kind on the maker's web site. Without such a site the link is
/// hidden.
void connectSamplesLink(Hyperlink& link, const QString& kind);

} // namespace tarsel
