// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/OperationPeers.h"

#include <QImage>
#include <QTransform>
#include <benchmark/benchmark.h>
#include <memory>
#ifdef TARSEL_OPENCV
#include <opencv2/imgproc.hpp>
#endif

namespace tarsel::bench {

namespace {

std::vector<Peer> qtPeers(const Picture& picture) {
    const ConstPixelView view = picture.view();
    const QImage image(view.data, view.width, view.height, view.stride, QImage::Format_RGB888);
    const auto kept = [](const QImage& result) { benchmark::DoNotOptimize(result.constBits()); };
    return {
        {"Qt: scaled, smooth, a half",
         [=] { kept(image.scaled(image.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)); }},
        {"Qt: transformed, smooth, 7 degrees",
         [=] { kept(image.transformed(QTransform().rotate(7), Qt::SmoothTransformation)); }},
        {"Qt: transformed, 90 degrees", [=] { kept(image.transformed(QTransform().rotate(90))); }},
        {"Qt: mirrored, horizontally", [=] { kept(image.mirrored(true, false)); }},
    };
}

#ifdef TARSEL_OPENCV
std::vector<Peer> openCvPeers(const Picture& picture) {
    cv::setNumThreads(1);
    const ConstPixelView view = picture.view();
    // OpenCV only reads it, but has no type for that.
    const cv::Mat in(view.height, view.width, CV_8UC3, const_cast<std::uint8_t*>(view.data));
    const auto out = std::make_shared<cv::Mat>();
    const auto blur = [=](double deviation) {
        return [=] { cv::GaussianBlur(in, *out, {}, deviation, deviation, cv::BORDER_REPLICATE); };
    };
    const auto resize = [=](double factor, int filter) {
        return [=] { cv::resize(in, *out, {}, factor, factor, filter); };
    };
    const cv::Mat turn = cv::getRotationMatrix2D({float(view.width) / 2, float(view.height) / 2}, -7,
                                                 1); // the canvas doesn't grow
    return {
        {"OpenCV: Gaussian 0.5, as Blur 1", blur(0.5)},
        {"OpenCV: Gaussian 2.5, as Blur 5", blur(2.5)},
        {"OpenCV: Gaussian 5, as Blur 10", blur(5)},
        {"OpenCV: area, a half", resize(0.5, cv::INTER_AREA)},
        {"OpenCV: area, just beside a half", resize(0.50025, cv::INTER_AREA)},
        {"OpenCV: Lanczos, 1.5 times", resize(1.5, cv::INTER_LANCZOS4)},
        {"OpenCV: linear, 7 degrees", [=] { cv::warpAffine(in, *out, turn, in.size(), cv::INTER_LINEAR); }},
        {"OpenCV: 90 degrees", [=] { cv::rotate(in, *out, cv::ROTATE_90_CLOCKWISE); }},
        {"OpenCV: flip, horizontally", [=] { cv::flip(in, *out, 1); }},
        {"OpenCV: invert", [=] { cv::bitwise_not(in, *out); }},
    };
}
#endif

} // namespace

std::vector<Peer> peersOn(const Picture& picture) {
    std::vector<Peer> peers = qtPeers(picture);
#ifdef TARSEL_OPENCV
    for (Peer& peer : openCvPeers(picture))
        peers.push_back(std::move(peer));
#endif
    return peers;
}

} // namespace tarsel::bench
