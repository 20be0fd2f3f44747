#include "DimensionFixture.h"
#include "LmAppSettings.h"
#include "TestFont.h"

#include <QDomDocument>
#include <QMouseEvent>

#include <memory>

/// How heights are drawn.
class TestDimensionTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<DimensionFixture>(); }
    void cleanup() { theFixture.reset(); }

    void firstDragMakesAHeight();
    void newDimensionHasNoValueWhateverWasUsedLast();
    void newItemTakesColourStepAndZoom();
    void newItemIsTheCurrentOne();
    void labelIsEmptyWhileDrawing();
    void shiftSnapsTheHeight();
    void snappedOntoThePressLeavesLengthZero();
    void clickMakesAHeightOfLengthZero();
    void rightButtonDrawsAsWell();
    void moveAndReleaseWithoutPressAreNotTaken();
    void drawingIsOneUndoStep();
    void pointsAreOffsetOneByOne();
    void refusedPointsEndTheRecord();

private:
    std::unique_ptr<DimensionFixture> theFixture;
};

void TestDimensionTool::firstDragMakesAHeight()
{
    DimensionFixture& f = *theFixture;
    f.drag(QPoint(20, 30), QPoint(121, 80));
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{1});
    QVERIFY(!f.theTool.theCurrent);
    QVERIFY(!f.theTool.theSelfChange);
    QCOMPARE(QPolygon(f.item(1)->thePoints), QPolygon({QPoint(20, 30), QPoint(121, 80)}));
    // The origin is (40, 30); the middle (70.5, 55) rounds to (71, 55).
    QCOMPARE(f.points(1), QPolygon({QPoint(60, 60), QPoint(161, 110)}));
    QCOMPARE(f.pos(1), QPoint(111, 85));
    QCOMPARE(f.stored(1112, 1, DimensionFixture::kVis), QVariant(true));
    QCOMPARE(f.stored(1112, 1, DimensionFixture::kCol), QVariant(QColor(Qt::red)));
    QVERIFY(!f.record(1)->theAnimated);
}

void TestDimensionTool::newDimensionHasNoValueWhateverWasUsedLast()
{
    DimensionFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Height");
    f.drag(QPoint(20, 30), QPoint(120, 30));
    QCOMPARE(f.stored(1112, 1, DimensionFixture::kDispv).toString(), QString());
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 "));
    QVERIFY(f.theTool.theDispValueName.isNull());
}

void TestDimensionTool::newItemTakesColourStepAndZoom()
{
    DimensionFixture& f = *theFixture;
    LmAppSettings::theGridColor = QColor(10, 200, 30);
    f.calibrate(50.0, QStringLiteral("mm"));
    f.theEditor.setZoom(0.5);
    f.drag(QPoint(20, 30), QPoint(120, 30));
    QCOMPARE(f.item(1)->getColor(), QColor(10, 200, 30));
    QCOMPARE(f.item(1)->theStep, 8.0);
    QCOMPARE(f.item(1)->theUnit, QStringLiteral("mm"));
    QCOMPARE(f.item(1)->theCapSize, 40.0);
}

void TestDimensionTool::newItemIsTheCurrentOne()
{
    DimensionFixture& f = *theFixture;
    f.drag(QPoint(20, 30), QPoint(120, 30));
    QCOMPARE(f.theEditor.theCurrentTrack, f.item(1));
    QVERIFY(f.item(1)->isActive());
    f.press(QPoint(20, 90));
    QVERIFY(!f.item(1)->isActive());
    QVERIFY(f.theTool.theCurrent && f.theTool.theCurrent->isActive());
    QCOMPARE(f.theEditor.theCurrentTrack, f.theTool.theCurrent);
    QCOMPARE(f.theTool.theCurrent->theLabel, QStringLiteral("2"));
    QCOMPARE(QPolygon(f.theTool.theCurrent->thePoints), QPolygon({QPoint(20, 90), QPoint(20, 90)}));
    f.release(QPoint(20, 90));
}

void TestDimensionTool::labelIsEmptyWhileDrawing()
{
    DimensionFixture& f = *theFixture;
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Width0"); // the length of the height
    f.press(QPoint(20, 30));
    f.move(QPoint(20, 90));
    QCOMPARE(f.theTool.theCurrent->theDisplayValue, QString());
    QCOMPARE(f.theStack.count(), 0);
    f.release(QPoint(20, 90));
}

void TestDimensionTool::shiftSnapsTheHeight()
{
    DimensionFixture& f = *theFixture;
    f.drag(QPoint(20, 30), QPoint(120, 40), Qt::ShiftModifier); // 5.7 degrees
    QCOMPARE(f.item(1)->thePoints[1], QPoint(120, 30));
    f.drag(QPoint(20, 100), QPoint(100, 170), Qt::ShiftModifier); // 41 degrees: 80 to the right
    QCOMPARE(f.item(2)->thePoints[1], QPoint(100, 180));
    f.drag(QPoint(220, 30), QPoint(300, 40)); // the counter-case
    QCOMPARE(f.item(3)->thePoints[1], QPoint(300, 40));
}

void TestDimensionTool::snappedOntoThePressLeavesLengthZero()
{
    DimensionFixture& f = *theFixture;
    f.press(QPoint(50, 60), Qt::ShiftModifier);
    f.move(QPoint(90, 60), Qt::ShiftModifier);
    f.move(QPoint(50, 60), Qt::ShiftModifier);
    QCOMPARE(QPolygon(f.theTool.theCurrent->thePoints), QPolygon({QPoint(50, 60), QPoint(50, 60)}));
    f.release(QPoint(50, 60), Qt::ShiftModifier);
    QCOMPARE(f.points(1), QPolygon({QPoint(90, 90), QPoint(90, 90)}));
}

