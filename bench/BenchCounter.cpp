// Many marks in one counter, with the measurement table on the screen.

#include "BenchScene.h"
#include "LmCvEditor.h"
#include "SpeckScene.h"

#include <QFile>

#include <unistd.h>

namespace {

/// The memory that the process holds, in megabytes.
double residentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    return file.readAll().split(' ').value(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / 1e6;
}

const QPoint kFreePlace(3700, 1500); // no mark lies there

void sizes(benchmark::internal::Benchmark* aBenchmark)
{
    aBenchmark->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
}

void clickAddsAMark(benchmark::State& aState)
{
    const int count = int(aState.range(0));
    SpeckScene scene(0);
    scene.addCounter(count);
    for (auto _ : aState) {
        scene.click(kFreePlace);
        scene.paintPending();
        aState.PauseTiming();
        if (scene.markCount() != count + 1)
            aState.SkipWithError("no mark came");
        scene.click(kFreePlace);
        scene.paintPending();
        aState.ResumeTiming();
    }
}
BENCHMARK(clickAddsAMark)->Apply(sizes)->Iterations(30);

void clickRemovesTheLastMark(benchmark::State& aState)
{
    const int count = int(aState.range(0));
    SpeckScene scene(0);
    scene.addCounter(count);
    for (auto _ : aState) {
        aState.PauseTiming();
        scene.click(kFreePlace);
        scene.paintPending();
        aState.ResumeTiming();
        scene.click(kFreePlace);
        scene.paintPending();
        if (scene.markCount() != count)
            aState.SkipWithError("no mark went");
    }
}
BENCHMARK(clickRemovesTheLastMark)->Apply(sizes)->Iterations(30);

// All other marks get another number and are painted again.
void clickRemovesTheFirstMark(benchmark::State& aState)
{
    const int count = int(aState.range(0));
    SpeckScene scene(0);
    scene.addCounter(count + 30);
    int left = count + 30;
    for (auto _ : aState) {
        const QPoint tip = scene.marks().value(1);
        scene.click(tip);
        scene.paintPending();
        if (scene.markCount() != --left)
            aState.SkipWithError("no mark went");
    }
}
BENCHMARK(clickRemovesTheFirstMark)->Apply(sizes)->Iterations(30);

void groupSearchMarksSpecks(benchmark::State& aState)
{
    const int count = int(aState.range(0));
    for (auto _ : aState) {
        aState.PauseTiming();
        {
            SpeckScene scene(count);
            scene.pickGroupCounting();
            const double before = residentMegabytes();
            aState.ResumeTiming();
            scene.drag(QPoint(2, 2), QPoint(3997, 2997));
            scene.paintPending();
            aState.PauseTiming();
            aState.counters["MB"] = residentMegabytes() - before;
            if (scene.markCount() != count)
                aState.SkipWithError("not all specks were found");
        }
        aState.ResumeTiming();
    }
}
BENCHMARK(groupSearchMarksSpecks)->Apply(sizes)->Iterations(1);

void undoOfTheGroupSearch(benchmark::State& aState)
{
    SpeckScene scene(int(aState.range(0)));
    scene.pickGroupCounting();
    for (auto _ : aState) {
        aState.PauseTiming();
        scene.drag(QPoint(2, 2), QPoint(3997, 2997));
        scene.paintPending();
        aState.ResumeTiming();
        scene.theWorkbench.undoStack().undo();
        scene.paintPending();
        aState.PauseTiming();
        if (scene.markCount() != 0)
            aState.SkipWithError("marks are left");
        aState.ResumeTiming();
    }
}
BENCHMARK(undoOfTheGroupSearch)->Apply(sizes)->Iterations(3);

void redoOfTheGroupSearch(benchmark::State& aState)
{
    SpeckScene scene(int(aState.range(0)));
    scene.pickGroupCounting();
    scene.drag(QPoint(2, 2), QPoint(3997, 2997));
    for (auto _ : aState) {
        aState.PauseTiming();
        scene.theWorkbench.undoStack().undo();
        scene.paintPending();
        aState.ResumeTiming();
        scene.theWorkbench.undoStack().redo();
        scene.paintPending();
        if (scene.markCount() != aState.range(0))
            aState.SkipWithError("marks are missing");
    }
}
BENCHMARK(redoOfTheGroupSearch)->Apply(sizes)->Iterations(3);

void fullRepaint(benchmark::State& aState)
{
    SpeckScene scene(0);
    scene.addCounter(int(aState.range(0)));
    LmCvEditor& editor = scene.theWorkbench.editor();
    for (auto _ : aState) {
        editor.viewport()->repaint();
    }
}
BENCHMARK(fullRepaint)->Apply(sizes)->Iterations(10);

} // namespace

MEASURE_BENCH_MAIN()
