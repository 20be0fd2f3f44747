// Creating, undoing and redoing one object among many, and all objects in one step.

#include "BenchScene.h"
#include "CmdCreateObject.h"
#include "LmKernelObjectData.h"

namespace {

void createOne(benchmark::State& aState)
{
    BenchScene scene(int(aState.range(0)));
    for (auto _ : aState) {
        scene.create(1);
        scene.paintPending();
        aState.PauseTiming();
        scene.theWorkbench.undoStack().undo();
        scene.paintPending();
        aState.ResumeTiming();
    }
}
BENCHMARK(createOne)->Apply(benchSizes)->Iterations(50);

void undoAndRedoOne(benchmark::State& aState)
{
    BenchScene scene(int(aState.range(0)));
    scene.create(1);
    for (auto _ : aState) {
        scene.theWorkbench.undoStack().undo();
        scene.paintPending();
        scene.theWorkbench.undoStack().redo();
        scene.paintPending();
    }
}
BENCHMARK(undoAndRedoOne)->Apply(benchSizes)->Iterations(50);

void createAllInOneMacro(benchmark::State& aState, BenchScene::Type aType)
{
    for (auto _ : aState) {
        aState.PauseTiming();
        {
            BenchScene scene(0, false, aType);
            aState.ResumeTiming();
            scene.create(int(aState.range(0)));
            scene.paintPending();
            aState.PauseTiming();
        }
        aState.ResumeTiming();
    }
}
BENCHMARK_CAPTURE(createAllInOneMacro, distance, BenchScene::kDistance)->Apply(benchSizes)->Iterations(3);
BENCHMARK_CAPTURE(createAllInOneMacro, angle, BenchScene::kAngle)->Apply(otherTypesSizes)->Iterations(3);
BENCHMARK_CAPTURE(createAllInOneMacro, dimension, BenchScene::kDimension)
    ->Apply(otherTypesSizes)
    ->Iterations(3);

void undoAllInOneMacro(benchmark::State& aState, BenchScene::Type aType)
{
    BenchScene scene(int(aState.range(0)), false, aType);
    for (auto _ : aState) {
        scene.theWorkbench.undoStack().undo();
        scene.paintPending();
        aState.PauseTiming();
        scene.theWorkbench.undoStack().redo();
        scene.paintPending();
        aState.ResumeTiming();
    }
}
BENCHMARK_CAPTURE(undoAllInOneMacro, distance, BenchScene::kDistance)->Apply(benchSizes)->Iterations(3);
BENCHMARK_CAPTURE(undoAllInOneMacro, angle, BenchScene::kAngle)->Apply(otherTypesSizes)->Iterations(3);
BENCHMARK_CAPTURE(undoAllInOneMacro, dimension, BenchScene::kDimension)
    ->Apply(otherTypesSizes)
    ->Iterations(3);

void redoAllInOneMacro(benchmark::State& aState)
{
    BenchScene scene(int(aState.range(0)));
    for (auto _ : aState) {
        aState.PauseTiming();
        scene.theWorkbench.undoStack().undo();
        scene.paintPending();
        aState.ResumeTiming();
        scene.theWorkbench.undoStack().redo();
        scene.paintPending();
    }
}
BENCHMARK(redoAllInOneMacro)->Apply(benchSizes)->Iterations(3);

} // namespace

MEASURE_BENCH_MAIN()
