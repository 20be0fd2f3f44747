#include "AngleFixture.h"
#include "LmCvManipDist.h"
#include "TestFont.h"

#include <memory>

namespace {

const QPoint theVertex(100, 150);
const QPoint theRight(180, 150);
const QPoint theUp(100, 70);

} // namespace

/// An angle in the making that doesn't come to its end leaves no half object and no grabbed mouse.
class TestAngleAbort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyWayOutLeavesNothing_data();
    void everyWayOutLeavesNothing();
    void abortWithoutDrawingHasNothingToEnd();
    void abortLeavesTheMouseToItsGrabber();
    void undoGoesOnWithTheDrawing();
    void frameAndZoomGoOnWithTheDrawing();
    void otherKeysGoOnWithTheDrawing();
    void removingAnotherItemGoesOnWithTheDrawing();
    void toolThatGoesInTheSecondStrokeFreesTheMouse();
    void editorThatGoesInTheSecondStrokeEndsTheDrawing();

private:
    void leave(const QString& aWay);

    std::unique_ptr<AngleFixture> theFixture;
    std::unique_ptr<LmCvManipDist> theOtherTool;
};

void TestAngleAbort::init()
{
    theFixture = std::make_unique<AngleFixture>();
    theOtherTool = std::make_unique<LmCvManipDist>(nullptr);
    theFixture->start(*theOtherTool);
    theFixture->theEditor.setCurrentManipulator(&theFixture->theTool);
}

void TestAngleAbort::cleanup()
{
    theFixture->theStack.clear();
    theOtherTool.reset();
    theFixture.reset();
}

void TestAngleAbort::leave(const QString& aWay)
{
    AngleFixture& f = *theFixture;
    if (aWay == QLatin1String("Esc"))
        f.key(Qt::Key_Escape);
    else if (aWay == QLatin1String("Delete"))
        f.key(Qt::Key_Delete);
    else if (aWay == QLatin1String("Backspace"))
        f.key(Qt::Key_Backspace);
    else if (aWay == QLatin1String("delete by menu"))
        f.theEditor.slotDeleteSelected();
    else if (aWay == QLatin1String("other tool"))
        f.theEditor.setCurrentManipulator(theOtherTool.get());
    else if (aWay == QLatin1String("arrow"))
        f.theEditor.setCurrentManipulator(nullptr);
    else if (aWay == QLatin1String("item removed"))
        delete f.theTool.theCurrent;
    else if (aWay == QLatin1String("canvas cleared"))
        qDeleteAll(f.theEditor.canvas()->allItems());
}

void TestAngleAbort::everyWayOutLeavesNothing_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("second");
    for (const char* way : {"Esc", "Delete", "Backspace", "delete by menu", "other tool", "arrow",
                            "item removed", "canvas cleared"})
        for (const bool second : {false, true})
            QTest::addRow("%s, %s stroke", way, second ? "second" : "first")
                << QString::fromLatin1(way) << second;
}

void TestAngleAbort::everyWayOutLeavesNothing()
{
    QFETCH(QString, way);
    QFETCH(bool, second);
    AngleFixture& f = *theFixture;
    const QString idle = f.theTool.hint();
    f.press(theVertex);
    f.move(theRight);
    if (second) {
        f.release(theRight);
        f.hover(theUp);
        QCOMPARE(f.theEditor.mouseGrabber(), &f.theTool);
    }
    QCOMPARE(f.itemCount(), 1);
    leave(way);
    QCOMPARE(f.itemCount(), 0);
    QVERIFY(!f.theTool.theCurrent);
    QVERIFY(!f.theEditor.theCurrentTrack);
    QVERIFY(!f.theEditor.mouseGrabber());
    QCOMPARE(f.theTool.theStage, 0);
    QCOMPARE(f.theTool.hint(), idle);
    // What is left of the gesture changes nothing.
    if (!second) {
        f.move(theUp);
        f.release(theUp);
    }
    f.hover(QPoint(90, 90));
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.theStack.count(), 0);
    // The next angle is drawn as the first one would have been.
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.draw(theVertex, theUp, theRight);
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{1});
    QCOMPARE(f.storedPoints(1), (QList<QPoint>{QPoint(140, 180), QPoint(0, -80), QPoint(80, 0)}));
}

void TestAngleAbort::abortWithoutDrawingHasNothingToEnd()
{
    AngleFixture& f = *theFixture;
    f.draw(theVertex, theUp, theRight);
    QVERIFY(!f.theTool.abortAction());
    f.key(Qt::Key_Delete); // is no key of this tool by itself
    QCOMPARE(f.itemCount(), 1);
    QVERIFY(f.hasRecord(1));
}

