// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <span>

namespace tarsel {

/// Where the manual explains a window, a pane or a task.
struct HelpTopic {
    const char* name;  ///< object name of the window or pane, or key of the task
    const char* place; ///< page, or page#anchor
};

std::span<const HelpTopic> helpTopics();

/// "page" or "page#anchor"; empty for a name that the table doesn't have.
QString helpTopic(const QString& name);

} // namespace tarsel
