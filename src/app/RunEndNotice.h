// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QString;
class QWidget;

namespace tarsel {

/// Reports the end of a long run to a user who works in another program by now: the window asks for
/// attention, and the desktop shows a notification where it has a service for it. Without effect while a
/// window of this program is in use. Never waits for the desktop's answer.
void announceRunEnd(QWidget& window, const QString& title, const QString& text);

} // namespace tarsel
