// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/frmFrameDummy.h"

#include "base/TrappedError.h"
#include "codecs/PictureFile.h"

#include <QCoreApplication>
#include <QFile>
#include <array>
#include <mutex>

static void initializeArtwork() {
    Q_INIT_RESOURCE(artwork); // must be called outside of a namespace
}

namespace tarsel {

namespace {

constexpr int jpegMask = 4;

Picture decoded(const QString& name) {
    static const bool initialized = (initializeArtwork(), true);
    Q_UNUSED(initialized)
    QFile file(QStringLiteral(":/artwork/") + name);
    if (!file.open(QIODevice::ReadOnly))
        fail(ErrorNumber::FileNotFound, file.fileName());
    return PictureFile(PictureSource(file.readAll()), name).decode().picture;
}

BorderPieces readBorder(int number) {
    const auto piece = [&](const char* array) {
        const char* extension = number < frmFrameDummy::frameCount ? "jpg" : "gif";
        return decoded(
            QStringLiteral("%1-%2.%3").arg(QLatin1String(array)).arg(number).arg(QLatin1String(extension)));
    };
    return {piece("pTop_left"), piece("pTop_middle"),  piece("pTop_right"),     piece("pleft"),
            piece("pRight"),    piece("pBottom_left"), piece("pBottom_middle"), piece("pBottom_right")};
}

StripEnds readStripEnds(int) {
    return {decoded(QStringLiteral("left_top.jpg")), decoded(QStringLiteral("right_top.jpg")),
            decoded(QStringLiteral("left_bottom.jpg")), decoded(QStringLiteral("right_bottom.jpg"))};
}

Picture readMask(int number) {
    return decoded(
        QStringLiteral("Mask-%1.%2").arg(number).arg(QLatin1String(number == jpegMask ? "jpg" : "gif")));
}

void require(int number, int count) {
    if (number < 0 || number >= count)
        fail(ErrorNumber::SubscriptOutOfRange,
             QCoreApplication::translate("frmFrameDummy", "artwork %1 does not exist").arg(number));
}

/// Values that are made when they are first asked for, on any thread.
template <class Value, int count, Value (*make)(int)>
class Lazy {
public:
    const Value& at(int number) {
        require(number, count);
        const auto index = std::size_t(number);
        std::call_once(m_made[index], [&] { m_values[index] = make(number); });
        return m_values[index];
    }

private:
    std::array<std::once_flag, count> m_made;
    std::array<Value, count> m_values;
};

} // namespace

void frmFrameDummy::requireBorder(int number) {
    require(number, borderCount);
}

void frmFrameDummy::requireMask(int number) {
    require(number, maskCount);
}

const BorderPieces& frmFrameDummy::border(int number) {
    static Lazy<BorderPieces, borderCount, readBorder> borders;
    return borders.at(number);
}

const StripEnds& frmFrameDummy::stripEnds() {
    static Lazy<StripEnds, 1, readStripEnds> ends;
    return ends.at(0);
}

const Picture& frmFrameDummy::mask(int number) {
    static Lazy<Picture, maskCount, readMask> masks;
    return masks.at(number);
}

} // namespace tarsel
