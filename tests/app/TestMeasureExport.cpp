#include "Drawn.h"
#include "LmAppSettings.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "MadeFiles.h"
#include "MeasureWindow.h"
#include "MenuTool.h"
#include "ModalAnswer.h"
#include "Q3Table.h"
#include "TestFont.h"

#include <QDockWidget>
#include <QHeaderView>

/// What stands in the file that the export button writes, byte for byte.
class TestMeasureExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileIsByteForByte();
    void emptyTableGivesTheHeadAlone();
    void uncalibratedTableHasNoUnitInItsHead();
    void valuesAreCutAndNotRounded();
    void typesShareTheirColumns();
    void hiddenObjectsAreExported();
    void columnsComeInTheOrderOfTheScreen();
    void animatedValuesAreThoseOfTheCurrentFrame();
    void rowWithoutAnObjectIsPassedOver();
    void typeWithoutItsToolIsPassedOver();
    void earlierContentsOfTheFileAreGone();
    void tableStaysAsItIs();

private:
    // Lines of the table of distances.
    static constexpr char kHeading[] = "Object name\tDistance\tDX\tDY\tAngle\t \t\n";

    static QByteArray exported(MeasureWindow& aFixture);
};

QByteArray TestMeasureExport::exported(MeasureWindow& aFixture)
{
    const QString path = aFixture.path(QStringLiteral("table.txt"));
    QFile::remove(path);
    const ModalAnswer answer(ModalAnswer::chooseFile(path));
    aFixture.clickExport();
    return answer.isDone() ? MadeFiles::read(path) : QByteArray("the dialog didn't come");
}

void TestMeasureExport::fileIsByteForByte()
{
    MeasureWindow fixture;
    addDistance(fixture.bench(), QPoint(40, 40), QPoint(164, 40));
    addDistance(fixture.bench(), QPoint(40, 60), QPoint(70, 100));
    QCOMPARE(exported(fixture), fixture.exportHead() + kHeading + "Distance 1\t12.4\t12.4\t0\t0\t\t\n" +
                                    "Distance 2\t5\t3\t4\t-53.2\t\t\n");
}

void TestMeasureExport::emptyTableGivesTheHeadAlone()
{
    MeasureWindow fixture;
    QCOMPARE(exported(fixture), fixture.exportHead() + "Object name\t\n");
}

void TestMeasureExport::uncalibratedTableHasNoUnitInItsHead()
{
    MeasureWindow fixture;
    fixture.kernel().setCurrentCalibration(QString());
    addDistance(fixture.bench(), QPoint(40, 60), QPoint(70, 100));
    QCOMPARE(exported(fixture),
             fixture.exportHead(QByteArray()) + kHeading + "Distance 1\t50\t30\t40\t-53.2\t\t\n");
}

void TestMeasureExport::valuesAreCutAndNotRounded()
{
    MeasureWindow fixture;
    fixture.kernel().setCalibration(QStringLiteral("fine"), LmCalibData{3.996, QStringLiteral("\u00b5m")});
    fixture.kernel().setCurrentCalibration(QStringLiteral("fine"));
    addDistance(fixture.bench(), QPoint(0, 60), QPoint(100, 60)); // 0.999
    addDistance(fixture.bench(), QPoint(0, 70), QPoint(6, 70));   // 0.05994
    QCOMPARE(exported(fixture), fixture.exportHead("\xc2\xb5m") + kHeading +
                                    "Distance 1\t0.99\t0.99\t0\t0\t\t\n" +
                                    "Distance 2\t0.05\t0.05\t0\t0\t\t\n");
}

void TestMeasureExport::typesShareTheirColumns()
{
    MeasureWindow fixture;
    MenuTool tool(fixture, 0);
    tool.create(QPoint(70, 40));
    addDistance(fixture.bench(), QPoint(40, 60), QPoint(70, 100));
    QCOMPARE(exported(fixture), fixture.exportHead() + "Object name\tX\tCount\tDistance\tDX\tDY\tAngle\t \t\n"
                                                       "Probe 1\t7\t70\t\t\t\t\t\t\n"
                                                       "Distance 1\t\t\t5\t3\t4\t-53.2\t\t\n");
}

