// Playing a high definition video in the window with animated objects on it: whether every frame comes in
// time, and what one costs. The clip is made at the start of the run.

#include "BenchScene.h"
#include "ClipWriter.h"
#include "CmdCreateObject.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "MainWindow.h"
#include "Media.h"
#include "Player.h"
#include "TimelineDock.h"

#include <QApplication>
#include <QColor>
#include <QRandomGenerator>

#include <cstdlib>

namespace {

constexpr int kRate = 25;
constexpr int kFrames = 10 * kRate;
constexpr QSize kSize(1920, 1080);

QString clipPath()
{
    static const QTemporaryDir kFolder;
    static const QString kPath = [] {
        ClipOptions options;
        options.codec = QStringLiteral("libx264");
        options.size = kSize;
        options.count = kFrames;
        options.rate = kRate;
        options.groupSize = 2 * kRate;
        options.bFrames = 3;
        options.texture = true;
        options.threads = 0;
        options.encoder[QStringLiteral("preset")] = QStringLiteral("veryfast");
        const QString path = kFolder.filePath(QStringLiteral("clip.mp4"));
        if (!ClipWriter::write(path, options))
            std::abort();
        return path;
    }();
    return kPath;
}

/// Distances that wander over the picture from the first to the last frame.
void addMoving(Workbench& aBench, int aCount)
{
    const LmKernelObjectDataDescr* descr =
        LmKSKernelData::getInstance()->getDataDescriptor(BenchScene::kDistance);
    QRandomGenerator random(20240521);
    const auto place = [&random] {
        return QPoint(random.bounded(kSize.width()), random.bounded(kSize.height()));
    };
    for (int idx = 1; idx <= aCount; ++idx) {
        LmParamKeyframeVector values = descr->createKeyframeVector();
        descr->setValue(values, QStringLiteral("vis"), true);
        descr->setValue(values, QStringLiteral("col"), QColor(Qt::darkBlue));
        descr->setValue(values, QStringLiteral("dispv"), QStringLiteral("Distance"));
        descr->setValue(values, QStringLiteral("pos"), place());
        descr->setValue(values, QStringLiteral("ep"),
                        QPoint(random.bounded(20, 80), random.bounded(-80, 80)));
        auto* record = new LmKernelObjectData(values, descr->getKeyframeTypes(), 0);
        record->theAnimated = true;
        record->storeValue(descr->indexOf(QStringLiteral("pos")), 0, place());
        record->storeValue(descr->indexOf(QStringLiteral("pos")), kFrames - 1, place());
        aBench.undoStack().push(new CmdCreateObject(BenchScene::kDistance, idx, record));
    }
}

/// The argument is the number of animated objects.
void playWholeClip(benchmark::State& aState)
{
    MainWindow window;
    window.resize(1400, 1000);
    window.show();
    if (!window.openAtStart(clipPath()))
        std::abort();
    addMoving(window.workbench(), int(aState.range(0)));
    QApplication::processEvents();
    Player& player = window.findChild<TimelineDock*>()->player();
    QString error;
    double dropped = 0;
    for (auto _ : aState) {
        aState.PauseTiming();
        window.workbench().media().showFrame(0, error);
        aState.ResumeTiming();
        player.play();
        while (player.isPlaying())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        dropped += player.droppedFrames();
    }
    aState.counters["dropped"] = dropped;
    aState.counters["frames"] = double(aState.iterations()) * (kFrames - 1);
    window.workbench().undoStack().clear();
}
BENCHMARK(playWholeClip)
    ->Arg(0)
    ->Arg(100)
    ->Arg(1000)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

/// From nothing to the first frame on the screen, with all tools.
void startToFirstFrame(benchmark::State& aState)
{
    clipPath();
    for (auto _ : aState) {
        MainWindow window;
        window.resize(1400, 1000);
        window.show();
        if (!window.openAtStart(clipPath()))
            std::abort();
        QApplication::processEvents();
    }
}
BENCHMARK(startToFirstFrame)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

MEASURE_BENCH_MAIN()
