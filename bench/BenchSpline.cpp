// Fitting strokes of a hand and measuring what they lose, by the number of samples.

#include "OutlineDeviation.h"
#include "SplineOptymizeInternal.h"

#include <QRandomGenerator>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

constexpr double kError = 0.5; // squared pixels

/// A wavy stroke of whole pixels, a sample about every 6 of them, the same at every call.
std::vector<Point2D> handStroke(int aLength)
{
    QRandomGenerator random(20240521);
    const auto within = [&random](double aBound) { return (2.0 * random.generateDouble() - 1.0) * aBound; };
    std::vector<Point2D> stroke;
    Point2D place(1000.0, 1000.0);
    double direction = 0.0;
    double turn = 0.0;
    double wantedTurn = 0.0;
    for (int i = 0; i < aLength; ++i) {
        stroke.push_back({std::round(place.x), std::round(place.y)});
        if (i % 12 == 0)
            wantedTurn = within(0.25); // an arc of another bend every 70 pixels
        turn += 0.2 * (wantedTurn - turn);
        direction += turn + within(0.025);
        const double step = 6.0 + within(1.0);
        place = place + Point2D(step * std::cos(direction), step * std::sin(direction));
    }
    return stroke;
}

int fit(const std::vector<Point2D>& aStroke, std::vector<Point2D>& aOut)
{
    SplineOptymizeInternal maths;
    return maths.bezierFitCubicConst(aOut.data(), aStroke.data(), int(aStroke.size()),
                                     SplineOptymizeInternal::theUnconstrainedTangent, kError,
                                     unsigned(aStroke.size()));
}

void report(benchmark::State& aState, int aSegments)
{
    const double samples = double(aState.range(0));
    aState.counters["segments"] = aSegments;
    aState.counters["samples/s"] =
        benchmark::Counter(samples * double(aState.iterations()), benchmark::Counter::kIsRate);
    aState.SetComplexityN(aState.range(0));
}

void fitHandStroke(benchmark::State& aState)
{
    const std::vector<Point2D> stroke = handStroke(int(aState.range(0)));
    std::vector<Point2D> out(4 * stroke.size());
    int segments = 0;
    for (auto _ : aState) {
        segments = fit(stroke, out);
        benchmark::DoNotOptimize(out.data());
    }
    if (segments <= 0)
        aState.SkipWithError("the stroke was not fitted");
    report(aState, segments);
}
BENCHMARK(fitHandStroke)
    ->RangeMultiplier(10)
    ->Range(100, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

void deviationOfTheFit(benchmark::State& aState)
{
    const std::vector<Point2D> stroke = handStroke(int(aState.range(0)));
    std::vector<Point2D> out(4 * stroke.size());
    const int segments = fit(stroke, out);
    const auto rounded = [](const Point2D& aPoint) { return QPoint(qRound(aPoint.x), qRound(aPoint.y)); };
    Q3PointArray samples;
    for (const Point2D& sample : stroke)
        samples << rounded(sample);
    Q3PointArray outline{rounded(out[0])};
    for (int i = 0; i < 4 * segments; ++i) {
        if (i == 0 || i % 4 != 0) // an anchor once
            outline << rounded(out[std::size_t(i)]);
    }
    outline << outline.last();
    double deviation = 0.0;
    for (auto _ : aState)
        deviation = OutlineDeviation::largest(samples, outline, false);
    aState.counters["pixels"] = deviation;
    report(aState, segments);
}
BENCHMARK(deviationOfTheFit)
    ->RangeMultiplier(10)
    ->Range(100, 100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

} // namespace

BENCHMARK_MAIN();
