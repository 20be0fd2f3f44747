#include "AutoCreateFixture.h"
#include "LmAppSettings.h"
#include "TestFont.h"

#include <QMouseEvent>
#include <QSignalSpy>

#include <memory>

/// One thing found by a click or a short drag.
class TestAutoCreateSingle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<AutoCreateFixture>(); }
    void cleanup() { theFixture.reset(); }

    void clickMakesARegionOfTheThing();
    void clickTakesWhatDiffersByOneInEachChannel_data();
    void clickTakesWhatDiffersByOneInEachChannel();
    void dragTakesInTheColorsItPasses();
    void dragWidensBelowAndAbove();
    void tremblingHandTakesInNothing();
    void threePixelsEachWayTakeInColors();
    void nextPressForgetsTheColors();
    void chosenTypeIsHandedOver();
    void altWithoutACurrentObjectDoesNothing();
    void altWithAnotherToolsObjectDoesNothing();
    void altReshapesTheCurrentObject();
    void altGivesAnAnimatedObjectAKeyframe();
    void toolWithoutKeyframesIsAskedToModify();
    void clickOutsideThePictureFindsNothing();
    void withoutAPictureEventsAreLeftAlone();
    void toolThatHasGoneMakesNothing();
    void otherPictureIsReadForOtherSources_data();
    void otherPictureIsReadForOtherSources();
    void grayAndTransparentPicturesAreSearched_data();
    void grayAndTransparentPicturesAreSearched();
    void nothingFoundIsReported();

private:
    std::unique_ptr<AutoCreateFixture> theFixture;
};

void TestAutoCreateSingle::clickMakesARegionOfTheThing()
{
    AutoCreateFixture& f = *theFixture;
    f.paint(QRect(100, 100, 20, 10), 90, 120, 200);
    f.click(QPoint(65, 75));
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.theStack.count(), 1);
    const QList<QPoint> anchors = f.anchors(1);
    QCOMPARE(anchors.size(), 4);
    for (const QPoint& corner : {QPoint(60, 70), QPoint(79, 70), QPoint(79, 79), QPoint(60, 79)})
        QVERIFY(anchors.contains(corner));
    QVERIFY(f.theEditor.theCurrentTrack == f.item(1));
    f.theStack.undo();
    QCOMPARE(f.recordCount(), 0);
}

void TestAutoCreateSingle::clickTakesWhatDiffersByOneInEachChannel_data()
{
    QTest::addColumn<int>("channel");
    QTest::newRow("red") << 0;
    QTest::newRow("green") << 1;
    QTest::newRow("blue") << 2;
}

// Strips of 10 pixels side by side: two less, one less, the thing, one more, two more.
void TestAutoCreateSingle::clickTakesWhatDiffersByOneInEachChannel()
{
    QFETCH(int, channel);
    AutoCreateFixture& f = *theFixture;
    f.choose("Thing");
    for (int strip = 0; strip < 5; ++strip) {
        int colour[] = {100, 120, 140};
        colour[channel] += strip - 2;
        f.paint(QRect(100 + 10 * strip, 100, 10, 10), colour[0], colour[1], colour[2]);
    }
    f.click(QPoint(85, 75));
    QCOMPARE(f.theMaker.theCreated, (QList<QRect>{AutoCreateFixture::onCanvas(QRect(110, 100, 30, 10))}));
}

void TestAutoCreateSingle::dragTakesInTheColorsItPasses()
{
    AutoCreateFixture& f = *theFixture;
    f.choose("Thing");
    for (int strip = 0; strip < 4; ++strip)
        f.paint(QRect(100 + 10 * strip, 100, 10, 10), 100 + 20 * strip, 100, 100);
    f.drag(QPoint(65, 75), QPoint(75, 75)); // from the first strip into the second
    QCOMPARE(f.theMaker.theCreated, (QList<QRect>{AutoCreateFixture::onCanvas(QRect(100, 100, 20, 10))}));
}

void TestAutoCreateSingle::dragWidensBelowAndAbove()
{
    AutoCreateFixture& f = *theFixture;
    f.choose("Thing");
    for (int strip = 0; strip < 5; ++strip)
        f.paint(QRect(100 + 10 * strip, 100, 10, 10), 100 + 20 * strip, 100, 100);
    f.press(QPoint(85, 75)); // the third strip
    f.move(QPoint(75, 75));
    f.move(QPoint(95, 75));
    f.release(QPoint(95, 75));
    QCOMPARE(f.theAuto.theMinColour[0], static_cast<unsigned char>(120));
    QCOMPARE(f.theAuto.theSeedColour[0], static_cast<unsigned char>(140));
    QCOMPARE(f.theAuto.theMaxColour[0], static_cast<unsigned char>(160));
    QCOMPARE(f.theMaker.theCreated, (QList<QRect>{AutoCreateFixture::onCanvas(QRect(110, 100, 30, 10))}));
}

