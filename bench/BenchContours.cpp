// Finding ten thousand specks in a picture of twelve megapixels, beside the least that any search would do:
// one threshold for the whole picture, which the uneven light makes useless, and following the borders of
// what it gives.

#include "LmCVSequence.h"
#include "LmImage.h"
#include "LmImageProcessor.h"

#include <QRandomGenerator>

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kWidth = 4000;
constexpr int kHeight = 3000;
constexpr int kSpecks = 10000;

/// Dark specks of 4 to 6 pixels radius in rows, on a slope of light that is steeper than they are dark.
void drawSpecks(LmImage& aImage, int aNoise)
{
    constexpr int kPerRow = 115;
    constexpr double kApart = 34.5;
    QRandomGenerator random(71);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            const int light = 100 + 110 * x / kWidth + 40 * y / kHeight;
            aImage.row(y)[x] =
                static_cast<unsigned char>(light + (aNoise ? random.bounded(-aNoise, aNoise + 1) : 0));
        }
    for (int i = 0; i < kSpecks; ++i) {
        const double centreX = 20.0 + (i % kPerRow) * kApart;
        const double centreY = 20.0 + int(i / kPerRow) * 34.0;
        const double radius = 4.0 + random.bounded(2.0);
        for (int y = int(centreY) - 7; y <= int(centreY) + 7; ++y)
            for (int x = int(centreX) - 7; x <= int(centreX) + 7; ++x)
                if (std::hypot(x - centreX, y - centreY) <= radius)
                    aImage.row(y)[x] = static_cast<unsigned char>(std::max(0, aImage.row(y)[x] - 80));
    }
}

void search(benchmark::State& aState)
{
    LmImage image(kWidth, kHeight, 1, nullptr, 4);
    drawSpecks(image, int(aState.range(0)));
    QLinkedList<LmCVSequence> found;
    for (auto _ : aState)
        LmImageProcessor::getInstance(nullptr)->findContourSeq(found, &image, 5, image.theImageSize, false,
                                                               false);
    aState.counters["found"] = double(found.size());
}

void thresholdAndBordersAlone(benchmark::State& aState)
{
    LmImage image(kWidth, kHeight, 1, nullptr, 4);
    drawSpecks(image, int(aState.range(0)));
    const cv::Mat gray(kHeight, kWidth, CV_8U, image.row(0), size_t(image.bytesPerLine()));
    constexpr double kMiddle = 110.0;
    std::vector<std::vector<cv::Point>> found;
    for (auto _ : aState) {
        cv::Mat mask;
        cv::threshold(gray, mask, kMiddle, 255.0, cv::THRESH_BINARY_INV);
        cv::findContours(mask, found, cv::RETR_EXTERNAL, cv::CHAIN_APPROX_SIMPLE);
    }
    aState.counters["found"] = double(found.size());
}

void areaAroundASeed(benchmark::State& aState)
{
    LmImage image(kWidth, kHeight, 1, nullptr, 4);
    drawSpecks(image, int(aState.range(0)));
    const int limits[] = {25, 25, 25};
    LmCVSequence contour(0, 8);
    for (auto _ : aState)
        LmImageProcessor::getInstance(nullptr)->findContourAt(contour, &image, QPoint(20, 20), limits,
                                                              limits);
    aState.counters["points"] = double(contour.theCount);
}

constexpr int kNoise = 7; // even from -7 to 7: a standard deviation of 4

BENCHMARK(search)->Arg(0)->Arg(kNoise)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(thresholdAndBordersAlone)->Arg(0)->Arg(kNoise)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(areaAroundASeed)->Arg(0)->Arg(kNoise)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
