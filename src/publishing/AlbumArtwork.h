// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// The GIF images that come with an album.
namespace tarsel::albumArtwork {

constexpr const char* navigation[] = {"FIRST", "NEXT", "LAST", "PREVIOUS", "HOME"};
constexpr const char* pageImages[] = {"VIOLET.GIF", "RED.GIF", "GREEN.GIF", "GREY.GIF", "YELLOW.GIF"};
constexpr const char* containerImages[] = {"BLUE_CELL.GIF", "RED_CELL.GIF", "GREEN_CELL.GIF",
                                           "BLACK_CELL.GIF", "ORANGE_CELL.GIF"};

/// The image of an option group; error 9 for a number that it doesn't have.
QString pageImage(int index);
QString containerImage(int index);

/// The bytes of a resource, by its type, "ALBUM" or "BACKGROUND", and its name. Error 53 when there is none.
QByteArray resource(const QString& type, const QString& name);

} // namespace tarsel::albumArtwork
