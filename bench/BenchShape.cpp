// What happens when the pencil is lifted: smoothing the stroke, and recognising a shape in it, by the number
// of samples.

#include "LmCvEditor.h"
#include "LmCvRegion.h"
#include "Q3Canvas.h"
#include "ZnCvSplineOptymize.h"
#include "ZnCvSplineTryShape.h"

#include "BenchScene.h"

#include <QRandomGenerator>

#include <cmath>

namespace {

using Outline = QPointF (*)(double aShare);

QPointF onEllipse(double aShare)
{
    return QPointF(0.5 * std::cos(2.0 * M_PI * aShare), 0.35 * std::sin(2.0 * M_PI * aShare));
}

// A unit wide and 0.7 high, from the top left corner clockwise.
QPointF onRectangle(double aShare)
{
    const double way = 3.4 * (aShare - std::floor(aShare));
    if (way <= 1.0)
        return QPointF(way - 0.5, -0.35);
    if (way <= 1.7)
        return QPointF(0.5, way - 1.35);
    if (way <= 2.7)
        return QPointF(2.2 - way, 0.35);
    return QPointF(-0.5, 3.05 - way);
}

// Goes far off in bends and never comes back.
QPointF onWave(double aShare)
{
    return QPointF(3.0 * aShare, 0.1 * std::sin(60.0 * aShare));
}

/// A stroke around aOutline with a sample about every 6 pixels and a hand's wobble, turned by 17 degrees.
Q3PointArray handStroke(Outline aOutline, int aSamples)
{
    QRandomGenerator random(20240521);
    const double size = 6.0 * aSamples / 3.0;
    QPointF drift;
    Q3PointArray points;
    for (int i = 0; i < aSamples; ++i) {
        const QPointF place = size * aOutline(1.01 * i / (aSamples - 1));
        drift = 0.8 * drift + QPointF(random.generateDouble() - 0.5, random.generateDouble() - 0.5);
        const QPointF turned(0.956 * place.x() - 0.292 * place.y(), 0.292 * place.x() + 0.956 * place.y());
        const QPoint sample = (QPointF(2000.0, 1500.0) + turned + drift).toPoint();
        points << sample << sample << sample;
    }
    return points;
}

/// A region in an editor, as the pencil has just finished it.
class PencilScene
{
public:
    PencilScene(Outline aOutline, int aSamples)
        : theStroke(handStroke(aOutline, aSamples)), theStates(aSamples),
          theRegion(new LmCvRegion(nullptr, theEditor.getCanvas(), QStringLiteral("1"), &theEditor))
    {
        theEditor.getCanvas()->resize(4096, 3072);
        theRegion->show();
    }

    LmCvRegion* lifted()
    {
        theRegion->setPoints(QPoint(0, 0), theStroke, theStates);
        return theRegion;
    }

private:
    const Q3PointArray theStroke;
    const Q3ValueVector<LmNodeState> theStates;
    LmCvEditor theEditor;
    LmCvRegion* theRegion; // owned by the canvas
};

template <typename Work>
void measure(benchmark::State& aState, Outline aOutline, Work aWork)
{
    const int samples = int(aState.range(0));
    PencilScene scene(aOutline, samples);
    int nodes = 0;
    int result = 0;
    for (auto _ : aState) {
        aState.PauseTiming();
        LmCvRegion* region = scene.lifted();
        aState.ResumeTiming();
        result = aWork(region);
        nodes = region->nodeCount();
    }
    aState.counters["samples/s"] =
        benchmark::Counter(double(samples), benchmark::Counter::kIsIterationInvariantRate);
    aState.counters["nodes"] = nodes;
    aState.counters["result"] = result;
}

void smooth(benchmark::State& aState, Outline aOutline)
{
    measure(aState, aOutline,
            [](LmCvRegion* aRegion) { return ZnCvSplineOptymize::optymizeSpline(aRegion, 0.5F, 5.0F); });
}

void recognise(benchmark::State& aState, Outline aOutline)
{
    measure(aState, aOutline, ZnCvSplineTryShape::tryAssignShape);
}

void strokeSizes(benchmark::internal::Benchmark* aBenchmark)
{
    aBenchmark->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(smooth, ellipse, onEllipse)->Apply(strokeSizes);
BENCHMARK_CAPTURE(smooth, wave, onWave)->Apply(strokeSizes);
BENCHMARK_CAPTURE(recognise, ellipse, onEllipse)->Apply(strokeSizes);
BENCHMARK_CAPTURE(recognise, rectangle, onRectangle)->Apply(strokeSizes);
// The ends are compared over their whole length only where no pair of them is near.
BENCHMARK_CAPTURE(recognise, openWave, onWave)->Apply(strokeSizes);

} // namespace

MEASURE_BENCH_MAIN()
