#include "Calibrating.h"
#include "CalibrationLine.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "ModalAnswer.h"
#include "TestFont.h"
#include "WindowFixture.h"

#include <QAction>
#include <QLabel>
#include <QStatusBar>

/// Calibrating by a known length in the window: two clicks and a number, and every way out of it.
class TestCalibrationTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twoClicksAndANumberCalibrate();
    void oneDragCalibratesToo();
    void calibrationIsOneUndoStep();
    void lineFollowsThePointerAndShiftSnaps();
    void escBeginsAgainAndThenLeaves();
    void formerToolComesBack();
    void anotherToolEndsTheCalibration();
    void cancelledDialogChangesNothing();
    void clickInPlaceIsNoLength();
    void objectsUnderTheClicksStayAsTheyAre();
    void openingAPictureEndsTheCalibration();

private:
    static CalibrationLine* line(WindowFixture& aFixture);
};

CalibrationLine* TestCalibrationTool::line(WindowFixture& aFixture)
{
    const Q3CanvasItemList items = aFixture.editor().getCanvas()->allItems();
    for (Q3CanvasItem* item : items)
        if (auto* found = dynamic_cast<CalibrationLine*>(item))
            return found;
    return nullptr;
}

void TestCalibrationTool::twoClicksAndANumberCalibrate()
{
    WindowFixture fixture;
    QCOMPARE(fixture.draw(QPoint(100, 200), QPoint(300, 200)), 1);
    Calibrating::calibrate(fixture, QStringLiteral("25"));
    QCOMPARE(Calibrating::step(fixture), 8.0);
    QCOMPARE(fixture.distanceCount(), 1);
    QVERIFY(!line(fixture));
    // What is drawn next over the same way measures what was typed.
    QCOMPARE(fixture.draw(QPoint(100, 250), QPoint(300, 250)), 2);
    const QString label = fixture.distanceTool()->getCvObject(2)->labelText();
    QVERIFY2(label.contains(QStringLiteral("<25.00mm>")), qPrintable(label));
    const auto* field = fixture.window().statusBar()->findChild<QLabel*>(QStringLiteral("calibration"));
    QVERIFY(field->text().contains(QStringLiteral("1 px = 0.125 mm")));
}

void TestCalibrationTool::oneDragCalibratesToo()
{
    WindowFixture fixture;
    ModalAnswer answer(Calibrating::type(QStringLiteral("10"), QStringLiteral("cm")));
    fixture.key(Qt::Key_L, Qt::ControlModifier);
    fixture.drag(QPoint(50, 50), QPoint(50, 150));
    QVERIFY(answer.wait());
    QCOMPARE(Calibrating::step(fixture), 10.0);
}

void TestCalibrationTool::calibrationIsOneUndoStep()
{
    WindowFixture fixture;
    const int count = fixture.stack().count();
    Calibrating::calibrate(fixture, QStringLiteral("25"));
    QCOMPARE(fixture.stack().count(), count + 1);
    fixture.stack().undo();
    QCOMPARE(Calibrating::current(fixture), QString());
    QVERIFY(fixture.kernel().calibrations().isEmpty());
    fixture.stack().redo();
    QCOMPARE(Calibrating::current(fixture), QStringLiteral("Calibration 1"));
    QCOMPARE(Calibrating::step(fixture), 8.0);
}

void TestCalibrationTool::lineFollowsThePointerAndShiftSnaps()
{
    WindowFixture fixture;
    fixture.actions().theKnownLength->trigger();
    QVERIFY(!line(fixture));
    fixture.click(QPoint(100, 100));
    QVERIFY(line(fixture));
    fixture.move(QPoint(217, 109));
    QCOMPARE(line(fixture)->startPoint(), QPoint(100, 100));
    QCOMPARE(line(fixture)->endPoint(), QPoint(217, 109));
    fixture.move(QPoint(217, 109), Qt::ShiftModifier);
    QCOMPARE(line(fixture)->endPoint(), QPoint(217, 100));
    fixture.key(Qt::Key_Escape);
}

