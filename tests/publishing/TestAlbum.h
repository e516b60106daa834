// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publishing/AlbumGenerator.h"
#include "tests/output/TestBasket.h"

#include <gtest/gtest.h>

namespace tarsel::test {

/// A basket, and albums of it in the folder "out".
class TestAlbum : public testing::Test, public TestBasket {
protected:
    TestAlbum() {
        QDir().mkpath(path("out"));
        options.settings.AlbumFolder = path("out");
        options.font = text("Sans");
    }
    bool generate() {
        results.clear();
        const auto all = [this] { return std::vector(size_t(tasks.count()), tasks.row(0)); };
        return fncGenerateAlbum({pages, box, all}, options, progress, albumRun, results);
    }

    AlbumOptions options;
    AlbumRun albumRun;
};

} // namespace tarsel::test
