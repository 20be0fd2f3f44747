#include "CounterFixture.h"
#include "TestFont.h"

#include <cmath>
#include <limits>
#include <memory>

/// Calibration, frames and the camera.
class TestCounterFrames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<CounterFixture>(); }
    void cleanup() { theFixture.reset(); }

    void calibrationGoesToAllMarks();
    void calibrationTooSmallIsNone_data();
    void calibrationTooSmallIsNone();
    void calibrationThatIsNoNumberCountsAsGiven();
    void framesLeaveTheMarksInAPlainView();
    void framesMakeTheMarksAnewInAnAnimatedView();
    void hiddenCounterKeepsItsMarksOnFrames();
    void cameraResolutionScalesByTheWidth();
    void cameraResolutionLeavesHiddenMarks();

private:
    LmCalibData calibration(double aValue) const;

    std::unique_ptr<CounterFixture> theFixture;
};

LmCalibData TestCounterFrames::calibration(double aValue) const
{
    LmCalibData data;
    data.theValue = aValue;
    data.theUnit = QStringLiteral("um");
    return data;
}

void TestCounterFrames::calibrationGoesToAllMarks()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2, 1});
    f.insertRecord(7, {QPoint(90, 90)}, false);
    f.theKernel.theCalibScale = 0.5;
    f.theTool.theSelfChange = true; // not asked for
    f.theTool.slotCalibrationChangedInKernel(QStringLiteral("any"), calibration(80.0));
    f.theTool.theSelfChange = false;
    for (const int idx : {1, 2, 7})
        for (const LmCvArrow* mark : f.marks(idx)) {
            QCOMPARE(mark->theStep, 2.5); // 400 pixels times a half in 80 units
            QCOMPARE(mark->theUnit, QStringLiteral("um"));
        }
    f.theKernel.setCalibration(QStringLiteral("new"), calibration(20.0));
    QCOMPARE(f.mark(1, 0)->theStep, 10.0);
    f.theKernel.setCalibration(QStringLiteral("newer"), calibration(40.0));
    f.theKernel.setCurrentCalibration(QStringLiteral("new"));
    QCOMPARE(f.mark(1, 0)->theStep, 10.0);
}

void TestCounterFrames::calibrationTooSmallIsNone_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("step");
    QTest::newRow("zero") << 0.0 << 0.0;
    QTest::newRow("negative") << -5.0 << 0.0;
    QTest::newRow("limit") << 0.001 << 0.0;
    QTest::newRow("above the limit") << 0.002 << 200000.0;
}

void TestCounterFrames::calibrationTooSmallIsNone()
{
    QFETCH(double, value);
    QFETCH(double, step);
    CounterFixture& f = *theFixture;
    f.makeCounters({1});
    f.theTool.slotCalibrationChangedInKernel(QString(), calibration(value));
    QCOMPARE(f.mark(1, 0)->theStep, step);
    QCOMPARE(f.mark(1, 0)->theUnit, QStringLiteral("um"));
}

void TestCounterFrames::calibrationThatIsNoNumberCountsAsGiven()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1});
    f.theTool.slotCalibrationChangedInKernel(QString(),
                                             calibration(std::numeric_limits<double>::quiet_NaN()));
    QVERIFY(std::isnan(f.mark(1, 0)->theStep));
    QCOMPARE(f.mark(1, 0)->theUnit, QStringLiteral("um"));
}

void TestCounterFrames::framesLeaveTheMarksInAPlainView()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1});
    f.record(1)->theAnimated = true;
    f.record(1)->storeValue(f.kPos, 5,
                            QVariant::fromValue<QPolygon>(QPolygon({QPoint(100, 100), QPoint(140, 130)})));
    const QList<QPoint> tips = f.tips(1);
    f.theKernel.showFrame(6, false);
    f.theTool.recreateCanvasObjects(QPoint(), 6, false);
    QCOMPARE(f.tips(1), tips);
}

void TestCounterFrames::framesMakeTheMarksAnewInAnAnimatedView()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1});
    f.record(1)->theAnimated = true;
    f.record(1)->storeValue(f.kPos, 2, QVariant::fromValue<QPolygon>(f.points(1)));
    f.record(1)->storeValue(f.kPos, 5,
                            QVariant::fromValue<QPolygon>(QPolygon(
                                {QPoint(100, 100), QPoint(140, 130), QPoint(200, 100), QPoint(240, 130)})));
    const QList<QPoint> first = f.tips(1);
    f.theKernel.announceCurrentView(0, 1);
    f.theKernel.showFrame(6, true);
    QCOMPARE(f.tips(1), (QList<QPoint>{QPoint(100, 100), QPoint(200, 100)}));
    f.theKernel.showFrame(4, false);
    QCOMPARE(f.tips(1), first); // held, not blended
    // The frame that is asked for doesn't count, the current one does.
    f.theTool.recreateCanvasObjects(QPoint(), 6, true);
    QCOMPARE(f.tips(1), first);
}

void TestCounterFrames::hiddenCounterKeepsItsMarksOnFrames()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {QPoint(90, 90)}, false);
    const LmCvArrow* mark = f.mark(3, 0);
    f.record(3)->storeValue(f.kPos, -1, QVariant::fromValue<QPolygon>(QPolygon()));
    f.theTool.recreateCanvasObjects(QPoint(), 0, true);
    QCOMPARE(f.marks(3).size(), 1);
    QCOMPARE(f.mark(3, 0), mark);
}

void TestCounterFrames::cameraResolutionScalesByTheWidth()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {QPoint(100, 101), QPoint(191, 190)});
    f.theKernel.announceResolution(QSize(800, 600), QSize(400, 123));
    // 120, 81 and 100, 101; 211, 170 and 191, 190: halved, halves away from zero.
    QCOMPARE(f.points(3), QPolygon({QPoint(60, 41), QPoint(50, 51), QPoint(106, 85), QPoint(96, 95)}));
    QCOMPARE(f.tips(3), (QList<QPoint>{QPoint(10, 21), QPoint(56, 65)}));
    QCOMPARE(f.name(3), QStringLiteral("7"));
    QCOMPARE(f.theStack.count(), 0);
}

void TestCounterFrames::cameraResolutionLeavesHiddenMarks()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {QPoint(100, 101)}, false);
    const QList<QPoint> tips = f.tips(3);
    f.theKernel.announceResolution(QSize(800, 600), QSize(400, 300));
    QCOMPARE(f.points(3), QPolygon({QPoint(60, 41), QPoint(50, 51)}));
    QCOMPARE(f.tips(3), tips);
    f.theKernel.announceResolution(QSize(0, 600), QSize(400, 300)); // no factor
    QCOMPARE(f.points(3), QPolygon({QPoint(60, 41), QPoint(50, 51)}));
}

MEASURE_TEST_MAIN(TestCounterFrames)
#include "TestCounterFrames.moc"
