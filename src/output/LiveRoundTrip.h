// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/RoundTripWorker.h"

#include <QObject>

namespace tarsel {

/// Follows the options of one picture: shows what its file looks like with the newest ones, and knows the
/// file's bytes. The work runs in the background.
class LiveRoundTrip final : public QObject {
    Q_OBJECT
public:
    /// The files are also left in `folder`, each as "temp" with its extension.
    LiveRoundTrip(RoundTripSource source, QString folder);

    /// How options change: at once, or step by step, where what was asked for before is to be seen too.
    enum class Change { AtOnce, Dragged };
    void want(const RoundTripSettings& settings, const VisibleArea& visible, Change change);

    /// Another area of the picture is on show: while the file is being made, its part comes first.
    void show(const VisibleArea& visible);
    /// To be called when the picture of the last pictureReady is on the screen: where options change quickly,
    /// the next one isn't made before.
    void pictureSeen();

    /// How many were begun so far: those that the next change replaced while they waited never were.
    int begun() const { return int(m_lastNumber); }
    bool isBusy() const { return m_pending.has_value(); }
    /// The file with the settings wanted last; null while it is being made, and after a failure.
    const RoundTripResult* result() const { return m_result ? &*m_result : nullptr; }

Q_SIGNALS:
    void pictureReady(const tarsel::PreviewPicture& optimized); ///< not yet of the file
    void finished();                                            ///< result() is there
    void failed(const tarsel::TrappedError& error);
    void measured(); ///< and it knows how like it is
    void fileNotLeft(const QString& reason);

private:
    struct Pending {
        RoundTripWorker::Request request;
        bool isAnswered = false; ///< with a picture
        bool isSeen = false;
    };
    struct LeftFile {
        QString path;
        QByteArray bytes;
    };

    void send(RoundTripWorker::Request request);
    void take(RoundTripWorker::Answer answer);
    void finish(RoundTripResult result);
    void takeSimilarity(const operations::Similarity& similarity);
    void leaveFile(const LeftFile& file, const std::stop_token& stop);

    QString m_folder;
    quint64 m_lastNumber = 0;
    std::optional<Pending> m_pending;
    std::optional<RoundTripWorker::Request> m_followUp; ///< waits until something of the one before was seen
    std::optional<RoundTripResult> m_result;
    RoundTripCache m_cache;
    NewestWork<LeftFile> m_files;
    RoundTripWorker m_worker;
};

} // namespace tarsel