void TestCalibrationTool::escBeginsAgainAndThenLeaves()
{
    WindowFixture fixture;
    fixture.actions().theKnownLength->trigger();
    QVERIFY(fixture.actions().theKnownLength->isChecked());
    fixture.click(QPoint(100, 100));
    fixture.key(Qt::Key_Escape);
    QVERIFY(!line(fixture));
    QVERIFY(fixture.actions().theKnownLength->isChecked());
    fixture.move(QPoint(200, 100));
    QVERIFY(!line(fixture));
    fixture.key(Qt::Key_Escape);
    QVERIFY(!fixture.actions().theKnownLength->isChecked());
    QVERIFY(fixture.actions().theArrow->isChecked());
    QCOMPARE(fixture.stack().count(), 0);
}

void TestCalibrationTool::formerToolComesBack()
{
    WindowFixture fixture;
    fixture.pickDistance();
    Calibrating::calibrate(fixture, QStringLiteral("25"));
    QCOMPARE(fixture.editor().theCurrentManipulator, fixture.distanceTool());
    QVERIFY(!fixture.actions().theKnownLength->isChecked());
    fixture.drag(QPoint(100, 200), QPoint(300, 200));
    QCOMPARE(fixture.distanceCount(), 1);
}

void TestCalibrationTool::anotherToolEndsTheCalibration()
{
    WindowFixture fixture;
    fixture.actions().theKnownLength->trigger();
    fixture.click(QPoint(100, 100));
    fixture.pickDistance();
    QVERIFY(!line(fixture));
    QVERIFY(!fixture.actions().theKnownLength->isChecked());
    const ModalAnswer nothing(QList<ModalAnswer::Answer>{});
    fixture.drag(QPoint(100, 200), QPoint(300, 200));
    QCOMPARE(fixture.distanceCount(), 1);
}

void TestCalibrationTool::cancelledDialogChangesNothing()
{
    WindowFixture fixture;
    ModalAnswer answer(ModalAnswer::cancel());
    fixture.actions().theKnownLength->trigger();
    fixture.click(QPoint(100, 100));
    fixture.click(QPoint(200, 100));
    QVERIFY(answer.wait());
    QCOMPARE(fixture.stack().count(), 0);
    QVERIFY(!line(fixture));
    QVERIFY(!fixture.actions().theKnownLength->isChecked());
}

void TestCalibrationTool::clickInPlaceIsNoLength()
{
    WindowFixture fixture;
    const ModalAnswer nothing(QList<ModalAnswer::Answer>{});
    fixture.actions().theKnownLength->trigger();
    fixture.click(QPoint(100, 100));
    fixture.click(QPoint(100, 100));
    QCoreApplication::processEvents();
    QVERIFY(line(fixture));
    fixture.key(Qt::Key_Escape);
}

void TestCalibrationTool::objectsUnderTheClicksStayAsTheyAre()
{
    WindowFixture fixture;
    QCOMPARE(fixture.draw(QPoint(100, 150), QPoint(300, 150)), 1);
    const QVariant pos = fixture.value(1, QStringLiteral("pos"));
    const QVariant end = fixture.value(1, QStringLiteral("ep"));
    Calibrating::calibrate(fixture, QStringLiteral("25"));
    QCOMPARE(Calibrating::step(fixture), 8.0);
    QCOMPARE(fixture.value(1, QStringLiteral("pos")), pos);
    QCOMPARE(fixture.value(1, QStringLiteral("ep")), end);
    QVERIFY(fixture.distanceTool()->getCvObject(1)->labelText().contains(QStringLiteral("mm>")));
}

void TestCalibrationTool::openingAPictureEndsTheCalibration()
{
    WindowFixture fixture;
    fixture.actions().theKnownLength->trigger();
    fixture.click(QPoint(100, 100));
    QVERIFY(fixture.window().openAtStart(fixture.picturePath()));
    QVERIFY(!line(fixture));
    QVERIFY(!fixture.actions().theKnownLength->isChecked());
}

MEASURE_TEST_MAIN(TestCalibrationTool)
#include "TestCalibrationTool.moc"
