#ifndef BENCHSCENE_H
#define BENCHSCENE_H

#include "Workbench.h"

#include <QPolygon>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

class LmCvObject;
class LmKernelObjectData;
class LmParamKeyframeVector;
class QToolBar;

/// A workbench with a picture of 4096 x 3072 pixels at fit in a viewport of 1280 x 960 and a number of
/// labelled objects of one type spread over it, of lengths and slopes from a seeded generator.
class BenchScene
{
public:
    enum Type { kDistance = 1102, kAngle = 1106, kDimension = 1112 };

    /// The tools' docks go into the tool bar's window; without one nobody sees them.
    explicit BenchScene(int aCount, bool aAnimated = false, Type aType = kDistance,
                        QToolBar* aToolBar = nullptr);
    ~BenchScene();

    static constexpr int kFrames = 100; // frames of animated objects

    /// A new record of the scene's kind; the caller owns it.
    LmKernelObjectData* newRecord(bool aAnimated = false);
    /// Pushes the creation of aCount objects as one macro.
    void create(int aCount, bool aAnimated = false);
    void showAllLabels(int aType);
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
    void setGeometry(LmParamKeyframeVector& aValues, const QPoint& aMiddle);

    Type theType;
    QTemporaryDir theFolder;
    quint32 theSeed = 20240521;
};

/// The points of a wavy closed outline of bent segments in a box of about that extent around (0, 0).
QPolygon wavyOutline(int aNodes, double aWidth, double aHeight);

/// The numbers of objects that every benchmark runs at, and those for the types beside distances.
void benchSizes(benchmark::internal::Benchmark* aBenchmark);
void otherTypesSizes(benchmark::internal::Benchmark* aBenchmark);

/// Like BENCHMARK_MAIN, with an application and the label font.
int runBenchmarks(int aCount, char* aArguments[]);

#define MEASURE_BENCH_MAIN()                                                                                 \
    int main(int aCount, char* aArguments[])                                                                 \
    {                                                                                                        \
        return runBenchmarks(aCount, aArguments);                                                            \
    }

#endif
