// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/collections/CollectionWindow.h"

#include "base/ErrorTrap.h"
#include "tests/support/Corpus.h"

using namespace tarsel;
using namespace tarsel::test;

namespace {

class CollectionsOnCorpus : public CollectionWindow {
protected:
    /// Adds a file by path to an empty basket and returns the number of rows.
    int rowsOf(const QString& path, bool thumbnails) {
        settings.thumbnails = thumbnails;
        Basket pages = basket();
        pages.empty();
        pages.subAddEntryToListView(path);
        return lvPages.count();
    }
};

} // namespace

TEST_F(CollectionsOnCorpus, EveryPictureThatOpensIsAddedWithItsPagesAndItsSize) {
    TARSEL_REQUIRE_CORPUS();
    for (const CorpusPicture& picture : corpusPictures()) {
        ImageBox box;
        const bool opens = ignoringErrors([&] { box.LoadFromFile(picture.path); });
        if (!opens || picture.fact("state") != QLatin1String("valid"))
            continue;
        const std::string name = picture.path.toStdString();
        const bool document = mayHavePages(picture.fact("format"));
        const int rows = document ? std::max(1, picture.number("pages")) : 1;
        for (const bool thumbnails : {true, false}) {
            EXPECT_EQ(rowsOf(picture.path, thumbnails), rows) << name;
            EXPECT_EQ(lvPages.subItem(0, BasketColumn::Resolution),
                      QStringLiteral("%1 X %2").arg(box.Width()).arg(box.Height()))
                << name;
        }
    }
}
