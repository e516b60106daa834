// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/CapturedFile.h"
#include "base/RandomNumbers.h"
#include "base/Service.h"

#include <QFile>
#include <QTemporaryDir>
#include <deque>
#include <gtest/gtest.h>

using namespace tarsel;

namespace {

class GivenNumbers final : public RandomNumbers {
public:
    double randomNumber() override {
        const double number = numbers.front();
        numbers.pop_front();
        return number;
    }
    std::deque<double> numbers;
};

class CapturedFile : public testing::Test {
protected:
    std::string nameFor(std::initializer_list<double> drawn,
                        const QString& prefix = QStringLiteral("Captured")) {
        numbers.numbers = drawn;
        const QString path = newCapturedFile(folder.path(), prefix);
        EXPECT_TRUE(numbers.numbers.empty());
        EXPECT_TRUE(path.startsWith(folder.path() + u'/'));
        return path.mid(folder.path().size() + 1).toStdString();
    }

    QTemporaryDir folder;
    GivenNumbers numbers;
    ServiceScope<RandomNumbers> scope{numbers};
};

} // namespace

TEST_F(CapturedFile, IsNamedByASinglePrecisionNumberInItsShortestForm) {
    EXPECT_EQ(nameFor({0.705618}), "Captured7055.4746.tif");
    EXPECT_EQ(nameFor({0.5}), "Captured4999.5.tif");
    EXPECT_EQ(nameFor({0}, QStringLiteral("Schirm ä")), "Schirm ä0.tif");
    EXPECT_EQ(nameFor({1e-9}), "Captured0.000009998999.tif") << "never with an exponent";
}

TEST_F(CapturedFile, TheFolderMayEndInASeparatorThatOnlyBlanksFollow) {
    numbers.numbers = {0.5, 0.5};
    EXPECT_EQ(newCapturedFile(QStringLiteral("/a/b/"), {}).toStdString(), "/a/b/4999.5.tif");
    EXPECT_EQ(newCapturedFile(QStringLiteral("/a/b/ "), {}).toStdString(), "/a/b/ 4999.5.tif");
}

TEST_F(CapturedFile, NothingThatIsThereIsNamedAgain) {
    QFile there(folder.filePath(QStringLiteral("Captured4999.5.tif")));
    ASSERT_TRUE(there.open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(folder.filePath(QStringLiteral("gone")),
                            folder.filePath(QStringLiteral("Captured2499.75.tif"))));
    EXPECT_EQ(nameFor({0.5, 0.25, 0.5, 0.75}), "Captured7499.25.tif");
}
