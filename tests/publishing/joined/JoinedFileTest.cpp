// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/joined/JoinedOptions.h"
#include "publishing/joined/JoinedReader.h"
#include "publishing/joined/JoinedWriter.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::joined;

namespace {

ByteSource sourceOf(const std::string& bytes) {
    return {[&bytes](std::int64_t at, void* target, std::int64_t count) {
                const auto there = std::clamp<std::int64_t>(std::int64_t(bytes.size()) - at, 0, count);
                std::memcpy(target, bytes.data() + at, std::size_t(there));
                return there;
            },
            std::int64_t(bytes.size())};
}

struct Named {
    const char* name;
    const char* jpeg;
};

std::string joinedFile(const std::vector<Named>& pictures, const std::string& options) {
    std::string file;
    JoinedWriter writer([&](std::string_view bytes) { file += bytes; });
    writer.player("PLAYER");
    for (const Named& picture : pictures)
        writer.picture(picture.name, picture.jpeg);
    EXPECT_TRUE(writer.finish(options));
    EXPECT_EQ(writer.size(), file.size());
    return file;
}

const SaverOptions saver{0x00332211, 9};

TEST(JoinedFile, HasItsBytes) {
    using namespace std::string_literals;
    EXPECT_EQ(joinedFile({{"one", "JPEG-1"}, {"two; or\n3", "22"}, {"OPTIONS", "3"}}, bytesOf(saver)),
              "PLAYER\0"
              "JPEG-1\0"
              "22\0"
              "3\0"
              "\x11\x22\x33\0\x09\0"
              "one;7;6;\r\ntwo, or 3;14;2;\r\nOPTIONS ;17;1;\r\nOPTIONS;19;\r\n\0"
              "\x08\0\x0B\0"
              "25        \0"s);
}

/// As a player does it: with nothing but the file's length.
TEST(JoinedFile, APlayersStepsFindEverything) {
    const std::string file = joinedFile({{"one", "JPEG-1"}}, bytesOf(saver));
    const std::size_t length = file.size(), position = std::stoul(file.substr(length - 11, 10));
    const std::string list = file.substr(position, length - position - 19);
    EXPECT_EQ(list, "one;7;6;\r\nOPTIONS;14");
    EXPECT_EQ(saverOptions(file.substr(14, 6)), saver);
}

TEST(JoinedFile, IsReadBackAndADamagedOneRefused) {
    const std::string file = joinedFile({{"one", "JPEG-1"}, {"two", "22"}}, bytesOf(saver));
    const auto contents = readJoined(sourceOf(file));
    ASSERT_TRUE(contents);
    ASSERT_EQ(contents->pictures.size(), 2U);
    EXPECT_EQ(contents->pictures[1].name, "two");
    EXPECT_EQ(blockOf(sourceOf(file), contents->pictures[1].offset, contents->pictures[1].size), "22");
    EXPECT_EQ(contents->optionsOffset, 17U);
    EXPECT_EQ(readJoined(sourceOf(joinedFile({}, bytesOf(saver))))->pictures.size(), 0U);

    const auto with = [&](const char* old, const char* changed) {
        std::string other = file;
        return other.replace(other.find(old), std::strlen(old), changed);
    };
    for (const std::string& wrong :
         {std::string(), file.substr(0, 14), file.substr(1), file + 'x', with("OPTIONS;17", "OPTIONS;99"),
          with("OPTIONS", "OPTIONZ"), with("two;14;2", "two;14;9"), with("two;14;2", "two;-1;2"),
          with("23        ", "93        "), with("23        ", "23  1     "),
          with("23        ", "          ")})
        EXPECT_FALSE(readJoined(sourceOf(wrong))) << wrong;
}

TEST(JoinedFile, AListBeyondTenDigitsIsRefused) {
    const std::string large(std::size_t(64) << 20, 'x');
    JoinedWriter writer([](std::string_view) {});
    for (int i = 0; i < 149; ++i)
        writer.picture("large", large);
    EXPECT_TRUE(JoinedWriter(writer).finish(""));
    writer.picture("large", large);
    EXPECT_FALSE(writer.finish(""));
}

TEST(JoinedFile, OptionsOfAGreetingAreReadBackOrRefused) {
    const EffectOptions options{"Hi \xE4", 1, 1, 1, 2, 3, 4, 5, -6};
    const std::string bytes = *bytesOf(options);
    EXPECT_EQ(bytes.substr(0, 7), std::string("\4\0Hi \xE4\1", 7));
    EXPECT_EQ(bytes.size(), 2 + 4 + 26U);
    EXPECT_EQ(effectOptions(bytes), options);
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_FALSE(effectOptions(std::string_view(bytes).substr(0, size))) << size;
    EXPECT_FALSE(bytesOf(EffectOptions{std::string(65536, 'x')}));
    EXPECT_FALSE(saverOptions(std::string(5, '\0')));
}

} // namespace