void TestDimensionTool::clickMakesAHeightOfLengthZero()
{
    DimensionFixture& f = *theFixture;
    f.click(QPoint(50, 60));
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.pos(1), QPoint(90, 90));
    QCOMPARE(f.points(1), QPolygon({QPoint(90, 90), QPoint(90, 90)}));
    f.show(1, QStringLiteral("Height"));
    QCOMPARE(f.shown(1), QStringLiteral("H: 0.00"));
    // Its ends can be taken and drawn apart.
    f.drag(QPoint(50, 60), QPoint(80, 100));
    QCOMPARE(f.shown(1), QStringLiteral("H: 50.00"));
    // It is saved and comes back.
    f.theStack.undo();
    QDomDocument document;
    const QDomElement element = f.theKernel.getDataDescriptor(1112)->createXML(document, 1, *f.record(1));
    f.theTool.constructDataObject(element, nullptr);
    QCOMPARE(f.points(2), QPolygon({QPoint(90, 90), QPoint(90, 90)}));
}

void TestDimensionTool::rightButtonDrawsAsWell()
{
    DimensionFixture& f = *theFixture;
    const auto isTaken = [&f](QEvent::Type aType, void (LmCvManipDim::*aHandler)(QMouseEvent*),
                              const QPoint& aPoint) {
        QMouseEvent event(aType, aPoint, aPoint, Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        event.ignore();
        (f.theTool.*aHandler)(&event);
        return event.isAccepted();
    };
    QVERIFY(isTaken(QEvent::MouseButtonPress, &LmCvManipDim::mousePressEvent, QPoint(20, 30)));
    QVERIFY(isTaken(QEvent::MouseMove, &LmCvManipDim::mouseMoveEvent, QPoint(80, 30)));
    QVERIFY(isTaken(QEvent::MouseButtonRelease, &LmCvManipDim::mouseReleaseEvent, QPoint(80, 30)));
    QCOMPARE(f.points(1), QPolygon({QPoint(60, 60), QPoint(120, 60)}));
}

void TestDimensionTool::moveAndReleaseWithoutPressAreNotTaken()
{
    DimensionFixture& f = *theFixture;
    QMouseEvent move(QEvent::MouseMove, QPointF(20, 30), QPointF(20, 30), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    move.accept();
    f.theTool.mouseMoveEvent(&move);
    QVERIFY(!move.isAccepted());
    for (const bool accepted : {true, false}) {
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(20, 30), QPointF(20, 30), Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        release.setAccepted(accepted);
        f.theTool.mouseReleaseEvent(&release);
        QCOMPARE(release.isAccepted(), accepted);
    }
    QCOMPARE(f.theStack.count(), 0);
}

void TestDimensionTool::drawingIsOneUndoStep()
{
    DimensionFixture& f = *theFixture;
    f.drag(QPoint(20, 30), QPoint(120, 80));
    QCOMPARE(f.theStack.count(), 1);
    QVERIFY2(f.theStack.text(0).contains(QStringLiteral("Dimension 1")), qPrintable(f.theStack.text(0)));
    f.theStack.undo();
    QCOMPARE(f.itemCount(), 0);
    QVERIFY(!f.hasRecord(1));
    f.theStack.redo();
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.points(1), QPolygon({QPoint(60, 60), QPoint(160, 110)}));
}

void TestDimensionTool::pointsAreOffsetOneByOne()
{
    const Q3PointArray points(QList<QPoint>{{1, 2}, {-3, 4}, {0, 0}});
    QCOMPARE(QPolygon(LmCvManipDim::offsetPoints(points, QPoint(10, -20))),
             QPolygon({QPoint(11, -18), QPoint(7, -16), QPoint(10, -20)}));
    QVERIFY(LmCvManipDim::offsetPoints(Q3PointArray(), QPoint(10, -20)).isEmpty());
    constexpr int kMax = std::numeric_limits<int>::max();
    QCOMPARE(LmCvManipDim::offsetPoints(Q3PointArray() << QPoint(kMax, 0), QPoint(5, 5)).value(0),
             QPoint(kMax, 5));
}

void TestDimensionTool::refusedPointsEndTheRecord()
{
    // A tool whose points come with a type that no record takes.
    struct WrongTool : LmCvManipDim
    {
        WrongTool() : LmCvManipDim(nullptr) {}
        NamedValues geometryOf(const LmCvObject* aItem, const QPoint& aOrigin,
                               const LmKernelObjectData* aFormer) const override
        {
            NamedValues values = LmCvManipDim::geometryOf(aItem, aOrigin, aFormer);
            values[1].second = QStringLiteral("no points");
            return values;
        }
    };
    theFixture.reset();
    ToolFixture f;
    WrongTool tool;
    f.start(tool);
    f.drag(QPoint(20, 30), QPoint(120, 30));
    QCOMPARE(f.stored(1112, 1, DimensionFixture::kPos), QVariant(QPoint(110, 60)));
    QVERIFY(!f.stored(1112, 1, DimensionFixture::kPoints).isValid());
    QVERIFY(!f.stored(1112, 1, DimensionFixture::kVis).isValid());
    f.theStack.undo();
    f.theStack.redo(); // an item without points does no harm
    QCOMPARE(f.itemCount(), 1);
    f.theStack.clear();
}

MEASURE_TEST_MAIN(TestDimensionTool)
#include "TestDimensionTool.moc"
