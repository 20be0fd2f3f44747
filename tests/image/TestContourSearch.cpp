#include "SceneSearch.h"
#include "TestFont.h"
#include "Watched.h"

#include <QElapsedTimer>

using namespace SceneSearch;

namespace {

void add(DrawnScene::Outcome& aSum, const DrawnScene::Outcome& aOne)
{
    aSum.theFound += aOne.theFound;
    aSum.theMissed += aOne.theMissed;
    aSum.theFalse += aOne.theFalse;
    aSum.theOverlapSum += aOne.theOverlapSum;
    aSum.theLeastOverlap = std::min(aSum.theLeastOverlap, aOne.theLeastOverlap);
}

/// Things of one size and contrast, brighter and darker than the ground, under three lights that vary by more
/// than the contrast where a byte has room for that.
DrawnScene::Outcome searchThings(QRandomGenerator& aRandom, double aRadius, double aContrast, double aNoise)
{
    DrawnScene::Outcome sum;
    for (const double contrast : {aContrast, -aContrast})
        for (const auto light : {DrawnScene::kEven, DrawnScene::kSlope, DrawnScene::kVignette}) {
            DrawnScene scene(480, 360);
            const int count = aRadius >= 90.0 ? 2 : aRadius >= 40.0 ? 5 : aRadius >= 15.0 ? 12 : 24;
            const double gap = aRadius >= 90.0 ? 1.0 : aRadius >= 40.0 ? 6.0 : 8.0 + 0.3 * aRadius;
            scene.scatter(aRandom, count, aRadius, contrast, gap);
            const double range = std::min(2.0 * aContrast, std::max(20.0, 235.0 - aContrast - 6.0 * aNoise));
            scene.paint(aRandom, (255.0 - contrast) / 2.0, light, range, aNoise);
            // The smallest things have about three pixels.
            add(sum, scene.judge(search(scene.image(), aRadius < 2.0 ? 2 : 5)));
        }
    return sum;
}

} // namespace

class TestContourSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void thingsAreFoundInUnevenLightAndNoise_data();
    void thingsAreFoundInUnevenLightAndNoise();
    void groundAloneHasNothing();
    void brightAndDarkThingsOfAllContrastsAreFoundTogether();
    void thingsCutByTheEdgeAreFoundAsFarAsTheyAreSeen();
    void tenThousandSpecksAreFound_data();
    void tenThousandSpecksAreFound();

private:
    QRandomGenerator theRandom;
};

void TestContourSearch::init()
{
    // The same pictures every time: the numbers below are those of these pictures.
    theRandom.seed(20111);
}

void TestContourSearch::thingsAreFoundInUnevenLightAndNoise_data()
{
    QTest::addColumn<double>("noise");
    QTest::addColumn<double>("radius");
    QTest::addColumn<double>("contrast");
    QTest::addColumn<int>("mostMissed"); // in a hundred
    QTest::addColumn<int>("mostFalse");  // for a hundred things
    QTest::addColumn<double>("overlap");
    const std::vector<double> noises =
        Watched::kIsOn ? std::vector<double>{6.0} : std::vector<double>{0.0, 3.0, 6.0, 12.0};
    for (const double noise : noises)
        for (const double radius : {1.5, 3.0, 6.0, 15.0, 40.0, 90.0})
            for (const double contrast : {15.0, 60.0, 200.0}) {
                // What is smaller and fainter than this is lost in noise.
                const bool lost = noise * 6.0 > contrast * radius / 3.0;
                const bool rough = radius < 2.0 || (noise > 0.0 && radius < 10.0);
                const double overlap = radius < 5.0 && noise > 5.0 ? 0.77 : rough ? 0.83 : 0.9;
                if (!lost)
                    QTest::addRow("noise %g, radius %g, contrast %g", noise, radius, contrast)
                        << noise << radius << contrast << (rough ? 9 : 0)
                        << (radius < 2.0 ? 3
                            : rough      ? 1
                                         : 0)
                        << overlap;
            }
}

