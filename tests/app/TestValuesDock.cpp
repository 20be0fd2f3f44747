#include "AnimatedObjects.h"
#include "Drawn.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "Media.h"
#include "TestFont.h"
#include "ValueChart.h"
#include "ValueTree.h"
#include "ValuesDock.h"
#include "ValuesWindow.h"

#include <QAction>
#include <QChart>
#include <QDockWidget>
#include <QLabel>
#include <QValueAxis>

#include <algorithm>

/// The curves of values over time, in the window.
class TestValuesDock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dockComesWhenAskedFor();
    void sentenceTellsWhatToDo();
    void currentObjectHasACurveByItself();
    void checkedValuesBecomeCurves();
    void spaceKeyChecks();
    void eachUnitHasItsAxis();
    void clickGoesToTheFrame();
    void keysGoFromFrameToFrame();
    void wheelZoomsAboutThePointer();
    void pointerIsToldTheValue();
    void curveFollowsADragAndItsUndo();
    void calibrationIsFollowed();
    void removedObjectTakesItsCurveAlong();
    void restingObjectHasNoCurve();
    void otherPictureBeginsAnew();
    void colorsAndTextFollowThePalette();
};

void TestValuesDock::dockComesWhenAskedFor()
{
    WindowFixture fixture;
    auto* dock = fixture.window().findChild<ValuesDock*>();
    QVERIFY(dock && !dock->isVisible());
    QVERIFY(WindowFixture::find(*fixture.actions().theViewMenu, dock->windowTitle()));
    fixture.key(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(dock->isVisible());
    QVERIFY(!dock->findChild<ValueTree*>()->visibleRegion().isEmpty());
    fixture.key(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!dock->isVisible());
}

void TestValuesDock::sentenceTellsWhatToDo()
{
    ValuesWindow fixture;
    const QString forChecks = fixture.sentence();
    QVERIFY(!forChecks.isEmpty());
    fixture.check(QStringLiteral("Distance"));
    QCOMPARE(fixture.sentence(), QString());
    QVERIFY(fixture.chart().isVisible());
    fixture.check(QStringLiteral("Distance"));
    QCOMPARE(fixture.sentence(), forChecks);
    QVERIFY(!fixture.chart().isVisible());
    fixture.stack().undo();
    fixture.settle();
    const QString forAnimation = fixture.sentence();
    QVERIFY(forAnimation != forChecks);
    QVERIFY(fixture.window().openAtStart(fixture.picturePath()));
    fixture.settle();
    QVERIFY(!fixture.sentence().isEmpty());
    QVERIFY(fixture.sentence() != forAnimation);
}

void TestValuesDock::currentObjectHasACurveByItself()
{
    ValuesWindow fixture;
    QCOMPARE(fixture.names(), QStringList());
    fixture.click(QPoint(150, 100));
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList{QStringLiteral("Distance 1/Distance")});
    QCOMPARE(fixture.values(), (QList<double>{100, 120, 140, 160, 180, 200}));
    QCOMPARE(fixture.tree().itemOf(fixture.valueOf(QStringLiteral("Distance")))->checkState(0), Qt::Checked);
    fixture.click(QPoint(20, 250));
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList());
    // What the user has taken away doesn't come back while the object is current.
    fixture.click(QPoint(150, 100));
    fixture.settle();
    fixture.check(QStringLiteral("Distance"));
    QCOMPARE(fixture.names(), QStringList());
    // What the user has checked stays.
    fixture.check(QStringLiteral("DX"));
    fixture.click(QPoint(20, 250));
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList{QStringLiteral("Distance 1/DX")});
}

void TestValuesDock::checkedValuesBecomeCurves()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("DY"));
    fixture.check(QStringLiteral("Distance"));
    // In the order of the list.
    QCOMPARE(fixture.names(),
             (QStringList{QStringLiteral("Distance 1/Distance"), QStringLiteral("Distance 1/DY")}));
    QVERIFY(fixture.chart().curves()[0].theColor != fixture.chart().curves()[1].theColor);
    fixture.check(QStringLiteral("DY"));
    QCOMPARE(fixture.names(), QStringList{QStringLiteral("Distance 1/Distance")});
    QCOMPARE(fixture.chart().curves()[0].theColor, QColor(Qt::red));
}