void TestAngleAbort::abortLeavesTheMouseToItsGrabber()
{
    AngleFixture& f = *theFixture;
    f.startDrawing(theVertex, theRight);
    f.theEditor.setMouseGrabber(theOtherTool.get(), true);
    QVERIFY(f.theTool.abortAction());
    QCOMPARE(f.theEditor.mouseGrabber(), theOtherTool.get());
    QCOMPARE(f.theTool.theStage, 0);
    f.theEditor.setMouseGrabber(nullptr, false);
}

void TestAngleAbort::undoGoesOnWithTheDrawing()
{
    AngleFixture& f = *theFixture;
    f.draw(QPoint(250, 150), QPoint(250, 70), QPoint(300, 150));
    f.startDrawing(theVertex, theRight);
    QCOMPARE(f.theTool.theCurrent->theLabel, QStringLiteral("2"));
    f.theStack.undo();
    QCOMPARE(f.itemCount(), 1); // the one being drawn
    QCOMPARE(f.theEditor.mouseGrabber(), &f.theTool);
    f.hover(theUp);
    f.click(theUp);
    QVERIFY(!f.theEditor.mouseGrabber());
    QCOMPARE(f.theTool.theCvObjects.keys(), QList<int>{1});
    QCOMPARE(f.item(1)->theLabel, QStringLiteral("1"));
    QCOMPARE(f.pos(1), QPoint(140, 180));
    QCOMPARE(f.theStack.count(), 1);
}

void TestAngleAbort::frameAndZoomGoOnWithTheDrawing()
{
    AngleFixture& f = *theFixture;
    LmCvManipulator::theCurrentViewAnimated = true;
    f.startDrawing(theVertex, theRight);
    f.theKernel.showFrame(3, false);
    f.theEditor.setZoom(0.5);
    f.hover(theUp);
    QCOMPARE(AngleFixture::pointsOf(*f.theTool.theCurrent), (QList<QPoint>{theVertex, theUp, theRight}));
    f.click(theUp);
    QCOMPARE(f.pos(1), QPoint(140, 180));
}

void TestAngleAbort::otherKeysGoOnWithTheDrawing()
{
    AngleFixture& f = *theFixture;
    f.startDrawing(theVertex, theRight);
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_A, Qt::Key_Return})
        f.key(key);
    QCOMPARE(f.theTool.theStage, 1);
    QCOMPARE(AngleFixture::pointsOf(*f.theTool.theCurrent), (QList<QPoint>{theVertex, theRight, theRight}));
}

void TestAngleAbort::removingAnotherItemGoesOnWithTheDrawing()
{
    AngleFixture& f = *theFixture;
    f.draw(QPoint(250, 150), QPoint(250, 70), QPoint(300, 150));
    f.startDrawing(theVertex, theRight);
    f.theTool.removeCvObject(f.item(1));
    QCOMPARE(f.theTool.theStage, 1);
    QCOMPARE(f.theEditor.mouseGrabber(), &f.theTool);
    QVERIFY(f.theTool.theCurrent);
    QVERIFY(!f.hasRecord(1));
    f.theTool.removeCvObject(nullptr);
    QVERIFY(f.theTool.theCurrent);
}

void TestAngleAbort::toolThatGoesInTheSecondStrokeFreesTheMouse()
{
    theFixture->theStack.clear();
    theOtherTool.reset();
    theFixture.reset();
    ToolFixture plain;
    auto tool = std::make_unique<LmCvManipAngle>(nullptr);
    plain.start(*tool);
    plain.drag(theVertex, theRight);
    QCOMPARE(plain.theEditor.mouseGrabber(), tool.get());
    tool.reset();
    QVERIFY(!plain.theEditor.mouseGrabber());
    plain.click(theUp);
    init();
}

void TestAngleAbort::editorThatGoesInTheSecondStrokeEndsTheDrawing()
{
    AngleFixture& f = *theFixture;
    auto editor = std::make_unique<LmCvEditor>();
    f.theTool.setCvEditor(editor.get());
    QMouseEvent press(QEvent::MouseButtonPress, theVertex, theVertex, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    f.theTool.mousePressEvent(&press);
    QMouseEvent release(QEvent::MouseButtonRelease, theRight, theRight, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    f.theTool.mouseReleaseEvent(&release);
    QCOMPARE(editor->mouseGrabber(), &f.theTool);
    editor.reset();
    QVERIFY(!f.theTool.theCurrent);
    QCOMPARE(f.theTool.theStage, 0);
    QVERIFY(!f.theTool.abortAction());
    QMouseEvent late(QEvent::MouseButtonRelease, theUp, theUp, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    f.theTool.mouseReleaseEvent(&late);
    QCOMPARE(f.theStack.count(), 0);
}

MEASURE_TEST_MAIN(TestAngleAbort)
#include "TestAngleAbort.moc"
