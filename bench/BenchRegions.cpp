// Regions at the mouse: dragging a node, hit test, repaint, frame change, creation, and strokes of the
// pencil.

#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "RegionScene.h"

#include <QElapsedTimer>

#include <cmath>

namespace {

// A step of the mouse with a node of the current region in the hand, up to the repainted viewport.
void dragFirstNode(benchmark::State& aState, RegionScene& aScene)
{
    const QPoint anchor = aScene.firstAnchor(aScene.theCurrent);
    const int stepsBefore = aScene.theWorkbench.undoStack().count();
    aScene.press(anchor);
    aScene.paintPending();
    const QPoint step(6, 4);
    bool out = true;
    for (auto _ : aState) {
        aScene.move(out ? anchor + step : anchor);
        aScene.paintPending();
        out = !out;
    }
    aScene.move(anchor + step);
    aScene.release(anchor + step);
    if (aScene.theWorkbench.undoStack().count() != stepsBefore + 1)
        aState.SkipWithError("no node was dragged");
}

void repaintAll(benchmark::State& aState, RegionScene& aScene)
{
    for (auto _ : aState) {
        aScene.theWorkbench.editor().viewport()->repaint();
        aScene.paintPending();
    }
}

void hitAllOver(benchmark::State& aState, RegionScene& aScene)
{
    int x = 0;
    double asked = 0.0;
    double hits = 0.0;
    for (auto _ : aState) {
        x = (x + 37) % 4000;
        hits += aScene.theWorkbench.editor().itemAt(QPoint(x, (x * 7) % 3000)) ? 1.0 : 0.0;
        asked += 1.0;
    }
    aState.counters["hits"] = hits / asked;
}

void dragNode(benchmark::State& aState)
{
    RegionScene scene(int(aState.range(0)));
    dragFirstNode(aState, scene);
}

void fullRepaint(benchmark::State& aState)
{
    RegionScene scene(int(aState.range(0)));
    repaintAll(aState, scene);
}

void hitTest(benchmark::State& aState)
{
    RegionScene scene(int(aState.range(0)));
    hitAllOver(aState, scene);
}

void dragNodeOfOne(benchmark::State& aState)
{
    const auto scene = RegionScene::ofOne(int(aState.range(0)));
    dragFirstNode(aState, *scene);
}

void repaintOfOne(benchmark::State& aState)
{
    const auto scene = RegionScene::ofOne(int(aState.range(0)));
    repaintAll(aState, *scene);
}

void hitTestOfOne(benchmark::State& aState)
{
    const auto scene = RegionScene::ofOne(int(aState.range(0)));
    hitAllOver(aState, *scene);
}

void createAllInOneMacro(benchmark::State& aState)
{
    for (auto _ : aState) {
        aState.PauseTiming();
        {
            RegionScene scene(0);
            aState.ResumeTiming();
            scene.createRegions(int(aState.range(0)));
            scene.paintPending();
            aState.PauseTiming();
        }
        aState.ResumeTiming();
    }
}

void undoAllInOneMacro(benchmark::State& aState)
{
    RegionScene scene(int(aState.range(0)));
    for (auto _ : aState) {
        scene.theWorkbench.undoStack().undo();
        scene.paintPending();
        aState.PauseTiming();
        scene.theWorkbench.undoStack().redo();
        scene.paintPending();
        aState.ResumeTiming();
    }
}

void frameChangeAllAnimated(benchmark::State& aState)
{
    RegionScene scene(int(aState.range(0)), true);
    int frame = 0;
    for (auto _ : aState) {
        frame = (frame + 1) % BenchScene::kFrames;
        LmKSKernelData::getInstance()->showFrame(frame, false);
        scene.paintPending();
    }
}

/// Points about 7 pixels apart on a spiral that never comes back to its start, with a hand's wobble: ten
/// thousand of them keep inside the picture.
class Stroke
{
public:
    QPoint next()
    {
        constexpr double kStep = 7.3;
        constexpr double kBetweenTurns = 95.0;
        const double radius = 100.0 + kBetweenTurns * theAngle / (2.0 * M_PI);
        theAngle += kStep / radius;
        const double wobble = std::sin(1.7 * theAngle * radius / 40.0);
        return (QPointF(2048.0, 1536.0) + (radius + wobble) * QPointF(std::cos(theAngle), std::sin(theAngle)))
            .toPoint();
    }

private:
    double theAngle = 0.0;
};

/// Draws with the button still down; the last point.
QPoint drawStroke(RegionScene& aScene, Stroke& aStroke, int aMoves)
{
    QPoint point = aStroke.next();
    aScene.press(point);
    for (int i = 0; i < aMoves; ++i) {
        point = aStroke.next();
        aScene.move(point);
    }
    return point;
}

// The step of a stroke that is that long already, up to the repainted viewport.
void strokeStep(benchmark::State& aState)
{
    RegionScene scene(0);
    scene.pickPencil(false, false);
    Stroke stroke;
    const int length = int(aState.range(0));
    QPoint point = drawStroke(scene, stroke, length);
    scene.paintPending();
    for (auto _ : aState) {
        point = stroke.next();
        scene.move(point);
        scene.paintPending();
    }
    scene.release(point);
    if (scene.nodeCount(1) < length)
        aState.SkipWithError("the stroke lost samples");
}

// From the release of the button to the repainted viewport.
void liftOfThePencil(benchmark::State& aState, bool aSmooth, bool aAutoShape)
{
    RegionScene scene(0);
    scene.pickPencil(aSmooth, aAutoShape);
    QUndoStack& stack = scene.theWorkbench.undoStack();
    stack.clear();
    for (auto _ : aState) {
        Stroke stroke;
        const QPoint last = drawStroke(scene, stroke, int(aState.range(0)));
        scene.paintPending();
        QElapsedTimer watch;
        watch.start();
        scene.release(last);
        scene.paintPending();
        aState.SetIterationTime(double(watch.nsecsElapsed()) * 1e-9);
        aState.counters["nodes"] = scene.nodeCount(1);
        scene.theWorkbench.editor().slotEscape();
        while (stack.canUndo())
            stack.undo();
        stack.clear();
        scene.paintPending();
    }
}

void canvasSizes(benchmark::internal::Benchmark* aBenchmark)
{
    aBenchmark->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

void nodeCounts(benchmark::internal::Benchmark* aBenchmark)
{
    aBenchmark->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

void strokeLengths(benchmark::internal::Benchmark* aBenchmark)
{
    aBenchmark->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(dragNode)->Apply(canvasSizes);
BENCHMARK(fullRepaint)->Apply(canvasSizes);
BENCHMARK(hitTest)->Apply(canvasSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(dragNodeOfOne)->Apply(nodeCounts);
BENCHMARK(repaintOfOne)->Apply(nodeCounts);
BENCHMARK(hitTestOfOne)->Apply(nodeCounts)->Unit(benchmark::kMicrosecond);
BENCHMARK(createAllInOneMacro)->Apply(canvasSizes)->Iterations(3);
BENCHMARK(undoAllInOneMacro)->Apply(canvasSizes)->Iterations(3);
BENCHMARK(frameChangeAllAnimated)->Apply(canvasSizes);
BENCHMARK(strokeStep)->Apply(strokeLengths)->UseRealTime()->Iterations(20);
BENCHMARK_CAPTURE(liftOfThePencil, plain, false, false)->Apply(strokeLengths)->UseManualTime()->Iterations(3);
BENCHMARK_CAPTURE(liftOfThePencil, smooth, true, false)->Apply(strokeLengths)->UseManualTime()->Iterations(3);
BENCHMARK_CAPTURE(liftOfThePencil, autoShape, true, true)
    ->Apply(strokeLengths)
    ->UseManualTime()
    ->Iterations(3);

} // namespace

MEASURE_BENCH_MAIN()
