#include "FindWindow.h"
#include "LmAppSettings.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "TestFont.h"

#include <QMenu>
#include <QPainter>
#include <QToolButton>
#include <QUndoStack>

#include <algorithm>

namespace {

// The middles of the coins in the sample, row by row, read off the picture.
const QList<QPoint> kCoins = {{45, 54},  {100, 56},  {155, 50},  {215, 48},  {276, 52},  {335, 43},
                              {45, 124}, {102, 125}, {153, 126}, {205, 124}, {270, 119}, {336, 124},
                              {43, 197}, {101, 196}, {154, 197}, {211, 192}, {274, 194}, {346, 187},
                              {46, 262}, {113, 266}, {172, 262}, {243, 262}, {301, 264}, {357, 268}};

/// A picture with dark discs on a ground that grows brighter to the right.
QString discPicture(FindWindow& aWindow, const QList<QPoint>& aMiddles, int aRadius)
{
    QImage picture(400, 300, QImage::Format_RGB32);
    QPainter painter(&picture);
    QLinearGradient ground(0, 0, 400, 0);
    ground.setColorAt(0, QColor(120, 120, 120));
    ground.setColorAt(1, QColor(220, 220, 220));
    painter.fillRect(picture.rect(), ground);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(50, 60, 70));
    for (const QPoint& middle : aMiddles)
        painter.drawEllipse(middle, aRadius, aRadius);
    painter.end();
    const QString file = aWindow.path(QStringLiteral("discs.png"));
    picture.save(file);
    return file;
}

/// The sample, or discs in its places.
void openCoins(FindWindow& aWindow)
{
    if (!aWindow.openSample(QStringLiteral("coins.png")))
        aWindow.open(discPicture(aWindow, kCoins, 20));
}

/// The sample, or an ellipse in the mouth of a cup in its place.
void openCoffee(FindWindow& aWindow)
{
    if (aWindow.openSample(QStringLiteral("coffee.png")))
        return;
    QImage picture(600, 400, QImage::Format_RGB32);
    picture.fill(QColor(120, 40, 20));
    QPainter painter(&picture);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(240, 230, 220));
    painter.drawEllipse(QPoint(290, 113), 117, 95);
    painter.setBrush(QColor(200, 130, 60));
    painter.drawEllipse(QPoint(286, 145), 84, 50);
    painter.end();
    const QString file = aWindow.path(QStringLiteral("cup.png"));
    picture.save(file);
    aWindow.open(file);
}

const QList<QPoint> kDiscs = {{70, 70}, {180, 80}, {300, 60}, {100, 200}, {330, 210}};

} // namespace

/// Things found in pictures, in the program as a person uses it.
class TestFindWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clickMakesARegionOfADisc();
    void rectangleMakesARegionOfEachDisc();
    void rectangleMarksEachDiscInOneStep();
    void marksGoOnWithTheCurrentCounter();
    void markOfAClickIsInTheMiddleOfItsDisc();
    void foundRegionShowsTheValueChosenForRegions();
    void valueChosenMeanwhileIsShownByTheNextRegion();
    void choosingAnotherTypeIsSaidInTheHint();
    void toolsMenuNamesTheOptions();
    void withoutAPictureTheMenuIsOff();
    void rectangleOverThePictureFindsTheCoins();
    void rectangleOverThePictureCountsTheCoins();
    void shortDragOverACoinFindsIt();
    void shortDragOverTheCoffeeFindsItsSurface();
    void altReshapesTheCurrentRegion();

private:
    /// Whether each of the points lies in one region of its own.
    static bool coverOneEach(FindWindow& aWindow, const QList<QPoint>& aPoints);
    static QPolygon outline(FindWindow& aWindow, int aIdx) { return QPolygon(aWindow.anchors(aIdx)); }
    static double area(const QPolygon& aOutline);
};

bool TestFindWindow::coverOneEach(FindWindow& aWindow, const QList<QPoint>& aPoints)
{
    QList<int> taken;
    for (const QPoint& point : aPoints) {
        int found = 0;
        for (int idx = 1; idx <= aWindow.regionCount(); ++idx)
            if (outline(aWindow, idx).containsPoint(point, Qt::OddEvenFill) && !taken.contains(idx)) {
                taken << idx;
                ++found;
            }
        if (found != 1)
            return false;
    }
    return taken.size() == aWindow.regionCount();
}