// 3 * 3 + 1 * 1 = 10, one below the limit.
void TestAutoCreateSingle::tremblingHandTakesInNothing()
{
    AutoCreateFixture& f = *theFixture;
    f.choose("Thing");
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    f.paint(QRect(110, 100, 10, 10), 150, 100, 100);
    f.press(QPoint(68, 75));
    f.move(QPoint(71, 76));
    f.release(QPoint(71, 76));
    QCOMPARE(f.theMaker.theCreated, (QList<QRect>{AutoCreateFixture::onCanvas(QRect(100, 100, 10, 10))}));
}

void TestAutoCreateSingle::threePixelsEachWayTakeInColors()
{
    AutoCreateFixture& f = *theFixture;
    f.choose("Thing");
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    f.paint(QRect(110, 100, 10, 10), 150, 100, 100);
    const int items = int(f.theEditor.canvas()->allItems().size());
    f.press(QPoint(68, 75));
    f.move(QPoint(71, 78));
    QCOMPARE(f.theAuto.theMaxColour[0], static_cast<unsigned char>(150));
    QCOMPARE(int(f.theEditor.canvas()->allItems().size()), items);
    f.release(QPoint(71, 78));
    QCOMPARE(f.theMaker.theCreated, (QList<QRect>{AutoCreateFixture::onCanvas(QRect(100, 100, 20, 10))}));
}

void TestAutoCreateSingle::nextPressForgetsTheColors()
{
    AutoCreateFixture& f = *theFixture;
    f.choose("Thing");
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    f.paint(QRect(110, 100, 10, 10), 150, 100, 100);
    f.drag(QPoint(65, 75), QPoint(75, 75));
    f.click(QPoint(65, 75));
    QCOMPARE(f.theMaker.theCreated.last(), AutoCreateFixture::onCanvas(QRect(100, 100, 10, 10)));
}

void TestAutoCreateSingle::chosenTypeIsHandedOver()
{
    AutoCreateFixture& f = *theFixture;
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    f.choose("Blob");
    f.click(QPoint(65, 75));
    QCOMPARE(f.theMaker.theCreatedNames, QStringList{"Blob"});
}

void TestAutoCreateSingle::altWithoutACurrentObjectDoesNothing()
{
    AutoCreateFixture& f = *theFixture;
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    f.press(QPoint(65, 75), Qt::AltModifier);
    f.release(QPoint(65, 75), Qt::AltModifier);
    QCOMPARE(f.recordCount(), 0);
    QCOMPARE(f.theStack.count(), 0);
}

void TestAutoCreateSingle::altWithAnotherToolsObjectDoesNothing()
{
    AutoCreateFixture& f = *theFixture;
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    f.click(QPoint(65, 75));
    QVERIFY(f.theEditor.theCurrentTrack == f.item(1));
    f.choose("Thing");
    f.press(QPoint(65, 75), Qt::AltModifier);
    f.release(QPoint(65, 75), Qt::AltModifier);
    QVERIFY(f.theMaker.theCreated.isEmpty());
    QVERIFY(f.theMaker.theModified.isEmpty());
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.recordCount(), 1);
}

void TestAutoCreateSingle::altReshapesTheCurrentObject()
{
    AutoCreateFixture& f = *theFixture;
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    f.paint(QRect(200, 150, 30, 20), 50, 60, 70);
    f.click(QPoint(65, 75));
    const QPoint before = f.pos(1);
    f.press(QPoint(170, 130), Qt::AltModifier);
    f.release(QPoint(170, 130), Qt::AltModifier);
    QCOMPARE(f.recordCount(), 1);
    QCOMPARE(f.theStack.count(), 2);
    QVERIFY(f.anchors(1).contains(QPoint(160, 120)));
    QVERIFY(f.anchors(1).contains(QPoint(189, 139)));
    QVERIFY(f.recordIsItem(1));
    f.theStack.undo();
    QCOMPARE(f.pos(1), before);
}

void TestAutoCreateSingle::altGivesAnAnimatedObjectAKeyframe()
{
    AutoCreateFixture& f = *theFixture;
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    f.paint(QRect(200, 150, 30, 20), 50, 60, 70);
    f.click(QPoint(65, 75));
    f.record(1)->theAnimated = true;
    f.theKernel.theCurrentFrame = 7;
    const QVariant colour = f.stored(f.kType, 1, RegionFixture::kCol);
    LmAppSettings::theGridColor = Qt::cyan;
    f.press(QPoint(170, 130), Qt::AltModifier);
    f.release(QPoint(170, 130), Qt::AltModifier);
    QCOMPARE(f.record(1)->getKeyframe(RegionFixture::kPos, 7).getValue().toPoint(), QPoint(215, 160));
    QVERIFY(f.anchors(1).contains(QPoint(160, 120)));
    // The keyframe is of the outline alone: the object keeps its colour.
    QCOMPARE(f.stored(f.kType, 1, RegionFixture::kCol), colour);
}