void TestMeasureExport::hiddenObjectsAreExported()
{
    MeasureWindow fixture;
    addDistance(fixture.bench(), QPoint(40, 60), QPoint(70, 100));
    const QByteArray shown = exported(fixture);
    fixture.distanceTool()->showCvObject(fixture.distanceTool()->getCvObject(1), false);
    QVERIFY(!fixture.isShown(1));
    QVERIFY(shown.contains("Distance 1\t"));
    QCOMPARE(exported(fixture), shown);
}

void TestMeasureExport::columnsComeInTheOrderOfTheScreen()
{
    MeasureWindow fixture;
    addDistance(fixture.bench(), QPoint(40, 60), QPoint(70, 100));
    fixture.table().horizontalHeader()->moveSection(3, 0);
    QCOMPARE(exported(fixture), fixture.exportHead() + "Object name\tAngle\tDistance\tDX\tDY\t \t\n" +
                                    "Distance 1\t-53.2\t5\t3\t4\t\t\n");
    // The blank column is one like the others.
    fixture.table().horizontalHeader()->moveSection(4, 1);
    QCOMPARE(exported(fixture), fixture.exportHead() + "Object name\tAngle\t \tDistance\tDX\tDY\t\n" +
                                    "Distance 1\t-53.2\t\t5\t3\t4\t\n");
}

void TestMeasureExport::animatedValuesAreThoseOfTheCurrentFrame()
{
    MeasureWindow fixture;
    fixture.openPages(3);
    fixture.calibrate();
    MenuTool tool(fixture, 128);
    tool.create(QPoint(50, 40));
    LmKernelObjectData* record = tool.record(1);
    record->theAnimated = true;
    record->storeValue(ProbeTool::kPos, 0, QPoint(50, 40));
    record->storeValue(ProbeTool::kPos, 2, QPoint(90, 40));
    fixture.kernel().announceObjectChanged(ProbeTool::kType, 1);
    QCOMPARE(fixture.table().text(0, 1), QStringLiteral("50 mm"));
    fixture.kernel().showFrame(1, true); // while playing the table doesn't follow
    QCOMPARE(fixture.table().text(0, 1), QStringLiteral("50 mm"));
    QVERIFY(exported(fixture).endsWith("\nProbe 1\t7\t70\t\t\n"));
    fixture.kernel().showFrame(2, false);
    QCOMPARE(fixture.table().text(0, 1), QStringLiteral("90 mm"));
    QVERIFY(exported(fixture).endsWith("\nProbe 1\t9\t90\t\t\n"));
}

void TestMeasureExport::rowWithoutAnObjectIsPassedOver()
{
    MeasureWindow fixture;
    fixture.addThree();
    fixture.table().verticalHeader()->setLabel(1, QStringLiteral("Distance 77"));
    QCOMPARE(exported(fixture), fixture.exportHead() + kHeading + "Distance 1\t10\t10\t0\t0\t\t\n" +
                                    "Distance 3\t10\t10\t0\t0\t\t\n");
}

void TestMeasureExport::typeWithoutItsToolIsPassedOver()
{
    MeasureWindow fixture;
    {
        MenuTool tool(fixture, 0);
        tool.create(QPoint(70, 40));
    }
    QCOMPARE(fixture.table().numRows(), 1);
    QCOMPARE(exported(fixture), fixture.exportHead() + "Object name\tX\tCount\t \t\n");
}

void TestMeasureExport::earlierContentsOfTheFileAreGone()
{
    MeasureWindow fixture;
    const QString path = fixture.path(QStringLiteral("table.txt"));
    MadeFiles::write(path, QByteArray(5000, 'x'));
    const ModalAnswer answer({ModalAnswer::chooseFile(path), ModalAnswer::press(QMessageBox::Yes),
                              ModalAnswer::press(QMessageBox::Yes)});
    fixture.clickExport();
    QCOMPARE(MadeFiles::read(path), fixture.exportHead() + "Object name\t\n");
}

void TestMeasureExport::tableStaysAsItIs()
{
    MeasureWindow fixture;
    fixture.addThree();
    const QString cell = fixture.table().text(1, 0);
    const int steps = fixture.stack().count();
    QVERIFY(exported(fixture).contains("Distance 2\t10\t"));
    QCOMPARE(fixture.table().numRows(), 3);
    QCOMPARE(fixture.table().currentRow(), 1);
    QCOMPARE(fixture.table().text(1, 0), cell);
    QCOMPARE(fixture.stack().count(), steps);
}

MEASURE_TEST_MAIN(TestMeasureExport)
#include "TestMeasureExport.moc"
