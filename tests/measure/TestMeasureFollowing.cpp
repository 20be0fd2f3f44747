#include "LmCvObject.h"
#include "LmKernelObjectData.h"
#include "MeasureFixture.h"
#include "TestFont.h"

/// How rows and statistics follow calibrations, frames and hiding.
class TestMeasureFollowing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hiddenObjectKeepsItsValues();
    void calibrationRewritesEveryRowAndEveryTable();
    void calibrationOfAnObjectWithoutRowWritesNothing();
    void stoppedVideoRewritesAnimatedObjects();
    void playingVideoRewritesNothing();
    void toolThatDoesNotFollowFramesKeepsItsRows();
    void stillObjectsAreCountedAnewAtAStop();
    void objectsBeforeTheLoadingHaveRows();
};

void TestMeasureFollowing::hiddenObjectKeepsItsValues()
{
    MeasureFixture f;
    f.load({&f.theDistance});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    f.drawDistance(QPoint(20, 100), QPoint(60, 100));
    const QList<QStringList> before{f.row(0), f.row(1)};
    const QStringList statistics = f.statistics(QStringLiteral("Distance"), QStringLiteral("Distance"));
    QCOMPARE(statistics.first(), QStringLiteral("45 "));
    f.theDistance.showCvObject(f.theDistance.getCvObject(1), false);
    QVERIFY(!f.theDistance.getCvObject(1)->isVisible());
    QCOMPARE((QList<QStringList>{f.row(0), f.row(1)}), before);
    QCOMPARE(f.statistics(QStringLiteral("Distance"), QStringLiteral("Distance")), statistics);
    // It counts like any other in later statistics.
    f.drawDistance(QPoint(20, 150), QPoint(80, 150));
    QCOMPARE(f.statistics(QStringLiteral("Distance"), QStringLiteral("Distance")).first(),
             QStringLiteral("50 "));
}

void TestMeasureFollowing::calibrationRewritesEveryRowAndEveryTable()
{
    MeasureFixture f;
    f.load({&f.theDistance, &f.theDimension});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    f.drawDistance(QPoint(20, 100), QPoint(80, 100));
    f.drawDimension(QPoint(200, 20), 60);
    const QStringList keys = f.rowKeys();
    const auto keyMap = f.theMeasure->theRowKeys;
    f.calibrate(100, QStringLiteral("mm")); // 4 pixels are 1 mm
    QCOMPARE(f.cell(QStringLiteral("Distance 1"), QStringLiteral("Distance")), QStringLiteral("12.5 mm"));
    QCOMPARE(f.cell(QStringLiteral("Distance 2"), QStringLiteral("Distance")), QStringLiteral("15 mm"));
    QCOMPARE(f.cell(QStringLiteral("Dimension 1"), QStringLiteral("Height")), QStringLiteral("15 mm"));
    QCOMPARE(f.statistics(QStringLiteral("Distance"), QStringLiteral("Distance")),
             (QStringList{"13.75 mm", "12.5 mm", "15 mm", "1.25 mm"}));
    QCOMPARE(f.statistics(QStringLiteral("Dimension"), QStringLiteral("Height")).first(),
             QStringLiteral("15 mm"));
    QCOMPARE(f.rowKeys(), keys);
    QCOMPARE(f.theMeasure->theRowKeys, keyMap);
}

void TestMeasureFollowing::calibrationOfAnObjectWithoutRowWritesNothing()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    FakeTool nameless(1902, QString(), {"B"});
    MeasureFixture f;
    f.load({&tool, &nameless});
    tool.create(QStringLiteral("A"), 1);
    nameless.create(QStringLiteral("B"), 2);
    const QStringList before = f.row(0);
    nameless.theQuestions = 0;
    f.calibrate(100, QStringLiteral("mm"));
    QVERIFY(nameless.theQuestions > 0);
    QCOMPARE(f.row(0), before);
    QCOMPARE(f.table().numRows(), 1);
}

