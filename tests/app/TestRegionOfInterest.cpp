#include "InterestWindow.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "RegionOfInterestTool.h"
#include "TestFont.h"
#include "TestSamples.h"

#include <QAction>
#include <QLabel>
#include <QScrollBar>
#include <QStatusBar>
#include <QUndoStack>

namespace {

constexpr QRect kRegion = InterestWindow::kRegion;

} // namespace

/// The region of interest in the window: the gesture that sets it, and the view of it.
class TestRegionOfInterest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dragSetsTheRegionAsOneStep();
    void clearShowsTheWholePictureAgain();
    void regionWithinARegionIsInImageCoordinates();
    void pulledRectangleKeepsToTheBounds_data();
    void pulledRectangleKeepsToTheBounds();
    void shiftPullsASquare();
    void clickIsRefusedWithAHint();
    void wholePictureIsNoRegion();
    void sameRegionIsNoStep();
    void escDropsTheRectangleAndThenLeaves();
    void secondChoiceOfTheEntryLeaves();
    void formerToolComesBackWithItsButton();
    void statusBarSpeaksOfThePicture();
    void fittedViewFitsAgain();
    void zoomThatWasChosenStaysWithItsMiddle();
    void anotherPictureHasNoRegion();
};

void TestRegionOfInterest::dragSetsTheRegionAsOneStep()
{
    InterestWindow w;
    QVERIFY(!w.actions().theClearRegion->isEnabled());
    w.actions().theSetRegion->trigger();
    QVERIFY(w.actions().theSetRegion->isChecked());
    w.drag(kRegion.topLeft(), kRegion.bottomRight());
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(w.region(), kRegion);
        QCOMPARE(w.kernel().origin(), kRegion.topLeft());
        QCOMPARE(w.editor().canvas()->size(), kRegion.size());
        QVERIFY(w.actions().theClearRegion->isEnabled());
        QVERIFY(!w.actions().theSetRegion->isChecked());
        QCOMPARE(w.stack().count(), 1);
        QCOMPARE(w.stack().text(0), QStringLiteral("Set region of interest"));
        w.stack().undo();
        QVERIFY(w.region().isNull());
        QCOMPARE(w.kernel().origin(), QPoint(0, 0));
        QCOMPARE(w.editor().canvas()->size(), QSize(400, 300));
        QVERIFY(!w.actions().theClearRegion->isEnabled());
        w.stack().redo();
    }
    QVERIFY(w.editor().cvItems().isEmpty());
    QVERIFY(w.editor().canvas()->allItems().isEmpty());
}

void TestRegionOfInterest::clearShowsTheWholePictureAgain()
{
    InterestWindow w;
    w.setRegion();
    w.actions().theClearRegion->trigger();
    QVERIFY(w.region().isNull());
    QCOMPARE(w.stack().count(), 2);
    QCOMPARE(w.stack().text(1), QStringLiteral("Clear region of interest"));
    w.stack().undo();
    QCOMPARE(w.region(), kRegion);
    w.stack().redo();
    QCOMPARE(w.editor().canvas()->size(), QSize(400, 300));
}

void TestRegionOfInterest::regionWithinARegionIsInImageCoordinates()
{
    InterestWindow w;
    w.setRegion();
    w.setRegion(QRect(10, 20, 30, 40));
    QCOMPARE(w.region(), QRect(60, 60, 30, 40));
    w.stack().undo();
    QCOMPARE(w.region(), kRegion);
}

void TestRegionOfInterest::pulledRectangleKeepsToTheBounds_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<bool>("square");
    QTest::addColumn<QRect>("pulled");
    const auto row = [](const char* aTitle, QPoint aFrom, QPoint aTo, bool aSquare, QRect aPulled) {
        QTest::newRow(aTitle) << aFrom << aTo << aSquare << aPulled;
    };
    // The bounds are 100 x 80 pixels.
    row("one pixel", {5, 6}, {5, 6}, false, {5, 6, 1, 1});
    row("to the lower right", {10, 20}, {39, 29}, false, {10, 20, 30, 10});
    row("to the upper left", {39, 29}, {10, 20}, false, {10, 20, 30, 10});
    row("to the upper right", {10, 29}, {39, 20}, false, {10, 20, 30, 10});
    row("out of all bounds", {10, 20}, {500, 500}, false, {10, 20, 90, 60});
    row("from outside", {-50, -50}, {9, 500}, false, {0, 0, 10, 80});
    row("square by its width", {10, 20}, {39, 29}, true, {10, 20, 30, 30});
    row("square by its height", {10, 20}, {12, 49}, true, {10, 20, 30, 30});
    row("square to the upper left", {39, 49}, {10, 40}, true, {10, 20, 30, 30});
    row("square with no room below", {10, 60}, {99, 70}, true, {10, 60, 20, 20});
    row("square with no room above", {50, 9}, {99, 2}, true, {50, 0, 10, 10});
    row("square from one pixel", {7, 7}, {7, 7}, true, {7, 7, 1, 1});
}

