// What a person sees while looking around and dragging: repaint, drag, pan, zoom, frame change, hit test.

#include "BenchScene.h"
#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

namespace {

void fullRepaint(benchmark::State& aState, BenchScene::Type aType)
{
    BenchScene scene(int(aState.range(0)), false, aType);
    for (auto _ : aState) {
        scene.theWorkbench.editor().viewport()->repaint();
        scene.paintPending();
    }
}
BENCHMARK_CAPTURE(fullRepaint, distance, BenchScene::kDistance)->Apply(benchSizes);
BENCHMARK_CAPTURE(fullRepaint, angle, BenchScene::kAngle)->Apply(otherTypesSizes);
BENCHMARK_CAPTURE(fullRepaint, dimension, BenchScene::kDimension)->Apply(otherTypesSizes);

// The first repaint of labels at a size that was never shown.
void firstRepaintAfterZoom(benchmark::State& aState)
{
    BenchScene scene(int(aState.range(0)));
    double zoom = 1.0;
    for (auto _ : aState) {
        aState.PauseTiming();
        zoom *= 1.013;
        scene.theWorkbench.editor().setZoom(zoom);
        aState.ResumeTiming();
        scene.paintPending();
    }
}
BENCHMARK(firstRepaintAfterZoom)->Apply(benchSizes);

void zoomStepAtFit(benchmark::State& aState)
{
    BenchScene scene(int(aState.range(0)));
    LmCvEditor& editor = scene.theWorkbench.editor();
    int step = 1;
    for (auto _ : aState) {
        editor.zoomStep(step, editor.viewport()->rect().center());
        scene.paintPending();
        step = -step;
    }
}
BENCHMARK(zoomStepAtFit)->Apply(benchSizes);

void dragOneItem(benchmark::State& aState, BenchScene::Type aType)
{
    BenchScene scene(int(aState.range(0)), false, aType);
    LmCvObject* dragged = scene.item(int(aState.range(0)) / 2);
    scene.theWorkbench.editor().activateItem(dragged);
    scene.paintPending();
    QPoint step(3, 2);
    for (auto _ : aState) {
        dragged->moveObjectBy(step);
        scene.theWorkbench.editor().canvas()->update();
        scene.paintPending();
        step = -step;
    }
}
BENCHMARK_CAPTURE(dragOneItem, distance, BenchScene::kDistance)->Apply(benchSizes);
BENCHMARK_CAPTURE(dragOneItem, angle, BenchScene::kAngle)->Apply(otherTypesSizes);
BENCHMARK_CAPTURE(dragOneItem, dimension, BenchScene::kDimension)->Apply(otherTypesSizes);

// At twice the fit, so that there is room to pan; a step is what a quick hand moves in a sixtieth of a
// second.
void panStep(benchmark::State& aState)
{
    BenchScene scene(int(aState.range(0)));
    LmCvEditor& editor = scene.theWorkbench.editor();
    editor.setZoom(2.0 * editor.zoom());
    scene.paintPending();
    QPoint step(20, 12);
    for (auto _ : aState) {
        editor.scrollBy(step);
        scene.paintPending();
        step = -step;
    }
}
BENCHMARK(panStep)->Apply(benchSizes);

void frameChangeAllAnimated(benchmark::State& aState, BenchScene::Type aType)
{
    BenchScene scene(int(aState.range(0)), true, aType);
    int frame = 0;
    for (auto _ : aState) {
        frame = (frame + 1) % BenchScene::kFrames;
        LmKSKernelData::getInstance()->showFrame(frame, false);
        scene.paintPending();
    }
}
BENCHMARK_CAPTURE(frameChangeAllAnimated, distance, BenchScene::kDistance)->Apply(benchSizes);
BENCHMARK_CAPTURE(frameChangeAllAnimated, angle, BenchScene::kAngle)->Apply(otherTypesSizes);
BENCHMARK_CAPTURE(frameChangeAllAnimated, dimension, BenchScene::kDimension)->Apply(otherTypesSizes);

void hitTest(benchmark::State& aState, BenchScene::Type aType)
{
    BenchScene scene(int(aState.range(0)), false, aType);
    int x = 0;
    for (auto _ : aState) {
        x = (x + 37) % 4000;
        benchmark::DoNotOptimize(scene.theWorkbench.editor().itemAt(QPoint(x, (x * 7) % 3000)));
    }
}
BENCHMARK_CAPTURE(hitTest, distance, BenchScene::kDistance)->Apply(benchSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(hitTest, angle, BenchScene::kAngle)->Apply(otherTypesSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(hitTest, dimension, BenchScene::kDimension)
    ->Apply(otherTypesSizes)
    ->Unit(benchmark::kMicrosecond);

} // namespace

MEASURE_BENCH_MAIN()
