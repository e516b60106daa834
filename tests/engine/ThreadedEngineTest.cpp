// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/IgnoringErrors.h"
#include "embedded/IptcFields.h"
#include "imaging/fncLoadPicture.h"
#include "metadata/modMetadata.h"
#include "tasks/Replay.h"
#include "tests/support/Boxes.h"
#include "tests/support/Corpus.h"
#include "tests/support/TestPictures.h"

#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <atomic>
#include <barrier>
#include <functional>
#include <gtest/gtest.h>
#include <thread>

using namespace tarsel;

namespace {

constexpr int ThreadCount = 4;

void onAllThreads(const std::function<void(int thread)>& work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < ThreadCount; ++i)
        threads.emplace_back(work, i);
    for (std::thread& thread : threads)
        thread.join();
}

/// Pictures of all writable formats with metadata, and those of the corpus where there is one.
std::vector<QString> pictures(const QTemporaryDir& folder) {
    std::vector<QString> paths;
    for (const char* name : {"a.jpg", "a.tif", "a.png", "a.bmp"}) {
        ImageBox box = test::boxWith(test::noisePicture(61, 43, 3));
        box.ExifSet(QStringLiteral("DateTime"), QStringLiteral("2004:01:31 15:05:09"));
        box.ExifSet(QStringLiteral("MeteringMode"), QStringLiteral("5"));
        setIptcList(box.metadata(), "IptcKeyword", {QStringLiteral("ship")});
        paths.push_back(folder.filePath(QString::fromLatin1(name)));
        box.SaveToFile(paths.back());
    }
    QFile gif(folder.filePath(QStringLiteral("a.gif"))); // through the decoder's process
    if (gif.open(QIODevice::WriteOnly))
        gif.write(QByteArray::fromHex("47494638396101000100800000ff0000ffffff2c000000000100010000020244"
                                      "01003b"));
    paths.push_back(gif.fileName());
    for (const test::CorpusPicture& picture : test::corpusPictures())
        paths.push_back(picture.path);
    return paths;
}

TaskRow row(int kind, const char* columns) {
    TaskRow made{QString::number(kind), {}, {}};
    std::ranges::copy(QString::fromLatin1(columns).split(u'|'), made.columns.begin());
    return made;
}

/// Resize, watermark, text, rotate.
std::vector<TaskRow> tasks(const QString& watermark) {
    TaskRow merge = row(9, "False|30|2||0|0|0");
    merge.columns[3] = watermark;
    return {row(3, "True|50|40"), merge, row(10, "True||True|0|0|DejaVu Sans|9|0|0|0|255|0|0|4|text"),
            row(2, "True|7|16777215")};
}

QString metadataText(const MetadataStore& store) {
    QString text;
    for (int i = 0; i < store.ExifCount(); ++i) {
        text += modMetadata::ExifNameInWords(store.ExifName(i)) + store.ExifValue(i);
        ignoringErrors([&] { text += modMetadata::ExifValueInWords(store.ExifName(i), store.ExifValue(i)); });
    }
    const DateForms forms{QStringLiteral("d.M.yyyy"), {}};
    for (const IptcField& field : iptcFields())
        text += iptcRowText(store, field, forms);
    return text;
}

class Digest {
public:
    void add(const QByteArray& bytes) { m_hash.addData(bytes); }
    void add(const Picture& picture) {
        for (int y = 0; y < picture.height(); ++y)
            add(QByteArray::fromRawData(reinterpret_cast<const char*>(picture.view().row(y)),
                                        qsizetype(picture.width()) * picture.channels()));
    }
    QByteArray result() const { return m_hash.result(); }

private:
    QCryptographicHash m_hash{QCryptographicHash::Sha1};
};

/// Everything that the engine does with a picture file; damaged ones go as far as they get.
QByteArray digestOf(const QString& path, const std::vector<TaskRow>& rows, const QString& target) {
    Digest digest;
    const std::stop_source stop;
    ignoringErrors([&] {
        const auto thumbnail =
            fncLoadPicture(path, LoadMode::ExactBox, {96, 96}, 0xFFFFFF, nullptr, stop.get_token());
        if (thumbnail)
            digest.add(*thumbnail);
    });
    ignoringErrors([&] {
        ImageBox box;
        box.LoadFromFile(path, stop.get_token());
        digest.add(metadataText(box.metadata()).toUtf8());
        replayRows(box, rows, stop.get_token());
        digest.add(box.picture());
        box.ExifSet(QStringLiteral("Software"), modMetadata::ProductTitle);
        box.SaveToFile(target, stop.get_token());
        QFile written(target);
        if (written.open(QIODevice::ReadOnly))
            digest.add(written.readAll());
    });
    return digest.result();
}

} // namespace

TEST(ThreadedEngine, EachPictureComesOutTheSameOnWhateverThreadsItIsWorkedOn) {
    const QTemporaryDir folder;
    const std::vector<QString> paths = pictures(folder);
    const std::vector<TaskRow> rows = tasks(paths.front());
    const std::size_t count = paths.size() * 2; // each twice, neighbours in time on different threads
    std::vector<QByteArray> digests(count);
    std::atomic<std::size_t> next = 0;
    onAllThreads([&](int thread) {
        const QString target = folder.filePath(QStringLiteral("out%1.jpg").arg(thread));
        for (std::size_t i = next++; i < count; i = next++)
            digests[i] = digestOf(paths[i / 2], rows, target);
    });
    for (std::size_t i = 0; i < paths.size(); ++i)
        EXPECT_EQ(digests[2 * i], digests[2 * i + 1]) << qPrintable(paths[i]);
}

TEST(ThreadedEngine, CopiesOfABoxAreReadAndChangedOnTheirOwnThreads) {
    const QTemporaryDir folder;
    const std::vector<QString> paths = pictures(folder);
    const ImageBox box = test::loaded(paths.front());
    const std::vector<TaskRow> rows = tasks(paths.front());
    std::vector<QString> texts(ThreadCount);
    std::vector<Picture> results(ThreadCount);
    std::barrier copied(ThreadCount);
    onAllThreads([&](int thread) {
        ImageBox own = box;
        copied.arrive_and_wait();
        texts[std::size_t(thread)] = metadataText(own.metadata()); // the first look parses, for all of them
        own.ExifSet(QStringLiteral("Artist"), QString::number(thread));
        replayRows(own, rows);
        results[std::size_t(thread)] = own.picture();
        EXPECT_EQ(own.ExifValueByName(QStringLiteral("Artist")), QString::number(thread));
    });
    for (int thread = 1; thread < ThreadCount; ++thread) {
        EXPECT_EQ(texts[std::size_t(thread)], texts[0]);
        EXPECT_EQ(results[std::size_t(thread)], results[0]);
    }
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("Artist")), QString());
}