void TestContourSearch::thingsAreFoundInUnevenLightAndNoise()
{
    QFETCH(double, noise);
    QFETCH(double, radius);
    QFETCH(double, contrast);
    QFETCH(int, mostMissed);
    QFETCH(int, mostFalse);
    QFETCH(double, overlap);
    const DrawnScene::Outcome outcome = searchThings(theRandom, radius, contrast, noise);
    tell(QTest::currentDataTag(), outcome);
    const int things = outcome.theFound + outcome.theMissed;
    QVERIFY(things >= 12);
    QVERIFY2(100 * outcome.theMissed <= mostMissed * things, qPrintable(QString::number(outcome.theMissed)));
    QVERIFY2(100 * outcome.theFalse <= mostFalse * things, qPrintable(QString::number(outcome.theFalse)));
    QVERIFY2(meanOverlap(outcome) >= overlap, qPrintable(QString::number(meanOverlap(outcome))));
}

void TestContourSearch::groundAloneHasNothing()
{
    const std::vector<double> noises =
        Watched::kIsOn ? std::vector<double>{3.0} : std::vector<double>{0.0, 3.0, 12.0};
    for (const auto light : {DrawnScene::kEven, DrawnScene::kSlope, DrawnScene::kVignette})
        for (const double noise : noises)
            for (const double range : {0.0, 60.0, 180.0}) {
                DrawnScene scene(800, 600);
                scene.paint(theRandom, 128.0, light, range, noise);
                QCOMPARE(search(scene.image(), 1).size(), 0);
            }
}

void TestContourSearch::brightAndDarkThingsOfAllContrastsAreFoundTogether()
{
    DrawnScene scene(640, 480);
    const double contrasts[] = {15.0, 25.0, 50.0, 100.0, -15.0, -25.0, -50.0, -90.0};
    for (int i = 0; i < 60; ++i) {
        const QPointF centre(40 + (i % 10) * 62, 40 + (i / 10) * 78);
        scene.add({DrawnScene::Shape(i % 4), centre, 5.0 + i % 17, 0.1 * i, contrasts[i % 8]});
    }
    scene.paint(theRandom, 128.0, DrawnScene::kVignette, 60.0, 2.0);
    const DrawnScene::Outcome outcome = scene.judge(search(scene.image()));
    tell("mixed", outcome);
    QCOMPARE(outcome.theFound, 60);
    QCOMPARE(outcome.theFalse, 0);
    QVERIFY(outcome.theLeastOverlap > 0.8);
}

void TestContourSearch::thingsCutByTheEdgeAreFoundAsFarAsTheyAreSeen()
{
    for (const double noise : {0.0, 6.0}) {
        DrawnScene scene(480, 360);
        for (int i = 0; i < 8; ++i)
            scene.add(
                {DrawnScene::Shape(i % 4), QPointF(40 + i * 57, i % 2 ? 358 : 3), 24.0, 0.3 * i, -70.0});
        for (const double y : {80.0, 170.0, 260.0}) {
            scene.add(disc(0.0, y, 30.0, -70.0));
            scene.add(disc(479.0, y, 30.0, -70.0));
        }
        scene.paint(theRandom, 160.0, DrawnScene::kVignette, 90.0, noise);
        const DrawnScene::Outcome outcome = scene.judge(search(scene.image()));
        tell("cut by the edge", outcome);
        QCOMPARE(outcome.theFound, 14);
        QCOMPARE(outcome.theFalse, 0);
        QVERIFY(outcome.theLeastOverlap > 0.95);
    }
}

void TestContourSearch::tenThousandSpecksAreFound_data()
{
    QTest::addColumn<double>("noise");
    QTest::newRow("clean") << 0.0;
    QTest::newRow("noise 4") << 4.0;
}

void TestContourSearch::tenThousandSpecksAreFound()
{
    QFETCH(double, noise);
    DrawnScene scene(4000, 3000);
    for (int i = 0; i < 10000; ++i)
        scene.add(
            disc(20.0 + (i % 115) * 34.5, 20.0 + (i / 115) * 34.0, 4.0 + theRandom.bounded(2.0), -80.0));
    scene.paint(theRandom, 170.0, DrawnScene::kSlope, 150.0, noise);
    QElapsedTimer timer;
    timer.start();
    const QLinkedList<LmCVSequence> found = search(scene.image());
    qInfo("%.1f ms", double(timer.nsecsElapsed()) / 1e6);
    const DrawnScene::Outcome outcome = scene.judge(found);
    tell(QTest::currentDataTag(), outcome);
    QCOMPARE(outcome.theFound, 10000);
    QCOMPARE(outcome.theFalse, 0);
    QVERIFY(meanOverlap(outcome) > 0.95);
}

MEASURE_TEST_MAIN(TestContourSearch)
#include "TestContourSearch.moc"
