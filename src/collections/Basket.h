#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "imaging/ImageBox.h"
#include "imaging/fncLoadPicture.h"

#include <QString>
#include <QStringList>
#include <functional>

namespace tarsel {

/// The lists and boxes that basket and folder view work on: the window makes them and lends them.
struct CollectionLists {
    ListView& lvFolder;
    ImageList& ilFolder;
    ListView& lvPages;
    ImageList& ilPages;
    ImageBox& ibMain;
    Progress& pbQueue;
    StatusLine& sbMain;
};

/// What the collections need of the settings, as values.
struct CollectionSettings {
    QString programFolder; ///< the folder in which Temp lies
    Size folderThumb{40, 40};
    Size basketThumb{40, 40};
    bool longFileSize = false;
    int folderView = 0; ///< 0 thumbnails, 3 details
};

/// The folder Temp of a program folder, with a separator at its end.
QString temporaryFolder(const QString& programFolder);

/// Headers of the basket list: text and SubItems 1 to 5.
QStringList basketHeaders();
namespace BasketColumn {
constexpr int Resolution = 1;
constexpr int FileSize = 2;
constexpr int Type = 3;
constexpr int SourcePath = 4;
constexpr int Description = 5;
} // namespace BasketColumn

/// Makes the value that an ImageList holds of a picture. The window gives one that makes an icon; without one
/// (the command line) thumbnails are not made at all.
using ThumbnailMaker = std::function<QVariant(const Picture&)>;

/// The basket: the working set of pictures and pages of documents.
class Basket {
public:
    Basket(CollectionLists lists, CollectionSettings settings, ThumbnailMaker thumbnails = {});

    CollectionSettings settings;

    /// Adds the selected rows of lvFolder. Trapped as "FrmMain.cmdAddToQueue_Click".
    void cmdAddToQueue_Click();
    /// The same for a drop from lvFolder, with its own row names and texts.
    void AddToBasketByDrag();
    /// Adds one file by path, as from a basket file. Trapped as "subAddEntryToListView".
    void subAddEntryToListView(const QString& path);
    /// Files that the last adding could not read.
    const QStringList& LTemp() const { return m_failed; }

    void cmdPagesDelete(); ///< removes the selected rows
    void cmdPagesNew();    ///< empties the basket and deletes all page files, without asking
    /// Moves the selected rows to the row `target`, as a drop of the focused row there.
    void MoveRowsTo(int target);

private:
    struct Source;
    bool addDocumentPage(const Source& source, int page, bool thumbnailFromFile);
    void showCount();

    CollectionLists m_lists;
    ThumbnailMaker m_thumbnails;
    QStringList m_failed;
};

} // namespace tarsel
