#ifndef BENCHSCENE_H
#define BENCHSCENE_H

#include "Workbench.h"

#include <QPolygon>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

class LmCvObject;
class LmKernelObjectData;

/// A workbench with a picture of 4096 x 3072 pixels at fit in a viewport of 1280 x 960 and a number of
/// labelled distances spread over it, of lengths and slopes from a seeded generator.
class BenchScene
{
public:
    explicit BenchScene(int aCount, bool aAnimated = false);
    ~BenchScene();

    static constexpr int kDistance = 1102; // object type
    static constexpr int kFrames = 100;    // frames of animated objects

    /// A new record of the scene's kind; the caller owns it.
    LmKernelObjectData* newRecord(bool aAnimated = false);
    /// Pushes the creation of aCount objects as one macro.
    void create(int aCount, bool aAnimated = false);
    void showAllLabels(int aType = kDistance);
    /// Paints what is marked now, without waiting for the event loop.
    void paintPending();
    LmCvObject* item(int aIdx);
    QString pathOf(const QString& aName) const { return theFolder.filePath(aName); }

    Workbench theWorkbench;

protected:
    QPoint randomPoint(int aWidth, int aHeight);
    QSize pictureSize() const;

    int theNextIdx = 1;

private:
    QTemporaryDir theFolder;
    quint32 theSeed = 20240521;
};

/// The points of a wavy closed outline of bent segments in a box of about that extent around (0, 0).
QPolygon wavyOutline(int aNodes, double aWidth, double aHeight);

/// The sizes that every benchmark runs at.
void benchSizes(benchmark::internal::Benchmark* aBenchmark);

/// Like BENCHMARK_MAIN, with an application and the label font.
int runBenchmarks(int aCount, char* aArguments[]);

#define MEASURE_BENCH_MAIN()                                                                                 \
    int main(int aCount, char* aArguments[])                                                                 \
    {                                                                                                        \
        return runBenchmarks(aCount, aArguments);                                                            \
    }

#endif
