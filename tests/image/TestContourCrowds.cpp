#include "SceneSearch.h"
#include "TestFont.h"

#include <cmath>

using namespace SceneSearch;

/// Things that touch each other, fill their region or lie in each other.
class TestContourCrowds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void discsThatTouchComeApart_data();
    void discsThatTouchComeApart();
    void rowsOfSmallTouchingDiscsComeApart();
    void thingsWithBaysStayWhole();
    void aHandleDoesNotDivideItsThing();
    void thingsFillMostOfACloselyDrawnRegion_data();
    void thingsFillMostOfACloselyDrawnRegion();
    void mostOfAPictureMayBeThings();
    void ringsAreFilledAndHideWhatIsInside();

private:
    QRandomGenerator theRandom;
};

void TestContourCrowds::init()
{
    // The same pictures every time: the numbers below are those of these pictures.
    theRandom.seed(20111);
}

void TestContourCrowds::discsThatTouchComeApart_data()
{
    QTest::addColumn<double>("overlap"); // of the smaller disc's radius
    QTest::addColumn<double>("noise");
    QTest::addColumn<int>("leastFound");
    for (const double noise : {0.0, 4.0, 8.0}) {
        QTest::addRow("touching, noise %g", noise) << 0.0 << noise << 24;
        QTest::addRow("a tenth, noise %g", noise) << 0.1 << noise << 24;
        QTest::addRow("a quarter, noise %g", noise) << 0.25 << noise << 20;
    }
}

void TestContourCrowds::discsThatTouchComeApart()
{
    QFETCH(double, overlap);
    QFETCH(double, noise);
    QFETCH(int, leastFound);
    DrawnScene scene(480, 360);
    for (int i = 0; i < 12; ++i) {
        const double x = 60.0 + (i % 4) * 115.0;
        const double y = 60.0 + (i / 4) * 115.0;
        const double radius = 24.0 - (i % 3) * 6.0;
        const double apart = 24.0 + radius - overlap * radius;
        scene.add(disc(x, y, 24.0, 90.0));
        scene.add(disc(x + apart * std::cos(0.5 * i), y + apart * std::sin(0.5 * i), radius, 90.0));
    }
    scene.paint(theRandom, 80.0, DrawnScene::kSlope, 80.0, noise);
    const DrawnScene::Outcome outcome = scene.judge(search(scene.image()));
    tell(QTest::currentDataTag(), outcome);
    QVERIFY(outcome.theFound >= leastFound);
    QCOMPARE(outcome.theFalse, 0);
    QVERIFY(meanOverlap(outcome) > 0.92);
}

void TestContourCrowds::rowsOfSmallTouchingDiscsComeApart()
{
    DrawnScene scene(400, 300);
    for (int i = 0; i < 40; ++i)
        scene.add(disc(20.0 + (i % 8) * 11.5, 20.0 + (i / 8) * 30.0, 6.0, 90.0));
    scene.paint(theRandom, 80.0, DrawnScene::kSlope, 80.0, 3.0);
    const DrawnScene::Outcome outcome = scene.judge(search(scene.image()));
    tell("rows", outcome);
    QCOMPARE(outcome.theFound, 40);
    QCOMPARE(outcome.theFalse, 0);
    QVERIFY(outcome.theLeastOverlap > 0.85);
}

void TestContourCrowds::thingsWithBaysStayWhole()
{
    for (const double noise : {0.0, 6.0}) {
        DrawnScene scene(600, 400);
        for (int i = 0; i < 6; ++i)
            scene.add(
                {DrawnScene::kBlob, QPointF(100 + (i % 3) * 200, 100 + (i / 3) * 200), 60.0, 1.1 * i, -60.0});
        scene.paint(theRandom, 160.0, DrawnScene::kEven, 0.0, noise);
        const DrawnScene::Outcome outcome = scene.judge(search(scene.image()));
        QCOMPARE(outcome.theFound, 6);
        QCOMPARE(outcome.theFalse, 0);
        QVERIFY(outcome.theLeastOverlap > 0.97);
    }
}

