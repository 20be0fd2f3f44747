#include "AngleFixture.h"
#include "CmdChangeObject.h"
#include "LmKernelObjectDataDescr.h"
#include "TestFont.h"

#include <memory>

namespace {

const QPoint theVertex(100, 151);
const QPoint theUp(101, 70);
const QPoint theRight(183, 150);

} // namespace

/// The ways between the three points on the canvas and the record: edits, undo, frames, resolution.
class TestAngleRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void editGoesIntoTheRecord_data();
    void editGoesIntoTheRecord();
    void nothingIsRoundedOnTheWayBack();
    void editKeepsTheShownValueTheColourAndTheVisibility();
    void editedLabelFollows();
    void redoneItemHasNoValueUntilTheNextFrame();
    void changeFromElsewhereComesToTheCanvas();
    void otherTypesAreIgnored();
    void animatedAngleFollowsTheFrames();
    void plainAngleFollowsOnlyInAnAnimatedView();
    void editOfAnAnimatedAngleIsAKeyframe();
    void regionOfInterestMovesTheCanvas();
    void resolutionScalesAllThreeDefaults();

private:
    std::unique_ptr<AngleFixture> theFixture;
};

// The record: (140, 181), (1, -81), (83, -1).
void TestAngleRecords::init()
{
    theFixture = std::make_unique<AngleFixture>();
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Angle");
    theFixture->draw(theVertex, theUp, theRight);
    QCOMPARE(theFixture->storedPoints(1), (QList<QPoint>{QPoint(140, 181), QPoint(1, -81), QPoint(83, -1)}));
}

void TestAngleRecords::editGoesIntoTheRecord_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QList<QPoint>>("record");
    const QPoint onLabel(theVertex + QPoint(0, 12));
    QTest::newRow("first end") << theUp << QPoint(60, 80)
                               << QList<QPoint>{QPoint(140, 181), QPoint(-40, -71), QPoint(83, -1)};
    QTest::newRow("second end") << theRight << QPoint(150, 190)
                                << QList<QPoint>{QPoint(140, 181), QPoint(1, -81), QPoint(50, 39)};
    QTest::newRow("vertex by the label")
        << onLabel << QPoint(120, 140) << QList<QPoint>{QPoint(160, 170), QPoint(-19, -70), QPoint(63, 10)};
    QTest::newRow("whole by the arc") << theVertex + QPoint(12, -12) << theVertex + QPoint(22, 8)
                                      << QList<QPoint>{QPoint(150, 201), QPoint(1, -81), QPoint(83, -1)};
    QTest::newRow("whole by an arm") << QPoint(150, 151) << QPoint(149, 141)
                                     << QList<QPoint>{QPoint(139, 171), QPoint(1, -81), QPoint(83, -1)};
}

void TestAngleRecords::editGoesIntoTheRecord()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QList<QPoint>, record);
    AngleFixture& f = *theFixture;
    const QList<QPoint> before = f.storedPoints(1);
    f.drag(from, to);
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.theStack.count(), 2);
    QCOMPARE(f.storedPoints(1), record);
    f.theStack.undo();
    QCOMPARE(f.storedPoints(1), before);
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex, theUp, theRight}));
    f.theStack.redo();
    QCOMPARE(f.storedPoints(1), record);
    const QPoint vertex = record[0] - QPoint(40, 30);
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{vertex, vertex + record[1], vertex + record[2]}));
}

void TestAngleRecords::nothingIsRoundedOnTheWayBack()
{
    AngleFixture& f = *theFixture;
    f.theStack.undo();
    f.theStack.redo();
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex, theUp, theRight}));
}

void TestAngleRecords::editKeepsTheShownValueTheColourAndTheVisibility()
{
    AngleFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("none of these");
    f.drag(theUp, QPoint(60, 80));
    QCOMPARE(f.stored(1106, 1, AngleFixture::kDispv), QVariant(QStringLiteral("Angle")));
    QCOMPARE(f.stored(1106, 1, AngleFixture::kCol), QVariant(QColor(Qt::red)));
    QCOMPARE(f.stored(1106, 1, AngleFixture::kVis), QVariant(true));
}

void TestAngleRecords::editedLabelFollows()
{
    AngleFixture& f = *theFixture;
    f.press(theRight);
    f.move(theUp);
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("0.00°"));
    f.release(theUp);
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("0.00°"));
    f.theStack.undo();
    QVERIFY(f.item(1)->theDisplayValue != QStringLiteral("0.00°"));
}

void TestAngleRecords::redoneItemHasNoValueUntilTheNextFrame()
{
    AngleFixture& f = *theFixture;
    LmCvManipulator::theCurrentViewAnimated = true;
    const QString shown = f.item(1)->theDisplayValue;
    f.theStack.undo();
    f.theStack.redo();
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 "));
    f.theKernel.showFrame(0, false);
    QCOMPARE(f.item(1)->theDisplayValue, shown);
}

void TestAngleRecords::changeFromElsewhereComesToTheCanvas()
{
    AngleFixture& f = *theFixture;
    const LmKernelObjectDataDescr* descriptor = f.theKernel.getDataDescriptor(1106);
    LmParamKeyframeVector vector = descriptor->createKeyframeVector();
    QVERIFY(descriptor->setValue(vector, QStringLiteral("pos"), QPoint(100, 100)));
    QVERIFY(descriptor->setValue(vector, QStringLiteral("ep1"), QPoint(0, -50)));
    QVERIFY(descriptor->setValue(vector, QStringLiteral("ep2"), QPoint(0, 50)));
    QVERIFY(descriptor->setValue(vector, QStringLiteral("dispv"), QStringLiteral("Angle")));
    f.theStack.push(new CmdChangeObject(1106, 1, vector, false));
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{QPoint(60, 70), QPoint(60, 20), QPoint(60, 120)}));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("180.00°"));
    f.theStack.undo();
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex, theUp, theRight}));
}

