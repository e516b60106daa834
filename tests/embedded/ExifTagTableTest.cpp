// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ExifTagTable.h"
#include "embedded/ExifTagRows.h"

#include <algorithm>
#include <exiv2/tags.hpp>
#include <gtest/gtest.h>
#include <map>
#include <string>

using namespace tarsel;

namespace {

struct ForeignTag {
    std::string name;
    int type;
};

/// The names by which users know these attributes here, where the foreign library has others.
std::string ownName(const std::string& name) {
    static const std::map<std::string, std::string> names = {
        {"ExifTag", "ExifOffset"},
        {"GPSTag", "GPSInfo"},
        {"InteroperabilityTag", "InteroperabilityOffset"},
        {"FlashpixVersion", "FlashPixVersion"},
        {"RelatedSoundFile", "RelatedAudioFile"},
        {"Thresholding", "Threshholding"},
    };
    const auto found = names.find(name);
    return found == names.end() ? name : found->second;
}

std::map<quint16, ForeignTag> foreignTags(const char* group) {
    std::map<quint16, ForeignTag> tags;
    for (const Exiv2::TagInfo* info = Exiv2::ExifTags::tagList(group); info->tag_ != 0xFFFF; ++info) {
        const int type = info->typeId_ == Exiv2::comment ? int(Exiv2::undefined) : int(info->typeId_);
        tags[info->tag_] = {ownName(info->name_), type};
    }
    return tags;
}

constexpr quint16 tileOffsets = 0x0144; // LONG in TIFF 6.0, SHORT in the foreign library

} // namespace

TEST(ExifTagTable, NamesNumbersAndTypesAreThoseOfAForeignLibrary) {
    const std::pair<ExifGroup, const char*> groups[] = {
        {ExifGroup::Image, "Image"},
        {ExifGroup::Photo, "Photo"},
        {ExifGroup::Gps, "GPSInfo"},
        {ExifGroup::Interoperability, "Iop"},
    };
    for (const auto& [group, word] : groups) {
        std::map<quint16, ForeignTag> foreign = foreignTags(word);
        EXPECT_TRUE(std::ranges::is_sorted(exifTagRows(group), std::less_equal{}, &ExifTagRow::tag)) << word;
        for (const ExifTagRow& row : exifTagRows(group)) {
            const auto found = foreign.find(row.tag);
            if (found == foreign.end()) {
                ADD_FAILURE() << word << " only ours: " << row.name;
                continue;
            }
            EXPECT_EQ(row.name, found->second.name) << word;
            EXPECT_TRUE(int(row.type) == found->second.type || row.tag == tileOffsets)
                << word << ' ' << row.name << ": " << found->second.type;
            foreign.erase(found);
        }
        for (const auto& [tag, missing] : foreign)
            ADD_FAILURE() << word << " missing: " << std::hex << tag << ' ' << missing.name << ' ' << std::dec
                          << missing.type;
    }
}