void TestContourCrowds::aHandleDoesNotDivideItsThing()
{
    LmImage image(300, 120, 1, nullptr, 4);
    const auto isThing = [](int aX, int aY) {
        const auto within = [&](int aCentreX) { return std::hypot(aX - aCentreX, aY - 60) <= 20.0; };
        return within(50) || within(250) || (aX >= 50 && aX <= 250 && std::abs(aY - 60) <= 6);
    };
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.row(y)[x] = isThing(x, y) ? 200 : 100;
    QCOMPARE(search(image).size(), 1);
    // The counter-case: without the handle's length the same two discs are two.
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.row(y)[x] = isThing(x, y) && x < 70 ? 200 : isThing(x + 160, y) && x >= 70 ? 200 : 100;
    QCOMPARE(search(image).size(), 2);
}

void TestContourCrowds::thingsFillMostOfACloselyDrawnRegion_data()
{
    QTest::addColumn<int>("perSide");
    QTest::addColumn<int>("margin");
    QTest::addColumn<double>("noise");
    QTest::addColumn<double>("contrast");
    for (const int perSide : {1, 2, 3})
        for (const int margin : {4, 1})
            for (const double noise : {0.0, 6.0})
                for (const double contrast : {60.0, -60.0})
                    QTest::addRow("%d by %d, margin %d, noise %g, contrast %g", perSide, perSide, margin,
                                  noise, contrast)
                        << perSide << margin << noise << contrast;
}

void TestContourCrowds::thingsFillMostOfACloselyDrawnRegion()
{
    QFETCH(int, perSide);
    QFETCH(int, margin);
    QFETCH(double, noise);
    QFETCH(double, contrast);
    constexpr int kRadius = 40;
    constexpr int kApart = 2 * kRadius + 3;
    const QPoint corner(110, 80);
    DrawnScene scene(500, 400);
    for (int i = 0; i < perSide * perSide; ++i)
        scene.add(disc(corner.x() + kRadius + (i % perSide) * kApart,
                       corner.y() + kRadius + (i / perSide) * kApart, kRadius, contrast));
    scene.paint(theRandom, 128.0, DrawnScene::kSlope, 100.0, noise);
    const int side = perSide * kApart - 3 + 1;
    scene.image().setQRoi(QRect(corner, QSize(side, side)).adjusted(-margin, -margin, margin, margin));
    const DrawnScene::Outcome outcome = scene.judge(search(scene.image()));
    QCOMPARE(outcome.theFound, perSide * perSide);
    QCOMPARE(outcome.theFalse, 0);
    QVERIFY(outcome.theLeastOverlap > 0.97);
}

void TestContourCrowds::mostOfAPictureMayBeThings()
{
    DrawnScene discs(600, 400); // three quarters of the picture
    for (int i = 0; i < 6; ++i)
        discs.add(disc(100.0 + 200.0 * (i % 3), 100.0 + 200.0 * (i / 3), 97.0, -60.0));
    discs.paint(theRandom, 150.0, DrawnScene::kVignette, 60.0, 4.0);
    const DrawnScene::Outcome six = discs.judge(search(discs.image()));
    QCOMPARE(six.theFound, 6);
    QCOMPARE(six.theFalse, 0);
    DrawnScene plate(400, 400); // more than half
    plate.add({DrawnScene::kRectangle, QPointF(200, 200), 180.0, 0.0, 60.0});
    plate.paint(theRandom, 90.0, DrawnScene::kEven, 0.0, 4.0);
    const DrawnScene::Outcome one = plate.judge(search(plate.image()));
    QCOMPARE(one.theFound, 1);
    QCOMPARE(one.theFalse, 0);
}

void TestContourCrowds::ringsAreFilledAndHideWhatIsInside()
{
    LmImage image(200, 200, 1, nullptr, 4);
    int filled = 0;
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 200; ++x) {
            const double distance = std::hypot(x - 100, y - 100);
            filled += distance <= 60.0 ? 1 : 0;
            image.row(y)[x] = distance <= 60.0 && distance > 45.0 ? 40 : distance <= 8.0 ? 60 : 150;
        }
    const QLinkedList<LmCVSequence> found = search(image);
    QCOMPARE(found.size(), 1);
    QCOMPARE(found.first().theCoG, QPoint(100, 100));
    // The number of pixels is that of the filled disc: one more as the least finds nothing.
    QCOMPARE(search(image, filled).size(), 1);
    QCOMPARE(search(image, filled + 1).size(), 0);
}

MEASURE_TEST_MAIN(TestContourCrowds)
#include "TestContourCrowds.moc"
