#include "EditorFixture.h"
#include "LmKernelObjectData.h"
#include "TestFont.h"

#include <QSignalSpy>
#include <QToolButton>

namespace {

LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

} // namespace

class TestManipulatorValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void displayValueOfEachType_data();
    void displayValueOfEachType();
    void displayValueReadsTheItemDuringADrag();
    void displayValueOfAnItemWithoutRecordStays();
    void valuesByIndexAreThoseOfTheRecord();
    void animationHasOneValuePerKeyframedFrame();
    void preparedItemHasStepUnitAndZoom();
    void currentItemIsTakenOver();
    void buttonActivatesAndPutsDown();
};

void TestManipulatorValues::displayValueOfEachType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("double") << "X"
                            << "25.00mm";
    QTest::newRow("integer") << "Count"
                             << "100mm";
    QTest::newRow("unsigned") << "Unsigned"
                              << "4000000000mm";
    QTest::newRow("null") << "unknown"
                          << "";
    QTest::newRow("no name") << ""
                             << "";
}

void TestManipulatorValues::displayValueOfEachType()
{
    QFETCH(QString, name);
    EditorFixture f;
    kernel().setCalibration(QStringLiteral("c"), LmCalibData{100.0, QStringLiteral("mm")});
    kernel().setCurrentCalibration(QStringLiteral("c"));
    ProbeItem* item = f.theTool.create(QPoint(100, 10));
    item->setDisplayValue(QStringLiteral("stale"));
    f.theTool.updateDisplayValue(item, name, true, true);
    QTEST(item->theDisplayValue, "text");
}

void TestManipulatorValues::displayValueReadsTheItemDuringADrag()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(100, 10));
    item->place(QPoint(130, 10));
    f.theTool.updateDisplayValue(item, QStringLiteral("X"), false, true);
    QCOMPARE(item->theDisplayValue, QStringLiteral("130.00px"));
    f.theTool.updateDisplayValue(item, QStringLiteral("X"), true, true);
    QCOMPARE(item->theDisplayValue, QStringLiteral("100.00"));
}

void TestManipulatorValues::displayValueOfAnItemWithoutRecordStays()
{
    EditorFixture f;
    ProbeItem foreign(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    foreign.setDisplayValue(QStringLiteral("kept"));
    f.theTool.updateDisplayValue(&foreign, QStringLiteral("X"), true, true);
    QCOMPARE(foreign.theDisplayValue, QStringLiteral("kept"));
    f.theTool.updateDisplayValue(nullptr, QStringLiteral("X"), true, true);
}

void TestManipulatorValues::valuesByIndexAreThoseOfTheRecord()
{
    EditorFixture f;
    f.theTool.create(QPoint(100, 10));
    QStringList units;
    const QStringList names{QStringLiteral("Count"), QStringLiteral("unknown")};
    const QLinkedList<QVariant> values = f.theTool.getValues(names, 1, units);
    QCOMPARE(values.size(), 2);
    QCOMPARE(values.first(), QVariant(100));
    QVERIFY(!values.last().isValid());
    QCOMPARE(units.size(), 2);
    QVERIFY(f.theTool.getValues(names, 9, units).isEmpty());
    QVERIFY(units.isEmpty());
}

void TestManipulatorValues::animationHasOneValuePerKeyframedFrame()
{
    EditorFixture f;
    f.theTool.create(QPoint(100, 10));
    f.theTool.changeAnimationCvObject(f.theTool.item(1), true, false, false);
    LmKernelObjectData* record = f.theTool.record(1);
    record->storeValue(ProbeTool::kPos, 8, QPoint(300, 10));
    record->storeValue(ProbeTool::kPos, 2, QPoint(200, 10));
    kernel().theCurrentFrame = 5;
    QString unit;
    const QLinkedList<LmParamKeyframe> animation = f.theTool.getAnimation(QStringLiteral("Count"), 1, unit);
    QCOMPARE(animation.size(), 3); // the first from being animated
    QCOMPARE(animation.first(), LmParamKeyframe(0, 100));
    QCOMPARE(*std::next(animation.begin()), LmParamKeyframe(2, 200));
    QCOMPARE(animation.last(), LmParamKeyframe(8, 300));
    QCOMPARE(kernel().theCurrentFrame, 5u);
    QVERIFY(f.theTool.getAnimation(QStringLiteral("Count"), 9, unit).isEmpty());
    kernel().theCurrentFrame = 0;
}

void TestManipulatorValues::preparedItemHasStepUnitAndZoom()
{
    EditorFixture f;
    kernel().setCalibration(QStringLiteral("c"), LmCalibData{100.0, QStringLiteral("mm")});
    kernel().setCurrentCalibration(QStringLiteral("c"));
    f.theEditor.setZoom(0.5);
    ProbeItem item(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    f.theTool.prepareItem(&item);
    QCOMPARE(item.theStep, 4.0);
    QCOMPARE(item.theUnit, QStringLiteral("mm"));
    QCOMPARE(item.theScale, 0.5);
}

void TestManipulatorValues::currentItemIsTakenOver()
{
    EditorFixture f;
    ProbeItem* first = f.theTool.create(QPoint(10, 10));
    ProbeItem* second = f.theTool.create(QPoint(40, 10));
    f.theTool.makeItemCurrent(first);
    QSignalSpy spy(&f.theEditor, &LmCvEditor::signalCurrentObjectChanged);
    f.theTool.makeItemCurrent(second);
    QVERIFY(!first->isActive());
    QVERIFY(second->isActive());
    QCOMPARE(f.theEditor.theCurrentTrack, second);
    QCOMPARE(spy.count(), 1);
}

void TestManipulatorValues::buttonActivatesAndPutsDown()
{
    EditorFixture f;
    QTest::mouseClick(f.theTool.theToolButton, Qt::LeftButton);
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    QTest::mouseClick(f.theOtherTool.theToolButton, Qt::LeftButton);
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theOtherTool);
    QVERIFY(!f.theTool.theToolButton->isChecked());
    QTest::mouseClick(f.theOtherTool.theToolButton, Qt::LeftButton);
    QVERIFY(!f.theEditor.theCurrentManipulator);
    f.theTool.makeCurrent();
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    QVERIFY(f.theTool.theToolButton->isChecked());
}

MEASURE_TEST_MAIN(TestManipulatorValues)
#include "TestManipulatorValues.moc"
