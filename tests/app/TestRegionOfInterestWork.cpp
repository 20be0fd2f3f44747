#include "InterestWindow.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "PictureRenderer.h"
#include "TestFont.h"
#include "TestSamples.h"

#include <QAction>
#include <QLine>
#include <QUndoStack>

namespace {

constexpr QRect kRegion = InterestWindow::kRegion;

} // namespace

/// Working in a region of interest: objects keep their places and values, and tools see nothing else.
class TestRegionOfInterestWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void objectsKeepTheirPlacesOnThePicture();
    void newObjectsAreStoredInImageCoordinates();
    void valuesStayAsTheyAre();
    void halfDrawnDistanceEndsFirst();
    void draggedItemGoesBackFirst();
    void outlineInTheMakingStaysInPlace();
    void calibrationLineEndsFirst();
    void exportShowsTheRegion();
    void groupSearchFindsOnlyWhatLiesInside();
    void foundAreaEndsAtTheRegion();
};

void TestRegionOfInterestWork::objectsKeepTheirPlacesOnThePicture()
{
    InterestWindow w;
    QCOMPARE(w.draw(QPoint(100, 100), QPoint(200, 120)), 1); // inside
    QCOMPARE(w.draw(QPoint(20, 60), QPoint(120, 60)), 2);    // across the edge
    QCOMPARE(w.draw(QPoint(300, 250), QPoint(380, 280)), 3); // outside
    QCOMPARE(w.drawClosed({QPoint(60, 60), QPoint(140, 70), QPoint(90, 200)}), 1);
    w.count({QPoint(70, 90), QPoint(310, 200)});
    w.pickArrow();
    QMap<int, QRect> before;
    for (int idx = 1; idx <= 3; ++idx)
        before[idx] = w.place(w.distanceTool()->getCvObject(idx));
    const QRect outline = w.place(w.item(1));
    const QList<QPoint> tips = w.tips(1);
    const QVariant pos = w.value(2, QStringLiteral("pos"));
    const auto asBefore = [&] {
        for (int idx = 1; idx <= 3; ++idx)
            if (w.place(w.distanceTool()->getCvObject(idx)) != before[idx])
                return false;
        for (int mark = 0; mark < tips.size(); ++mark)
            if (!w.markAt(w.labelOf(1, mark) - w.kernel().origin()))
                return false;
        return w.place(w.item(1)) == outline && w.tips(1) == tips && w.value(2, QStringLiteral("pos")) == pos;
    };
    QVERIFY(asBefore());
    w.setRegion();
    QVERIFY(asBefore());
    w.stack().undo();
    QVERIFY(asBefore());
    w.stack().redo();
    QVERIFY(asBefore());
    w.setRegion(QRect(30, 20, 60, 50));
    QVERIFY(asBefore());
    w.actions().theClearRegion->trigger();
    QVERIFY(asBefore());
    // A drag in a region writes the place on the picture.
    w.stack().undo();
    const QPoint end = QPoint(120, 60) - w.kernel().origin();
    w.drag(end, end + QPoint(7, 5));
    QCOMPARE(w.ends(2).p2(), QPoint(127, 65));
}

void TestRegionOfInterestWork::newObjectsAreStoredInImageCoordinates()
{
    InterestWindow w;
    w.setRegion();
    QCOMPARE(w.draw(QPoint(10, 20), QPoint(60, 20)), 1);
    QCOMPARE(w.ends(1), QLine(QPoint(10, 20), QPoint(60, 20)).translated(kRegion.topLeft()));
    const QRect before = w.place(w.distanceTool()->getCvObject(1));
    w.actions().theClearRegion->trigger();
    QCOMPARE(w.place(w.distanceTool()->getCvObject(1)), before);
}

void TestRegionOfInterestWork::valuesStayAsTheyAre()
{
    InterestWindow w;
    w.kernel().setCalibration(QStringLiteral("c"), LmCalibData{40.0, QStringLiteral("mm")});
    w.kernel().setCurrentCalibration(QStringLiteral("c"));
    QCOMPARE(w.draw(QPoint(20, 60), QPoint(120, 60)), 1);
    QCOMPARE(w.drawClosed({QPoint(60, 60), QPoint(160, 60), QPoint(160, 160), QPoint(60, 160)}), 1);
    const QStringList names = w.regionTool()->theValueNames;
    QVERIFY(names.size() > 4); // also those of the picture's colours
    const auto texts = [&] {
        QStringList units;
        QStringList all{w.distanceTool()->getCvObject(1)->labelText(), w.item(1)->labelText()};
        for (const QVariant& value : w.regionTool()->getValues(names, w.region(1), units))
            all << value.toString();
        return all << units;
    };
    const QStringList before = texts();
    QVERIFY2(before[0].contains(QStringLiteral("<10.00mm>")), qPrintable(before[0]));
    w.setRegion();
    QCOMPARE(texts(), before);
    w.actions().theClearRegion->trigger();
    QCOMPARE(texts(), before);
}

void TestRegionOfInterestWork::halfDrawnDistanceEndsFirst()
{
    InterestWindow w;
    w.setRegion();
    w.pickDistance();
    w.press(QPoint(20, 20));
    w.move(QPoint(80, 60));
    QCOMPARE(w.editor().cvItems().size(), 1);
    w.stack().undo();
    QVERIFY(w.region().isNull());
    QVERIFY(w.editor().cvItems().isEmpty());
    w.move(QPoint(100, 100));
    w.release(QPoint(100, 100));
    QVERIFY(w.editor().cvItems().isEmpty());
    QCOMPARE(w.distanceCount(), 0);
    QCOMPARE(w.stack().count(), 1); // what was undone can still be done again
    // The tool is still there for the next one.
    QCOMPARE(w.editor().theCurrentManipulator, w.distanceTool());
    w.drag(QPoint(120, 120), QPoint(180, 120));
    QCOMPARE(w.ends(1), QLine(120, 120, 180, 120));
}

