// What a user waits for with a minute of high definition video: opening it, jumping about, stepping, playing.
// The clip is made at the start of the run; the argument is the distance of its key frames.

#include "ClipWriter.h"
#include "LmImage.h"
#include "VideoFile.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

constexpr int kRate = 25;
constexpr int kFrames = 60 * kRate;

/// The clip with keys so far apart, made when it is first asked for.
QString clipPath(int aGroupSize)
{
    static const QTemporaryDir kFolder;
    const QString path = kFolder.filePath(QStringLiteral("groups%1.mp4").arg(aGroupSize));
    static std::vector<int> made;
    if (std::find(made.begin(), made.end(), aGroupSize) != made.end())
        return path;
    ClipOptions options;
    options.codec = QStringLiteral("libx264");
    options.size = QSize(1920, 1080);
    options.count = kFrames;
    options.rate = kRate;
    options.groupSize = aGroupSize;
    options.bFrames = 3;
    options.texture = true;
    options.threads = 0;
    options.encoder[QStringLiteral("preset")] = QStringLiteral("veryfast");
    if (!ClipWriter::write(path, options))
        std::abort();
    made.push_back(aGroupSize);
    return path;
}

std::unique_ptr<VideoFile> openClip(const benchmark::State& aState)
{
    QString error;
    auto video = VideoFile::open(clipPath(int(aState.range(0))), error);
    if (!video || video->frameCount() != kFrames)
        std::abort();
    return video;
}

/// Collects how long each step took and tells the middle and the slow ones, in milliseconds.
class StepTimes
{
public:
    void begin() { theTimer.start(); }
    void end() { theTimes.push_back(double(theTimer.nsecsElapsed()) / 1e6); }
    void report(benchmark::State& aState)
    {
        std::sort(theTimes.begin(), theTimes.end());
        aState.counters["median_ms"] = theTimes[theTimes.size() / 2];
        aState.counters["p95_ms"] = theTimes[theTimes.size() * 95 / 100];
        aState.counters["most_ms"] = theTimes.back();
    }

private:
    QElapsedTimer theTimer;
    std::vector<double> theTimes;
};

void read(VideoFile& aVideo, int aFrame, bool aQuick)
{
    QString error;
    const auto image = aQuick ? aVideo.readQuickFrame(aFrame, error) : aVideo.readFrame(aFrame, error);
    if (!image || !error.isEmpty())
        std::abort();
}

void openAndIndex(benchmark::State& aState)
{
    clipPath(int(aState.range(0)));
    for (auto _ : aState)
        openClip(aState);
}

void randomSeek(benchmark::State& aState)
{
    const auto video = openClip(aState);
    QRandomGenerator random(71);
    StepTimes times;
    for (auto _ : aState) {
        times.begin();
        read(*video, random.bounded(kFrames), false);
        times.end();
    }
    times.report(aState);
    aState.counters["cached_MB"] = double(video->cachedBytes()) / 1e6;
}

/// From a random place a way of 300 frames, which leads over several keys.
void steps(benchmark::State& aState, int aStep)
{
    constexpr int kWay = 300;
    const auto video = openClip(aState);
    QRandomGenerator random(71);
    StepTimes times;
    int frame = -1;
    int left = 0;
    qint64 mostCached = 0;
    for (auto _ : aState) {
        if (left == 0) {
            aState.PauseTiming();
            frame = kWay + random.bounded(kFrames - 2 * kWay);
            read(*video, frame, false);
            left = kWay;
            aState.ResumeTiming();
        }
        frame += aStep;
        --left;
        times.begin();
        read(*video, frame, false);
        times.end();
        mostCached = std::max(mostCached, video->cachedBytes());
    }
    times.report(aState);
    aState.counters["cached_MB"] = double(mostCached) / 1e6;
}

void stepForward(benchmark::State& aState)
{
    steps(aState, 1);
}

void stepBack(benchmark::State& aState)
{
    steps(aState, -1);
}

void play(benchmark::State& aState)
{
    const auto video = openClip(aState);
    int frame = 0;
    for (auto _ : aState) {
        read(*video, frame, true);
        frame = (frame + 1) % kFrames;
    }
    aState.counters["frames/s"] =
        benchmark::Counter(double(aState.iterations()), benchmark::Counter::kIsRate);
}

void sizes(benchmark::internal::Benchmark* aBenchmark)
{
    aBenchmark->Arg(50)->Arg(250)->ArgName("group")->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(openAndIndex)->Apply(sizes)->Iterations(5);
BENCHMARK(randomSeek)->Apply(sizes)->Iterations(100);
BENCHMARK(stepForward)->Apply(sizes)->Iterations(600);
BENCHMARK(stepBack)->Apply(sizes)->Iterations(600);
BENCHMARK(play)->Apply(sizes)->Iterations(600);

} // namespace

BENCHMARK_MAIN();
