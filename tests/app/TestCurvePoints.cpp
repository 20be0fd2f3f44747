#include "CurvePoints.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

/// What is drawn of a series looks like all of it.
class TestCurvePoints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fewSamplesAreAllThere();
    void nothingGivesNothing();
    void gapBreaksTheLine();
    void gapNarrowerThanAColumnIsBridged();
    void keyframesFarApartAreOneLine();
    void columnsKeepTheirExtremes();
    void shownPartHasANeighbourOnEitherSide();
    void keyframesKeepTheirDistance();

private:
    static CurvePoints::Extent extent(int aFrames, int aColumns)
    {
        return {[](int aFrame) { return double(aFrame); }, 0.0, aFrames - 1.0, aColumns};
    }
    static ValueSeries series(const QList<int>& aFrames)
    {
        ValueSeries made;
        for (const int frame : aFrames) {
            const bool joined = !made.theSamples.empty() && made.theSamples.back().theFrame == frame - 1;
            made.theSamples.push_back({frame * 10.0, frame, false, joined});
        }
        return made;
    }
};

void TestCurvePoints::fewSamplesAreAllThere()
{
    const QList<QList<QPointF>> lines = CurvePoints::lines(series({0, 1, 2, 3}), extent(4, 300));
    const QList<QPointF> line{{0.0, 0.0}, {1.0, 10.0}, {2.0, 20.0}, {3.0, 30.0}};
    QCOMPARE(lines, QList<QList<QPointF>>{line});
}

void TestCurvePoints::nothingGivesNothing()
{
    QVERIFY(CurvePoints::lines(ValueSeries(), extent(4, 300)).isEmpty());
    QVERIFY(CurvePoints::keyframes(ValueSeries(), extent(4, 300), 5).isEmpty());
}

void TestCurvePoints::gapBreaksTheLine()
{
    const QList<QList<QPointF>> lines = CurvePoints::lines(series({0, 1, 3, 5, 6}), extent(7, 700));
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines[0].size(), 2);
    QCOMPARE(lines[1], QList<QPointF>{QPointF(3.0, 30.0)});
    QCOMPARE(lines[2].first(), QPointF(5.0, 50.0));
}

void TestCurvePoints::gapNarrowerThanAColumnIsBridged()
{
    QList<int> frames;
    for (int frame = 0; frame < 1000; ++frame)
        if (frame % 10 != 5)
            frames << frame;
    QCOMPARE(CurvePoints::lines(series(frames), extent(1000, 50)).size(), 1);
    QCOMPARE(CurvePoints::lines(series(frames), extent(1000, 4000)).size(), 101);
}

void TestCurvePoints::keyframesFarApartAreOneLine()
{
    ValueSeries sparse = series({0, 50, 99});
    for (size_t i = 1; i < sparse.theSamples.size(); ++i)
        sparse.theSamples[i].theJoined = true;
    QCOMPARE(CurvePoints::lines(sparse, extent(100, 500)).size(), 1);
}

void TestCurvePoints::columnsKeepTheirExtremes()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    constexpr int kFrames = 20'000;
    constexpr int kColumns = 321;
    ValueSeries noise;
    for (int frame = 0; frame < kFrames; ++frame)
        noise.theSamples.push_back({random.generateDouble(), frame, false, frame > 0});
    const CurvePoints::Extent whole = extent(kFrames, kColumns);
    const QList<QList<QPointF>> lines = CurvePoints::lines(noise, whole);
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines[0].size() <= 4 * (kColumns + 1));
    QVERIFY(std::is_sorted(lines[0].cbegin(), lines[0].cend(),
                           [](const QPointF& aOne, const QPointF& aOther) { return aOne.x() < aOther.x(); }));

    // The slow way: the least and the greatest of each column among all samples.
    QMap<int, QPair<double, double>> wanted;
    for (const ValueSample& sample : noise.theSamples) {
        const int column = int(std::floor(sample.theFrame * double(kColumns) / (kFrames - 1)));
        auto& range = wanted.contains(column) ? wanted[column] : (wanted[column] = {2.0, -1.0});
        range = {std::min(range.first, sample.theValue), std::max(range.second, sample.theValue)};
    }
    QMap<int, QPair<double, double>> drawn;
    for (const QPointF& point : lines[0]) {
        const int column = whole.columnOf(int(point.x()));
        auto& range = drawn.contains(column) ? drawn[column] : (drawn[column] = {2.0, -1.0});
        range = {std::min(range.first, point.y()), std::max(range.second, point.y())};
    }
    QCOMPARE(drawn, wanted);
}

void TestCurvePoints::shownPartHasANeighbourOnEitherSide()
{
    CurvePoints::Extent part = extent(10, 100);
    part.theFirst = 2.5;
    part.theLast = 5.5;
    const QList<QList<QPointF>> lines = CurvePoints::lines(series({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}), part);
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines[0].first(), QPointF(2.0, 20.0));
    QCOMPARE(lines[0].last(), QPointF(6.0, 60.0));
}

void TestCurvePoints::keyframesKeepTheirDistance()
{
    ValueSeries dense = series({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    QVERIFY(CurvePoints::keyframes(dense, extent(11, 100), 25).isEmpty());
    for (ValueSample& sample : dense.theSamples)
        sample.theKeyframe = sample.theFrame != 3;
    // Ten columns a frame.
    const QList<QPointF> marks = CurvePoints::keyframes(dense, extent(11, 100), 25);
    QCOMPARE(marks, (QList<QPointF>{{0.0, 0.0}, {4.0, 40.0}, {7.0, 70.0}, {10.0, 100.0}}));
    QCOMPARE(CurvePoints::keyframes(dense, extent(11, 100), 5).size(), 10);
}

MEASURE_TEST_MAIN(TestCurvePoints)
#include "TestCurvePoints.moc"