// By the shoelace formula.
double TestFindWindow::area(const QPolygon& aOutline)
{
    double twice = 0.0;
    for (int i = 0; i < aOutline.size(); ++i) {
        const QPoint& a = aOutline[i];
        const QPoint& b = aOutline[(i + 1) % aOutline.size()];
        twice += double(a.x()) * b.y() - double(b.x()) * a.y();
    }
    return std::abs(twice) / 2.0;
}

void TestFindWindow::clickMakesARegionOfADisc()
{
    FindWindow w;
    w.open(discPicture(w, kDiscs, 20));
    w.pickAuto({"Region", "Single"});
    w.click(kDiscs[1]);
    QCOMPARE(w.regionCount(), 1);
    // Its outline runs through the middles of the border pixels.
    const double expected = 3.14159265 * 19.5 * 19.5;
    QVERIFY2(std::abs(area(outline(w, 1)) - expected) < 0.04 * expected,
             qPrintable(QString::number(area(outline(w, 1)))));
    QVERIFY(w.isClosed(1));
    QCOMPARE(w.stack().count(), 1);
}

void TestFindWindow::rectangleMakesARegionOfEachDisc()
{
    FindWindow w;
    w.open(discPicture(w, kDiscs, 20));
    w.pickAuto({"Region", "Group"});
    w.drag(QPoint(5, 5), QPoint(395, 295));
    QCOMPARE(w.regionCount(), 5);
    QVERIFY(coverOneEach(w, kDiscs));
    QCOMPARE(w.undoTexts(), QStringList{"Create objects"});
    w.stack().undo();
    QCOMPARE(w.regionCount(), 0);
    QVERIFY(w.editor().cvItems().isEmpty());
}

void TestFindWindow::rectangleMarksEachDiscInOneStep()
{
    FindWindow w;
    w.open(discPicture(w, kDiscs, 20));
    w.pickAuto({"Counter", "Group"});
    w.drag(QPoint(5, 5), QPoint(395, 295));
    QCOMPARE(w.counterCount(), 1);
    QCOMPARE(w.markCount(1), 5);
    for (const QPoint& tip : w.tips(1)) {
        const auto near = [&tip](const QPoint& aDisc) { return (aDisc - tip).manhattanLength() <= 2; };
        QCOMPARE(std::count_if(kDiscs.cbegin(), kDiscs.cend(), near), 1);
    }
    QCOMPARE(w.stack().count(), 1);
    w.stack().undo();
    QCOMPARE(w.counterCount(), 0);
    w.stack().redo();
    QCOMPARE(w.markCount(1), 5);
    QCOMPARE(w.editor().cvItems().size(), 5);
}

void TestFindWindow::marksGoOnWithTheCurrentCounter()
{
    FindWindow w;
    w.open(discPicture(w, kDiscs, 20));
    w.count({QPoint(20, 280)});
    w.pickAuto({"Counter", "Group"});
    w.drag(QPoint(5, 5), QPoint(395, 260));
    QCOMPARE(w.counterCount(), 1);
    QCOMPARE(w.markCount(1), 6);
    QCOMPARE(w.tips(1).first(), QPoint(20, 280));
}

void TestFindWindow::markOfAClickIsInTheMiddleOfItsDisc()
{
    FindWindow w;
    w.open(discPicture(w, kDiscs, 20));
    w.pickAuto({"Counter", "Single"});
    w.click(kDiscs[0] + QPoint(10, 10));
    QCOMPARE(w.markCount(1), 1);
    QVERIFY((w.tips(1).first() - kDiscs[0]).manhattanLength() <= 2);
}

void TestFindWindow::foundRegionShowsTheValueChosenForRegions()
{
    FindWindow w;
    w.open(discPicture(w, kDiscs, 20));
    w.pickDistance();
    w.pickAuto({"Region", "Single"});
    w.click(kDiscs[0]);
    QCOMPARE(w.regionValue(1, QStringLiteral("dispv")).toString(), w.regionTool()->theValueNames.first());
}

void TestFindWindow::choosingAnotherTypeIsSaidInTheHint()
{
    FindWindow w;
    w.pickAuto({"Region", "Single"});
    QVERIFY(w.autoButton()->isChecked());
    QVERIFY2(w.hint().contains(QStringLiteral("Region")), qPrintable(w.hint()));
    w.pickAuto({"Counter"});
    QVERIFY2(w.hint().contains(QStringLiteral("Counter")), qPrintable(w.hint()));
}