void TestValuesDock::spaceKeyChecks()
{
    ValuesWindow fixture;
    fixture.tree().setCurrentItem(fixture.tree().itemOf(fixture.valueOf(QStringLiteral("DX"))));
    QTest::keyClick(&fixture.tree(), Qt::Key_Space);
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList{QStringLiteral("Distance 1/DX")});
}

void TestValuesDock::eachUnitHasItsAxis()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("DX"));
    QCOMPARE(fixture.axisTitles(), QStringList{QStringLiteral("DX")});
    fixture.check(QStringLiteral("DY"));
    fixture.check(QStringLiteral("Angle"));
    QCOMPARE(fixture.axisTitles(), (QStringList{QStringLiteral("Angle [\u00b0]"), QStringLiteral("DX, DY")}));
}

void TestValuesDock::clickGoesToTheFrame()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("Distance"));
    for (const int frame : {4, 0, 5, 2}) {
        QTest::mouseClick(fixture.chart().viewport(), Qt::LeftButton, Qt::NoModifier,
                          fixture.chart().placeOf(frame));
        QCOMPARE(int(fixture.kernel().theCurrentFrame), frame);
    }
    // Nearer to the third frame than to the others.
    const QPoint third = fixture.chart().placeOf(2);
    const int width = fixture.chart().placeOf(3).x() - third.x();
    QTest::mouseClick(fixture.chart().viewport(), Qt::LeftButton, Qt::NoModifier,
                      third + QPoint(width * 2 / 5, 0));
    QCOMPARE(int(fixture.kernel().theCurrentFrame), 2);
    QTest::mouseClick(fixture.chart().viewport(), Qt::RightButton, Qt::NoModifier,
                      fixture.chart().placeOf(5));
    QCOMPARE(int(fixture.kernel().theCurrentFrame), 2);
}

void TestValuesDock::keysGoFromFrameToFrame()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("Distance"));
    QTest::keyClick(&fixture.chart(), Qt::Key_Right);
    QTest::keyClick(&fixture.chart(), Qt::Key_Right);
    QCOMPARE(fixture.kernel().theCurrentFrame, 2U);
    QVERIFY(fixture.chart().accessibleDescription().contains(QStringLiteral("140")));
    QTest::keyClick(&fixture.chart(), Qt::Key_Left);
    QCOMPARE(fixture.kernel().theCurrentFrame, 1U);
    QTest::keyClick(&fixture.chart(), Qt::Key_End);
    QTest::keyClick(&fixture.chart(), Qt::Key_Right);
    QCOMPARE(fixture.kernel().theCurrentFrame, 5U);
    QTest::keyClick(&fixture.chart(), Qt::Key_Home);
    QTest::keyClick(&fixture.chart(), Qt::Key_Left);
    QCOMPARE(fixture.kernel().theCurrentFrame, 0U);
}

void TestValuesDock::wheelZoomsAboutThePointer()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("Distance"));
    const QPoint whole = fixture.chart().placeOf(3) - fixture.chart().placeOf(2);
    const QPoint pointer = fixture.chart().placeOf(2);
    QWheelEvent turn(pointer, fixture.chart().viewport()->mapToGlobal(pointer), QPoint(), QPoint(0, 240),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(fixture.chart().viewport(), &turn);
    fixture.settle();
    const QPoint larger = fixture.chart().placeOf(3) - fixture.chart().placeOf(2);
    QVERIFY2(larger.x() > whole.x() * 3 / 2, qPrintable(QString::number(larger.x())));
    QVERIFY(qAbs(fixture.chart().placeOf(2).x() - pointer.x()) <= 2);
    // A frame that isn't in the shown part brings its part.
    QTest::keyClick(&fixture.chart(), Qt::Key_End);
    fixture.settle();
    QVERIFY(fixture.chart().viewport()->rect().contains(fixture.chart().placeOf(5)));
    QVERIFY(!fixture.chart().viewport()->rect().contains(fixture.chart().placeOf(0)));
    QTest::mouseDClick(fixture.chart().viewport(), Qt::LeftButton, Qt::NoModifier, pointer);
    fixture.settle();
    QCOMPARE(fixture.chart().placeOf(3) - fixture.chart().placeOf(2), whole);
}