void TestAutoCreateSingle::toolWithoutKeyframesIsAskedToModify()
{
    AutoCreateFixture& f = *theFixture;
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    int limits[] = {1, 1, 1};
    QVERIFY(f.theMaker.findAndCreate(QPoint(65, 75), true, 5, limits, limits, QStringLiteral("Thing")));
    QCOMPARE(f.theMaker.theModified, QList<int>{5});
    QVERIFY(f.theMaker.theCreated.isEmpty());
}

void TestAutoCreateSingle::clickOutsideThePictureFindsNothing()
{
    AutoCreateFixture& f = *theFixture;
    f.choose("Thing");
    for (const QPoint& point :
         {QPoint(-1, 5), QPoint(5, -1), QPoint(320, 5), QPoint(5, 240), QPoint(-50, -50)}) {
        f.press(QPoint(10, 10));
        f.theAuto.thePressPos = point;
        f.release(point);
    }
    QVERIFY(f.theMaker.theCreated.isEmpty());
    QCOMPARE(f.theStack.count(), 0);
}

void TestAutoCreateSingle::withoutAPictureEventsAreLeftAlone()
{
    AutoCreateFixture& f = *theFixture;
    LmImage empty(0, 0, 3, nullptr, 4);
    for (LmImage* image : {static_cast<LmImage*>(nullptr), &empty}) {
        f.theKernel.theCurrentImage = image;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(60, 60), QPointF(60, 60), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        f.theAuto.mousePressEvent(&press);
        QVERIFY(!press.isAccepted());
        QCOMPARE(f.theAuto.thePressPos, QPoint(60, 60));
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(90, 90), QPointF(90, 90), Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        release.ignore();
        f.theAuto.mouseReleaseEvent(&release);
        QVERIFY(!release.isAccepted());
        f.drag(QPoint(10, 10), QPoint(100, 100));
    }
    QCOMPARE(f.theStack.count(), 0);
    f.theKernel.theCurrentImage = nullptr;
}

void TestAutoCreateSingle::toolThatHasGoneMakesNothing()
{
    AutoCreateFixture& f = *theFixture;
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    f.choose("Thing");
    f.theKernel.unregisterManipulator(&f.theMaker);
    f.click(QPoint(65, 75));
    QVERIFY(f.theMaker.theCreated.isEmpty());
    QCOMPARE(f.theStack.count(), 0);
}

void TestAutoCreateSingle::otherPictureIsReadForOtherSources_data()
{
    QTest::addColumn<int>("source");
    QTest::addColumn<bool>("other");
    QTest::newRow("0") << 0 << false;
    QTest::newRow("1") << 1 << true;
    QTest::newRow("2") << 2 << true;
    QTest::newRow("3") << 3 << false;
}

void TestAutoCreateSingle::otherPictureIsReadForOtherSources()
{
    QFETCH(int, source);
    QFETCH(bool, other);
    AutoCreateFixture& f = *theFixture;
    f.choose("Thing");
    f.paint(QRect(100, 100, 10, 10), 100, 100, 100);
    LmImage alternative(400, 300, 3, nullptr, 4);
    f.theKernel.theAltImage = &alternative;
    f.theKernel.theImageSource = source;
    f.click(QPoint(65, 75));
    QCOMPARE(f.theMaker.theCreated.size(), 1);
    // All of the black picture is one area.
    QCOMPARE(f.theMaker.theCreated[0].size(), other ? QSize(400, 300) : QSize(10, 10));
}

void TestAutoCreateSingle::grayAndTransparentPicturesAreSearched_data()
{
    QTest::addColumn<int>("channels");
    QTest::newRow("gray") << 1;
    QTest::newRow("with alpha") << 4;
}

void TestAutoCreateSingle::grayAndTransparentPicturesAreSearched()
{
    QFETCH(int, channels);
    AutoCreateFixture& f = *theFixture;
    f.choose("Thing");
    LmImage image(60, 50, channels, nullptr, 4);
    for (int y = 20; y < 30; ++y)
        for (int x = 10; x < 40; ++x)
            for (int channel = 0; channel < std::min(channels, 3); ++channel)
                image.row(y)[x * channels + channel] = 80;
    f.theKernel.theCurrentImage = &image;
    f.click(QPoint(15, 25));
    f.theKernel.theCurrentImage = nullptr;
    QCOMPARE(f.theMaker.theCreated, QList<QRect>{QRect(10, 20, 30, 10)});
}

void TestAutoCreateSingle::nothingFoundIsReported()
{
    AutoCreateFixture& f = *theFixture;
    f.choose("Thing");
    QSignalSpy reports(&f.theAuto, &LmCvManipulator::signalReport);
    f.press(QPoint(5, 5));
    f.theAuto.thePressPos = QPoint(-9, -9);
    f.release(QPoint(5, 5));
    QCOMPARE(reports.size(), 1);
    f.click(QPoint(5, 5));
    QCOMPARE(f.theMaker.theCreated.size(), 1);
    QCOMPARE(reports.size(), 1);
}

MEASURE_TEST_MAIN(TestAutoCreateSingle)
#include "TestAutoCreateSingle.moc"