void TestRegionOfInterest::pulledRectangleKeepsToTheBounds()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(bool, square);
    QFETCH(QRect, pulled);
    QCOMPARE(RegionOfInterestTool::pulled(from, to, square, QRect(0, 0, 100, 80)), pulled);
    QVERIFY(RegionOfInterestTool::pulled(from, to, square, QRect()).isNull());
}

void TestRegionOfInterest::shiftPullsASquare()
{
    InterestWindow w;
    w.actions().theSetRegion->trigger();
    w.drag(QPoint(50, 40), QPoint(149, 60), Qt::ShiftModifier);
    QCOMPARE(w.region(), QRect(50, 40, 100, 100));
}

void TestRegionOfInterest::clickIsRefusedWithAHint()
{
    InterestWindow w;
    w.actions().theSetRegion->trigger();
    const int small = RegionOfInterestTool::kMinSide - 1;
    w.drag(QPoint(50, 40), QPoint(50 + 100, 40 + small - 1));
    QVERIFY(w.region().isNull());
    QCOMPARE(w.stack().count(), 0);
    QVERIFY2(w.window().statusBar()->currentMessage().contains(QStringLiteral("too small")),
             qPrintable(w.window().statusBar()->currentMessage()));
    // The tool waits for another try.
    QVERIFY(w.actions().theSetRegion->isChecked());
    w.drag(QPoint(50, 40), QPoint(50 + 100, 40 + small));
    QCOMPARE(w.region(), QRect(50, 40, 101, RegionOfInterestTool::kMinSide));
}

void TestRegionOfInterest::wholePictureIsNoRegion()
{
    InterestWindow w;
    w.setRegion(QRect(0, 0, 400, 300));
    QVERIFY(w.region().isNull());
    QCOMPARE(w.stack().count(), 0);
}

void TestRegionOfInterest::sameRegionIsNoStep()
{
    InterestWindow w;
    w.setRegion();
    w.setRegion(QRect(QPoint(0, 0), kRegion.size()));
    QCOMPARE(w.region(), kRegion);
    QCOMPARE(w.stack().count(), 1);
}

void TestRegionOfInterest::escDropsTheRectangleAndThenLeaves()
{
    InterestWindow w;
    w.actions().theSetRegion->trigger();
    const QString waiting = w.field("hint");
    w.press(QPoint(50, 40));
    w.move(QPoint(149, 89));
    QVERIFY2(w.field("hint").contains(QStringLiteral("100 x 50")), qPrintable(w.field("hint")));
    QCOMPARE(w.editor().canvas()->allItems().size(), 1);
    w.key(Qt::Key_Escape);
    QVERIFY(w.editor().canvas()->allItems().isEmpty());
    QCOMPARE(w.field("hint"), waiting);
    w.release(QPoint(149, 89));
    QVERIFY(w.region().isNull());
    QVERIFY(w.actions().theSetRegion->isChecked());
    w.key(Qt::Key_Escape);
    QVERIFY(!w.actions().theSetRegion->isChecked());
    QVERIFY(w.actions().theArrow->isChecked());
    QVERIFY(w.field("hint") != waiting);
    QCOMPARE(w.stack().count(), 0);
    w.drag(QPoint(50, 40), QPoint(149, 89));
    QVERIFY(w.region().isNull());
}

void TestRegionOfInterest::secondChoiceOfTheEntryLeaves()
{
    InterestWindow w;
    w.pickDistance();
    w.actions().theSetRegion->trigger();
    w.actions().theSetRegion->trigger();
    QVERIFY(!w.actions().theSetRegion->isChecked());
    QCOMPARE(w.editor().theCurrentManipulator, w.distanceTool());
}

