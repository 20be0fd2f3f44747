// Saving and opening a project, and the way from the program's start to the first picture.

#include "BenchScene.h"
#include "Document.h"
#include "MainWindow.h"

#include <QApplication>

namespace {

void saveProject(benchmark::State& aState)
{
    BenchScene scene(int(aState.range(0)));
    QString error;
    for (auto _ : aState)
        if (!scene.theWorkbench.document().save(scene.pathOf(QStringLiteral("bench.mtp")), error))
            aState.SkipWithError(qPrintable(error));
}
BENCHMARK(saveProject)->Apply(benchSizes)->Iterations(3);

void openProject(benchmark::State& aState)
{
    BenchScene scene(int(aState.range(0)));
    const QString path = scene.pathOf(QStringLiteral("bench.mtp"));
    QString error;
    scene.theWorkbench.document().save(path, error);
    for (auto _ : aState) {
        if (!scene.theWorkbench.document().openProject(path, error))
            aState.SkipWithError(qPrintable(error));
        scene.paintPending();
    }
}
BENCHMARK(openProject)->Apply(benchSizes)->Iterations(3);

// The window with its tools and the picture of 12 megapixels, without the start of the process itself.
void windowToFirstPicture(benchmark::State& aState)
{
    QTemporaryDir folder;
    QString picture;
    {
        BenchScene scene(0);
        picture = folder.filePath(QStringLiteral("picture.png"));
        QFile::copy(scene.pathOf(QStringLiteral("picture.png")), picture);
    }
    for (auto _ : aState) {
        MainWindow window;
        window.show();
        window.openAtStart(picture);
        QApplication::processEvents();
        benchmark::DoNotOptimize(window.grab());
    }
}
BENCHMARK(windowToFirstPicture)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

} // namespace

MEASURE_BENCH_MAIN()
