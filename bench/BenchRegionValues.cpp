// The values of one region: of its outline alone by nodes, and its lightness by the pixels of its box.

#include "BenchScene.h"
#include "LmImage.h"
#include "RegionMeasures.h"

#include <QRandomGenerator>

namespace {

void outlineValues(benchmark::State& aState)
{
    const QPolygon points = wavyOutline(int(aState.range(0)), 3000.0, 2000.0);
    for (auto _ : aState) {
        const RegionMeasures measures(points, true, QPoint(2000, 1500));
        benchmark::DoNotOptimize(measures.width(2.0) + measures.height(2.0) + measures.length(2.0) +
                                 measures.area(2.0));
    }
}
BENCHMARK(outlineValues)->Arg(10)->Arg(100)->Arg(1000);

void imageMean(benchmark::State& aState, RegionMeasures::ImageChannel aChannel, int aChannels)
{
    const int width = int(aState.range(0));
    const int height = int(aState.range(1));
    LmImage image(width, height, aChannels, nullptr, 4);
    QRandomGenerator random(4505);
    for (int y = 0; y < height; ++y)
        for (int i = 0; i < width * aChannels; ++i)
            image.row(y)[i] = static_cast<unsigned char>(random.bounded(256));
    const QPoint corner(width - 1, height - 1);
    QPolygon box;
    for (const QPoint& anchor : {QPoint(0, 0), QPoint(corner.x(), 0), corner, QPoint(0, corner.y())})
        box << anchor << anchor << anchor;
    const RegionMeasures measures(box, true, QPoint(0, 0));
    for (auto _ : aState)
        benchmark::DoNotOptimize(measures.imageMean(&image, aChannel));
    aState.counters["pixels/s"] =
        benchmark::Counter(double(width) * height, benchmark::Counter::kIsIterationInvariantRate);
}

void boxSizes(benchmark::internal::Benchmark* aBenchmark)
{
    aBenchmark->Args({100, 100})->Args({1000, 1000})->Args({4000, 3000})->Unit(benchmark::kMillisecond);
    aBenchmark->UseRealTime();
}
BENCHMARK_CAPTURE(imageMean, lightness, RegionMeasures::kLightness, 3)->Apply(boxSizes);
BENCHMARK_CAPTURE(imageMean, saturation, RegionMeasures::kSaturation, 3)->Apply(boxSizes);
BENCHMARK_CAPTURE(imageMean, lightnessWithAlpha, RegionMeasures::kLightness, 4)->Apply(boxSizes);
BENCHMARK_CAPTURE(imageMean, gray, RegionMeasures::kLightness, 1)->Apply(boxSizes);

// A scribble of a thousand nodes all over the picture, which every row crosses many times.
void lightnessOfAScribble(benchmark::State& aState)
{
    constexpr int kWidth = 4000;
    constexpr int kHeight = 3000;
    LmImage image(kWidth, kHeight, 3, nullptr, 4);
    QRandomGenerator random(4506);
    QPolygon points;
    for (int i = 0; i < 3 * int(aState.range(0)); ++i) {
        const int x = random.bounded(kWidth);
        points << QPoint(x, random.bounded(kHeight));
    }
    const RegionMeasures measures(points, true, QPoint(0, 0));
    for (auto _ : aState)
        benchmark::DoNotOptimize(measures.imageMean(&image, RegionMeasures::kLightness));
}
BENCHMARK(lightnessOfAScribble)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

MEASURE_BENCH_MAIN()