void TestRegionOfInterest::formerToolComesBackWithItsButton()
{
    InterestWindow w;
    w.pickPencil();
    w.setRegion();
    QCOMPARE(w.region(), kRegion);
    QCOMPARE(w.editor().theCurrentManipulator, w.regionTool());
    QVERIFY(w.isOnly(w.pencilButton()));
    // The tool that comes back is that of before, also when calibrating stood between.
    w.actions().theKnownLength->trigger();
    w.setRegion(QRect(10, 10, 50, 50));
    QVERIFY(!w.actions().theKnownLength->isChecked());
    QVERIFY(w.isOnly(w.pencilButton()));
}

void TestRegionOfInterest::statusBarSpeaksOfThePicture()
{
    InterestWindow w;
    const QColor color = madePicture(400, 300).pixelColor(kRegion.x() + 12, kRegion.y() + 5);
    QCOMPARE(w.field("region"), QStringLiteral("Region 0 x 0 px"));
    QVERIFY(w.window().statusBar()->findChild<QLabel*>(QStringLiteral("region"))->isHidden());
    w.setRegion();
    QVERIFY(w.window().statusBar()->findChild<QLabel*>(QStringLiteral("region"))->isVisible());
    QCOMPARE(w.field("region"), QStringLiteral("Region 200 x 150 px"));
    QCOMPARE(w.field("position"), QString());
    w.move(QPoint(12, 5));
    QVERIFY2(w.field("position").startsWith(QStringLiteral("62, 45 px")), qPrintable(w.field("position")));
    QCOMPARE(w.field("pixelColor"),
             QStringLiteral("R %1  G %2  B %3").arg(color.red()).arg(color.green()).arg(color.blue()));
    // Beside the region nothing is shown, although the picture goes on there.
    w.move(QPoint(-1, 5));
    QCOMPARE(w.field("position"), QString());
    QCOMPARE(w.field("pixelColor"), QString());
    w.move(QPoint(kRegion.width(), 5));
    QCOMPARE(w.field("position"), QString());
}

void TestRegionOfInterest::fittedViewFitsAgain()
{
    InterestWindow w;
    w.actions().theZoomFit->trigger();
    const double whole = w.editor().zoom();
    w.setRegion();
    const double fitted = w.editor().zoom();
    QVERIFY(fitted > whole);
    w.editor().zoomToFit();
    QCOMPARE(w.editor().zoom(), fitted);
    w.stack().undo();
    QCOMPARE(w.editor().zoom(), whole);
}

void TestRegionOfInterest::zoomThatWasChosenStaysWithItsMiddle()
{
    InterestWindow w;
    const QPointF middle(w.editor().viewport()->rect().center());
    w.setRegion(QRect(100, 60, 200, 200));
    w.editor().setZoom(8.0);
    w.editor().horizontalScrollBar()->setValue(w.editor().horizontalScrollBar()->maximum() / 3);
    w.editor().verticalScrollBar()->setValue(w.editor().verticalScrollBar()->maximum() / 4);
    const auto seen = [&] { return w.editor().toCanvas(middle) + w.kernel().origin(); };
    const QPoint before = seen();
    w.actions().theClearRegion->trigger();
    QCOMPARE(w.editor().zoom(), 8.0);
    QVERIFY2((seen() - before).manhattanLength() <= 1, qPrintable(QDebug::toString(seen() - before)));
    w.stack().undo();
    QCOMPARE(w.editor().zoom(), 8.0);
    QVERIFY2((seen() - before).manhattanLength() <= 1, qPrintable(QDebug::toString(seen() - before)));
}

void TestRegionOfInterest::anotherPictureHasNoRegion()
{
    InterestWindow w;
    w.setRegion();
    w.stack().setClean();
    w.actions().theSetRegion->trigger();
    w.press(QPoint(10, 10));
    w.move(QPoint(40, 40));
    QVERIFY(w.window().openAtStart(w.picturePath()));
    QVERIFY(w.region().isNull());
    QVERIFY(!w.actions().theClearRegion->isEnabled());
    QVERIFY(!w.actions().theSetRegion->isChecked());
    QVERIFY(w.window().statusBar()->findChild<QLabel*>(QStringLiteral("region"))->isHidden());
    QVERIFY(w.editor().canvas()->allItems().isEmpty());
    QCOMPARE(w.editor().canvas()->size(), QSize(400, 300));
}

MEASURE_TEST_MAIN(TestRegionOfInterest)
#include "TestRegionOfInterest.moc"