void TestFindWindow::valueChosenMeanwhileIsShownByTheNextRegion()
{
    FindWindow w;
    w.open(discPicture(w, kDiscs, 20));
    w.pickAuto({"Region", "Single"});
    w.click(kDiscs[0]);
    QMenu* menu = w.contextMenu(kDiscs[0]);
    QVERIFY(menu);
    const QString area = w.regionTool()->theValueNames.value(3);
    QVERIFY(w.choose(*menu, area));
    w.click(kDiscs[1]);
    QCOMPARE(w.regionValue(2, QStringLiteral("dispv")).toString(), area);
}

void TestFindWindow::toolsMenuNamesTheOptions()
{
    FindWindow w;
    QVERIFY(WindowFixture::find(*w.actions().theToolsMenu, QStringLiteral("Auto create options")));
}

void TestFindWindow::withoutAPictureTheMenuIsOff()
{
    FindWindow w(FindWindow::kEmpty);
    QVERIFY(!w.autoButton()->isEnabled());
    QVERIFY(!w.autoButton()->menu()->menuAction()->isEnabled());
    w.open(discPicture(w, kDiscs, 20));
    QVERIFY(w.autoButton()->menu()->menuAction()->isEnabled());
}

void TestFindWindow::rectangleOverThePictureFindsTheCoins()
{
    FindWindow w;
    openCoins(w);
    w.pickAuto({"Region", "Group"});
    w.drag(QPoint(0, 0), QPoint(383, 302));
    QCOMPARE(w.regionCount(), 24);
    QVERIFY(coverOneEach(w, kCoins));
}

void TestFindWindow::rectangleOverThePictureCountsTheCoins()
{
    FindWindow w;
    openCoins(w);
    w.pickAuto({"Counter", "Group"});
    w.drag(QPoint(0, 0), QPoint(383, 302));
    QCOMPARE(w.counterCount(), 1);
    QCOMPARE(w.markCount(1), 24);
    // Row by row, as a person counts.
    const QList<QPoint> tips = w.tips(1);
    for (int i = 0; i < tips.size(); ++i)
        QVERIFY2((tips[i] - kCoins[i]).manhattanLength() < 16, qPrintable(QString::number(i)));
}

void TestFindWindow::shortDragOverACoinFindsIt()
{
    FindWindow w;
    openCoins(w);
    w.pickAuto({"Region", "Single"});
    w.slowDrag(kCoins[0] - QPoint(12, 6), kCoins[0] + QPoint(12, 6));
    QCOMPARE(w.regionCount(), 1);
    QVERIFY(outline(w, 1).containsPoint(kCoins[0], Qt::OddEvenFill));
    for (const QPoint& other : kCoins)
        if (other != kCoins[0])
            QVERIFY(!outline(w, 1).containsPoint(other, Qt::OddEvenFill));
    // A coin of some 21 pixels' radius.
    QVERIFY2(area(outline(w, 1)) > 1000 && area(outline(w, 1)) < 1700,
             qPrintable(QString::number(area(outline(w, 1)))));
}

void TestFindWindow::shortDragOverTheCoffeeFindsItsSurface()
{
    FindWindow w;
    openCoffee(w);
    w.pickAuto({"Region", "Single"});
    w.slowDrag(QPoint(290, 130), QPoint(310, 145));
    QCOMPARE(w.regionCount(), 1);
    const QPolygon surface = outline(w, 1);
    QVERIFY(surface.containsPoint(QPoint(300, 140), Qt::OddEvenFill));
    for (const QPoint& outside :
         {QPoint(20, 20), QPoint(580, 380), QPoint(190, 120), QPoint(300, 30), QPoint(120, 220)})
        QVERIFY2(!surface.containsPoint(outside, Qt::OddEvenFill), qPrintable(QString::number(outside.x())));
}

void TestFindWindow::altReshapesTheCurrentRegion()
{
    FindWindow w;
    w.open(discPicture(w, kDiscs, 20));
    w.pickAuto({"Region", "Single"});
    w.click(kDiscs[0]);
    w.click(kDiscs[3], Qt::AltModifier);
    QCOMPARE(w.regionCount(), 1);
    QVERIFY(outline(w, 1).containsPoint(kDiscs[3], Qt::OddEvenFill));
    w.stack().undo();
    QVERIFY(outline(w, 1).containsPoint(kDiscs[0], Qt::OddEvenFill));
}

MEASURE_TEST_MAIN(TestFindWindow)
#include "TestFindWindow.moc"