void TestValuesDock::pointerIsToldTheValue()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("Distance"));
    const Curve curve = fixture.chart().curves().constFirst();
    const ValueSample sample = curve.theSeries->theSamples[3];
    const QPoint place = fixture.chart().placeOf(curve, sample);
    QCOMPARE(fixture.chart().textAt(place), QStringLiteral("Distance 1, Distance\nFrame 4\n160"));
    const int far = fixture.chart().viewport()->height() / 2;
    QCOMPARE(fixture.chart().textAt(place - QPoint(0, far)), QString());
}

void TestValuesDock::curveFollowsADragAndItsUndo()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("Distance"));
    const QList<double> before = fixture.values();
    fixture.drag(QPoint(200, 100), QPoint(250, 100));
    const double drawn = fixture.values().value(0);
    QCOMPARE(drawn, 100.0); // what is put off hasn't been done yet
    fixture.settle();
    const QPoint ep = fixture.value(fixture.theIdx, QStringLiteral("ep")).toPoint();
    QCOMPARE(fixture.values().value(0), 2.0 * ep.x());
    QVERIFY(fixture.values().value(0) > before.value(0) + 20.0);
    QCOMPARE(fixture.values().value(5), 200.0);
    fixture.stack().undo();
    fixture.settle();
    QCOMPARE(fixture.values(), before);
    fixture.stack().redo();
    fixture.settle();
    QCOMPARE(fixture.values().value(0), 2.0 * ep.x());
}

void TestValuesDock::calibrationIsFollowed()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("Distance"));
    fixture.kernel().setCalibration(QStringLiteral("lens"), LmCalibData{40.0, QStringLiteral("mm")});
    fixture.kernel().setCurrentCalibration(QStringLiteral("lens"));
    fixture.settle();
    QCOMPARE(fixture.values(), (QList<double>{10, 12, 14, 16, 18, 20}));
    QCOMPARE(fixture.axisTitles(), QStringList{QStringLiteral("Distance [mm]")});
    fixture.kernel().setCalibration(QStringLiteral("lens"), LmCalibData{40.0, QStringLiteral("cm")});
    fixture.settle();
    QCOMPARE(fixture.axisTitles(), QStringList{QStringLiteral("Distance [cm]")});
}

void TestValuesDock::removedObjectTakesItsCurveAlong()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("Distance"));
    fixture.click(QPoint(150, 100));
    fixture.editor().setFocus();
    fixture.key(Qt::Key_Delete);
    QCOMPARE(fixture.distanceCount(), 0);
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList());
    QCOMPARE(fixture.tree().topLevelItemCount(), 0);
    fixture.stack().undo();
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList{QStringLiteral("Distance 1/Distance")});
}

void TestValuesDock::restingObjectHasNoCurve()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("Distance"));
    fixture.click(QPoint(150, 100));
    fixture.key(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!fixture.distance(fixture.theIdx)->theAnimated);
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList());
    fixture.key(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList{QStringLiteral("Distance 1/Distance")});
}

void TestValuesDock::otherPictureBeginsAnew()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("DX"));
    fixture.stack().setClean();
    fixture.openPages(4);
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList());
    AnimatedObjects::addDistance(fixture.bench(), {{0, QPoint(10, 10), QPoint(30, 10)}});
    fixture.editor().setCurrentTrack(nullptr, false);
    fixture.settle();
    QCOMPARE(fixture.tree().topLevelItemCount(), 1);
    QCOMPARE(fixture.names(), QStringList());
    fixture.check(QStringLiteral("DX"));
    QCOMPARE(fixture.values(), (QList<double>{20, 20, 20, 20}));
}

void TestValuesDock::colorsAndTextFollowThePalette()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("Distance"));
    QPalette dark = fixture.window().palette();
    dark.setColor(QPalette::Base, QColor(20, 22, 24));
    dark.setColor(QPalette::Text, QColor(240, 240, 240));
    fixture.dock().setPalette(dark);
    fixture.settle();
    QCOMPARE(fixture.chart().chart()->backgroundBrush().color(), QColor(20, 22, 24));
    const QList<QAbstractAxis*> axes = fixture.chart().chart()->axes();
    QCOMPARE(axes.size(), 2);
    for (const QAbstractAxis* axis : axes)
        QCOMPARE(axis->labelsBrush().color(), QColor(240, 240, 240));
}

MEASURE_TEST_MAIN(TestValuesDock)
#include "TestValuesDock.moc"
