// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

/// The pictures of scanner and screen in the folder Temp. Page files of documents, which are there too, can
/// be made again; an acquired picture has no other file.
///
/// A list in that folder names them. The rule, which holds after a kill at any moment: a picture is listed
/// before its file is made, nothing deletes a file that is listed, and a name is struck only when the user
/// removes its row from the basket. So what no basket names at the next start is still there and known.
///
/// The list is only ever appended to while pictures come: "+name" lists one, "-name" strikes it, and the last
/// word counts. Any number of threads may call these functions, but for tidy().
namespace tarsel::acquiredFiles {

/// Lists files, all of one folder, which exists. It is on the disk then, where `isDurable` (which takes its
/// time); else it survives the program, not the system. Raises why it could not be written.
void list(const QStringList& paths, bool isDurable);

/// Lists the file `path`, durably, where it is in `folder` by whatever way: a link, or another place of the
/// same file system. For a file that is about to be made.
void listIfIn(const QString& folder, const QString& path);

/// Lists those of `paths` that are in the folder and were struck, or never listed: they are rows again, and
/// not of a document. Does what it can.
void listAgain(const QString& folder, const QStringList& paths);

/// Those of the folder that are listed, by name, in the order in which they came; some may have gone. Raises
/// why the list could not be read, also when it is damaged: then nobody knows them all.
QStringList listed(const QString& folder);

/// The same as paths, without those that have gone or are no files.
QStringList present(const QString& folder);

/// Strikes those of `paths` that are in the folder and listed, and returns them; nothing where the list can't
/// be read or written, which leaves all listed.
std::optional<QStringList> strike(const QString& folder, const QStringList& paths);

/// Shortens the list to those that are present, or whose names are in `elsewhere`. A damaged one gets all
/// pictures that aren't named like pages of documents. Where nobody lists meanwhile.
void tidy(const QString& folder, const QStringList& elsewhere = {});

} // namespace tarsel::acquiredFiles