void TestAngleRecords::otherTypesAreIgnored()
{
    AngleFixture& f = *theFixture;
    LmParamKeyframeVector values = f.record(1)->getDefaultKeyframes();
    values.setValue(AngleFixture::kPos, QPoint(0, 0));
    const LmKernelObjectData other(values, f.theKernel.getDataDescriptor(1106)->getKeyframeTypes(), 0);
    Q_EMIT f.theKernel.signalObjectCreated(1102, 5, &other);
    Q_EMIT f.theKernel.signalObjectChanged(1102, 1, &other);
    Q_EMIT f.theKernel.signalObjectRemoved(1102, 1);
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.item(1)->theVertex, theVertex);
    Q_EMIT f.theKernel.signalObjectChanged(1106, 1, &other);
    QCOMPARE(f.item(1)->theVertex, QPoint(-40, -30));
}

void TestAngleRecords::animatedAngleFollowsTheFrames()
{
    AngleFixture& f = *theFixture;
    f.record(1)->theAnimated = true;
    f.setKeyframe(1, 0, QPoint(100, 100), QPoint(0, -20), QPoint(20, 0));
    f.setKeyframe(1, 10, QPoint(200, 100), QPoint(0, -20), QPoint(-20, 0));
    f.theKernel.showFrame(0, false);
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{QPoint(60, 70), QPoint(60, 50), QPoint(80, 70)}));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("90.00°"));
    f.theKernel.showFrame(10, true);
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{QPoint(160, 70), QPoint(160, 50), QPoint(140, 70)}));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("270.00°"));
    // Half-way the second arm passes through the vertex: an arm of length 0 points right.
    f.theKernel.showFrame(5, true);
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{QPoint(110, 70), QPoint(110, 50), QPoint(110, 70)}));
    QCOMPARE(f.item(1)->theDisplayValue, QStringLiteral("90.00°"));
}

void TestAngleRecords::plainAngleFollowsOnlyInAnAnimatedView()
{
    AngleFixture& f = *theFixture;
    f.item(1)->setPoints(QPoint(1, 2), QPoint(3, 4), QPoint(5, 6));
    f.theKernel.showFrame(5, false);
    QCOMPARE(f.item(1)->theVertex, QPoint(1, 2));
    LmCvManipulator::theCurrentViewAnimated = true;
    f.theKernel.showFrame(6, false);
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex, theUp, theRight}));
}

void TestAngleRecords::editOfAnAnimatedAngleIsAKeyframe()
{
    AngleFixture& f = *theFixture;
    f.record(1)->theAnimated = true;
    f.theKernel.showFrame(4, false);
    const QList<QPoint> defaults = f.storedPoints(1);
    f.drag(theUp, QPoint(60, 80));
    QCOMPARE(f.record(1)->getKeyframedFrames(), QList<long long>{4});
    QCOMPARE(f.record(1)->getKeyframe(AngleFixture::kEp1, 4).getValue().toPoint(), QPoint(-40, -71));
    QCOMPARE(f.storedPoints(1), defaults);
}

void TestAngleRecords::regionOfInterestMovesTheCanvas()
{
    AngleFixture& f = *theFixture;
    LmCvManipulator::theCurrentViewAnimated = true;
    f.theImage.setQRoi(QRect(10, 20, 300, 200));
    f.theKernel.showFrame(0, false);
    const QPoint way(30, 10);
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{theVertex + way, theUp + way, theRight + way}));
    f.drag(theUp + way, QPoint(160, 100));
    QCOMPARE(f.storedPoints(1), (QList<QPoint>{QPoint(140, 181), QPoint(30, -61), QPoint(83, -1)}));
}

void TestAngleRecords::resolutionScalesAllThreeDefaults()
{
    AngleFixture& f = *theFixture;
    f.setKeyframe(1, 3, QPoint(1, 2), QPoint(3, 4), QPoint(5, 6));
    f.theKernel.announceResolution(QSize(400, 300), QSize(800, 300)); // the height plays no part
    QCOMPARE(f.storedPoints(1), (QList<QPoint>{QPoint(280, 362), QPoint(2, -162), QPoint(166, -2)}));
    QCOMPARE(f.canvasPoints(1), (QList<QPoint>{QPoint(240, 332), QPoint(242, 170), QPoint(406, 330)}));
    f.theKernel.announceResolution(QSize(800, 600), QSize(400, 300));
    f.theKernel.announceResolution(QSize(400, 300), QSize(200, 150));
    // 90.5 and -40.5 and 0.5 and -0.5 away from zero
    QCOMPARE(f.storedPoints(1), (QList<QPoint>{QPoint(70, 91), QPoint(1, -41), QPoint(42, -1)}));
    QCOMPARE(f.record(1)->getKeyframe(AngleFixture::kEp2, 3).getValue().toPoint(), QPoint(5, 6));
    QCOMPARE(f.theStack.count(), 1);
}

MEASURE_TEST_MAIN(TestAngleRecords)
#include "TestAngleRecords.moc"