void TestRegionOfInterestWork::draggedItemGoesBackFirst()
{
    InterestWindow w;
    QCOMPARE(w.draw(QPoint(100, 100), QPoint(200, 100)), 1);
    w.setRegion();
    const QRect before = w.place(w.distanceTool()->getCvObject(1));
    const QPoint end = QPoint(200, 100) - kRegion.topLeft();
    w.press(end);
    w.move(end + QPoint(-30, 40));
    QVERIFY(w.place(w.distanceTool()->getCvObject(1)) != before);
    w.stack().undo();
    QCOMPARE(w.place(w.distanceTool()->getCvObject(1)), before);
    w.move(QPoint(300, 250));
    w.release(QPoint(300, 250));
    QCOMPARE(w.place(w.distanceTool()->getCvObject(1)), before);
    QCOMPARE(w.ends(1), QLine(100, 100, 200, 100));
}

void TestRegionOfInterestWork::outlineInTheMakingStaysInPlace()
{
    InterestWindow w;
    w.setRegion();
    w.pickPen();
    w.clickAll({QPoint(20, 20), QPoint(90, 30), QPoint(60, 100)});
    const QList<QPoint> anchors = w.anchors(1);
    QCOMPARE(anchors.first(), kRegion.topLeft() + QPoint(20, 20));
    // Clearing is a step of its own behind the clicks.
    w.actions().theClearRegion->trigger();
    QCOMPARE(w.anchors(1), anchors);
    QCOMPARE(w.regionCount(), 1);
    const QRect outline = w.place(w.item(1));
    w.stack().undo();
    QCOMPARE(w.anchors(1), anchors);
    QCOMPARE(w.place(w.item(1)), outline);
}

void TestRegionOfInterestWork::calibrationLineEndsFirst()
{
    InterestWindow w;
    w.setRegion();
    w.actions().theKnownLength->trigger();
    w.click(QPoint(20, 20));
    w.move(QPoint(100, 20));
    QCOMPARE(w.editor().canvas()->allItems().size(), 1);
    w.stack().undo();
    QVERIFY(w.editor().canvas()->allItems().isEmpty());
    // It begins again.
    QVERIFY(w.actions().theKnownLength->isChecked());
    w.click(QPoint(20, 20));
    QCOMPARE(w.editor().canvas()->allItems().size(), 1);
}

void TestRegionOfInterestWork::exportShowsTheRegion()
{
    InterestWindow w;
    w.setRegion();
    QCOMPARE(PictureRenderer::render(w.editor()), madePicture(400, 300).copy(kRegion));
}

void TestRegionOfInterestWork::groupSearchFindsOnlyWhatLiesInside()
{
    InterestWindow w;
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(QColor(210, 210, 210));
    const QList<QRect> things{{20, 20, 20, 20}, {100, 80, 24, 24}, {180, 120, 24, 24}, {320, 240, 20, 20}};
    for (const QRect& thing : things)
        for (int y = thing.top(); y <= thing.bottom(); ++y)
            for (int x = thing.left(); x <= thing.right(); ++x)
                picture.setPixelColor(x, y, QColor(40, 50, 60));
    QVERIFY(picture.save(w.path(QStringLiteral("things.png"))));
    w.open(w.path(QStringLiteral("things.png")));
    w.setRegion();
    w.pickAuto({QStringLiteral("Counter"), QStringLiteral("Group")});
    w.slowDrag(QPoint(0, 0), QPoint(kRegion.width() - 1, kRegion.height() - 1));
    const QList<QPoint> tips = w.tips(1);
    QCOMPARE(tips.size(), 2);
    for (int i = 0; i < 2; ++i)
        QVERIFY2(things[i + 1].contains(tips[i]), qPrintable(QDebug::toString(tips[i])));
}

void TestRegionOfInterestWork::foundAreaEndsAtTheRegion()
{
    InterestWindow w;
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(QColor(210, 210, 210));
    // It lies across the left edge of the region.
    for (int y = 80; y < 120; ++y)
        for (int x = 20; x < 90; ++x)
            picture.setPixelColor(x, y, QColor(40, 50, 60));
    QVERIFY(picture.save(w.path(QStringLiteral("thing.png"))));
    w.open(w.path(QStringLiteral("thing.png")));
    w.setRegion();
    w.pickAuto({QStringLiteral("Region"), QStringLiteral("Single")});
    w.click(QPoint(70, 100) - kRegion.topLeft());
    QCOMPARE(w.regionCount(), 1);
    int left = 400;
    int right = 0;
    for (const QPoint& anchor : w.anchors(1)) {
        left = std::min(left, anchor.x());
        right = std::max(right, anchor.x());
    }
    QVERIFY2(left >= kRegion.left() - 1, qPrintable(QString::number(left)));
    QVERIFY2(std::abs(right - 89) <= 1, qPrintable(QString::number(right)));
}

MEASURE_TEST_MAIN(TestRegionOfInterestWork)
#include "TestRegionOfInterestWork.moc"
