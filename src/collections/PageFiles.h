// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace tarsel {

class ImageBox;

/// The folder Temp of a program folder, with a separator at its end.
QString temporaryFolder(const QString& programFolder);

/// The ways by which a picture comes into the basket. Each has its own spelling of row and page file names.
enum class AddedBy { Button, Drag, BasketFile };

/// Text of the row of a picture without pages.
QString rowName(AddedBy addedBy, const QString& fileName);

/// Text of the row of page n, from 1: "scan3" by the button, "scan(3)" by drag, "scan.tif3" from a basket
/// file.
QString pageRowName(AddedBy addedBy, const QString& fileName, int page);

/// A random first number for a document's page files. For the main thread only.
int drawPageFileNumber();

/// Makes an empty file for a page, in the folder Temp, which is made when missing, and returns its path:
/// `<name><n>_<number>.tif`, with the first number from `number` on that no file has yet. Any number
/// of threads may call it.
QString newPageFile(const QString& programFolder, AddedBy addedBy, const QString& fileName, int page,
                    int number);

/// The document, such as "scan.tif", whose page has a file of that name by the button or from a basket file.
/// Empty for any other file.
QString documentOfPageFile(const QString& fileName);

/// Saves the page that the box holds without loss and small: one bit a pixel for black and white, else LZW.
/// The box keeps its save settings.
void savePage(ImageBox& box, const QString& path);

void deletePageFile(const QString& path); ///< nothing for an empty path

/// The names of all page files in the folder Temp, those of earlier runs too, but for the acquired files that
/// are listed. None where nobody can know those.
QStringList pageFileNames(const QString& programFolder);

struct PageFilesAside {
    QString folder = {};       ///< below Temp; empty for none
    QStringList acquired = {}; ///< paths that they had; struck from the list of acquired files
};
/// Takes all page files out of the folder Temp, those of earlier runs too, into a new folder below it. Of the
/// acquired files that are listed, only those of `removed`, which are paths, go too, and are struck. What
/// can't be moved or struck stays; where nobody can know the acquired ones, all do.
PageFilesAside setPageFilesAside(const QString& programFolder, const QStringList& removed = {});

/// Moves them back; those of `acquired`, which are paths in the folder Temp, are listed again first. Returns
/// the new paths of those whose name another file has by now, by their old ones.
QHash<QString, QString> returnPageFiles(const QString& setAside, const QString& programFolder,
                                        const QStringList& acquired = {});

void deletePageFilesSetAside(const QString& setAside); ///< nothing for an empty path
/// Those of all folders, which a run that ended early left. Acquired files that are listed go back; a folder
/// with one that can't be moved stays.
void deleteAllPageFilesSetAside(const QString& programFolder);
/// Shortens the list of acquired files to those that are in the folder Temp or set aside.
void tidyAcquiredFiles(const QString& programFolder);

/// Deletes the files without an extension in the folder Temp. What can't be deleted stays.
void deleteFilesWithoutExtension(const QString& programFolder);

} // namespace tarsel