void TestMeasureFollowing::stoppedVideoRewritesAnimatedObjects()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"X"});
    tool.theIsCounting = true;
    MeasureFixture f;
    f.load({&tool});
    tool.create({}, QPoint(60, 10));
    tool.create({}, QPoint(60, 10));
    tool.changeAnimationCvObject(tool.getCvObject(1), true, false, false);
    f.theKernel.showFrame(0, false);
    tool.moveTo(1, QPoint(60, 10));
    f.theKernel.showFrame(10, false);
    tool.moveTo(1, QPoint(160, 10));
    f.theKernel.showFrame(5, false);
    QCOMPARE(f.row(0).first(), QStringLiteral("150"));
    QCOMPARE(f.row(1).first(), QStringLiteral("100"));
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("X")).first(), QStringLiteral("125 "));
}

void TestMeasureFollowing::playingVideoRewritesNothing()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(QStringLiteral("A"), 1);
    tool.changeAnimationCvObject(tool.getCvObject(1), true, false, false);
    tool.theCells[1][QStringLiteral("A")] = {5, QString()};
    f.theKernel.showFrame(3, true);
    QCOMPARE(f.row(0).first(), QStringLiteral("1"));
    // An animated object counts with the value of the frame at which its row was last written.
    tool.create(QStringLiteral("A"), 3);
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("A")).first(), QStringLiteral("2 "));
    f.theKernel.showFrame(3, false);
    QCOMPARE(f.row(0).first(), QStringLiteral("5"));
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("A")).first(), QStringLiteral("4 "));
}

void TestMeasureFollowing::toolThatDoesNotFollowFramesKeepsItsRows()
{
    FakeTool tool(1901, QStringLiteral("Counter"), {"A"});
    tool.theFlags = 804; // without 128
    MeasureFixture f;
    f.load({&tool});
    tool.create(QStringLiteral("A"), 1);
    f.theKernel.getObject(1901, 1)->theAnimated = true;
    tool.theCells[1][QStringLiteral("A")] = {5, QString()};
    f.theKernel.showFrame(3, false);
    QCOMPARE(f.row(0).first(), QStringLiteral("1"));
    tool.theFlags = 804 | 128;
    f.theKernel.showFrame(4, false);
    QCOMPARE(f.row(0).first(), QStringLiteral("5"));
}

void TestMeasureFollowing::stillObjectsAreCountedAnewAtAStop()
{
    FakeTool tool(1901, QStringLiteral("Probe"), {"A"});
    MeasureFixture f;
    f.load({&tool});
    tool.create(QStringLiteral("A"), 1);
    f.calcTable(QStringLiteral("Probe")).setText(0, 0, QStringLiteral("old"));
    tool.theQuestions = 0;
    f.theKernel.showFrame(3, false);
    QCOMPARE(tool.theQuestions, 0);
    QCOMPARE(f.statistics(QStringLiteral("Probe"), QStringLiteral("A")).first(), QStringLiteral("1 "));
}

void TestMeasureFollowing::objectsBeforeTheLoadingHaveRows()
{
    MeasureFixture f;
    f.loadSilently({&f.theDistance});
    f.drawDistance(QPoint(20, 20), QPoint(60, 50));
    QCOMPARE(f.rowKeys(), QStringList{"Distance 1"});
    f.calibrate(400, QStringLiteral("px"));
    QCOMPARE(f.row(0).first(), QStringLiteral("50 px"));
    f.theKernel.announceManipulatorsLoaded();
    QVERIFY(f.statistics(QStringLiteral("Distance"), QStringLiteral("Distance")).join(QString()).isEmpty());
    f.drawDistance(QPoint(20, 100), QPoint(60, 130));
    QCOMPARE(f.statistics(QStringLiteral("Distance"), QStringLiteral("Distance")).first(),
             QStringLiteral("50 px"));
}

MEASURE_TEST_MAIN(TestMeasureFollowing)
#include "TestMeasureFollowing.moc"
