// The measurement window on the screen: what its table adds to every change.

#include "BenchScene.h"
#include "CmdCalibrate.h"
#include "CmdChangeObject.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <QMainWindow>
#include <QTableView>
#include <QToolBar>

namespace {

/// A window with the measurement dock and distances in it.
class TableScene
{
public:
    explicit TableScene(int aCount, bool aAnimated = false)
        : theScene(aCount, aAnimated, BenchScene::kDistance, theWindow.addToolBar(QString()))
    {
        theWindow.setCentralWidget(&theScene.theWorkbench.editor());
        theWindow.resize(1400, 1200);
        theWindow.show();
        theScene.paintPending();
    }

    int rowCount() const
    {
        return theWindow.findChild<QTableView*>(QStringLiteral("theTable"))->model()->rowCount();
    }

    QMainWindow theWindow;
    BenchScene theScene;
};

void createOne(benchmark::State& aState)
{
    TableScene table(int(aState.range(0)));
    for (auto _ : aState) {
        table.theScene.create(1);
        table.theScene.paintPending();
        aState.PauseTiming();
        table.theScene.theWorkbench.undoStack().undo();
        table.theScene.paintPending();
        aState.ResumeTiming();
    }
}
BENCHMARK(createOne)->Apply(benchSizes)->Iterations(50);

void changeOne(benchmark::State& aState)
{
    TableScene table(int(aState.range(0)));
    const int index = int(aState.range(0)) / 2;
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    LmParamKeyframeVector values = kernel->getObject(BenchScene::kDistance, index)->getDefaultKeyframes();
    int x = 0;
    for (auto _ : aState) {
        values.setValue(4, QPoint(50 + ++x % 50, 20)); // the way to the end
        table.theScene.theWorkbench.undoStack().push(
            new CmdChangeObject(BenchScene::kDistance, index, values, false));
    }
}
BENCHMARK(changeOne)->Apply(benchSizes)->Iterations(200);

void createAllInOneMacro(benchmark::State& aState)
{
    for (auto _ : aState) {
        aState.PauseTiming();
        {
            TableScene table(0);
            aState.ResumeTiming();
            table.theScene.create(int(aState.range(0)));
            table.theScene.paintPending();
            aState.PauseTiming();
            if (table.rowCount() != aState.range(0))
                aState.SkipWithError("rows are missing");
        }
        aState.ResumeTiming();
    }
}
BENCHMARK(createAllInOneMacro)->Apply(benchSizes)->Iterations(3);

void undoAllInOneMacro(benchmark::State& aState)
{
    TableScene table(int(aState.range(0)));
    for (auto _ : aState) {
        table.theScene.theWorkbench.undoStack().undo();
        table.theScene.paintPending();
        aState.PauseTiming();
        if (table.rowCount() != 0)
            aState.SkipWithError("rows are left");
        table.theScene.theWorkbench.undoStack().redo();
        table.theScene.paintPending();
        aState.ResumeTiming();
    }
}
BENCHMARK(undoAllInOneMacro)->Apply(benchSizes)->Iterations(3);

void calibrate(benchmark::State& aState)
{
    TableScene table(int(aState.range(0)));
    double width = 100.0;
    for (auto _ : aState) {
        table.theScene.theWorkbench.undoStack().push(
            new CmdCalibrate(QStringLiteral("bench"), LmCalibData{width += 1.0, QStringLiteral("mm")},
                             QStringLiteral("bench")));
        table.theScene.paintPending();
    }
}
BENCHMARK(calibrate)->Apply(benchSizes)->Iterations(5);

void frameStepAllAnimated(benchmark::State& aState)
{
    TableScene table(int(aState.range(0)), true);
    int frame = 0;
    for (auto _ : aState) {
        frame = (frame + 1) % BenchScene::kFrames;
        LmKSKernelData::getInstance()->showFrame(frame, false);
        table.theScene.paintPending();
    }
}
BENCHMARK(frameStepAllAnimated)->Apply(benchSizes)->Iterations(5);

} // namespace

MEASURE_BENCH_MAIN()
