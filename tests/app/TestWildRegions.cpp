#include "BenchState.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "MadeFiles.h"
#include "ModalAnswer.h"
#include "PictureRenderer.h"
#include "ProjectText.h"
#include "RegionWindow.h"
#include "TestFont.h"
#include "ValueReport.h"
#include "WildRegions.h"

#include <QTextStream>

#include <climits>
#include <cmath>
#include <memory>

using ProjectText::RegionText;

/// Projects with regions that nobody can have drawn but that can be read: they open as something definite,
/// and whatever is done to them works and can be undone.
class TestWildRegions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theWindow = std::make_unique<RegionWindow>(); }
    void cleanup() { theWindow.reset(); }
    void regionOpensWithItsWholeNodes_data() { WildRegions::addRows(); }
    void regionOpensWithItsWholeNodes();
    void valuesAreNumbers_data() { WildRegions::addRows(); }
    void valuesAreNumbers();
    void regionIsPaintedAtEveryZoom_data() { WildRegions::addRows(); }
    void regionIsPaintedAtEveryZoom();
    void editsAreUndone_data() { WildRegions::addRows(); }
    void editsAreUndone();
    void drawingGoesOnAndIsUndone_data() { WildRegions::addRows(); }
    void drawingGoesOnAndIsUndone();
    void savedRegionIsTheSame_data() { WildRegions::addRows(); }
    void savedRegionIsTheSame();
    void regionLargerThanThePictureHasThePicturesMeans();
    void regionOutsideThePictureHasItsSizeAndNoMeans();

private:
    void open(const QByteArray& aObjects);
    void openRow();
    QStringList reportedNumbers() const;
    double number(int aIdx, const QString& aName);
    void undoAll();

    std::unique_ptr<RegionWindow> theWindow;
};

void TestWildRegions::open(const QByteArray& aObjects)
{
    const QString path = theWindow->path(QStringLiteral("wild.mtp"));
    const QByteArray picture = ProjectText::picture(QStringLiteral("picture.png"), 400, 300);
    MadeFiles::write(path, ProjectText::project(picture, "", aObjects));
    const ModalAnswer nothing(QList<ModalAnswer::Answer>{});
    QVERIFY(theWindow->window().openAtStart(path));
}

void TestWildRegions::openRow()
{
    QFETCH(RegionText, region);
    open(ProjectText::region(1, region));
}

/// The numbers of the report, those of empty cells left out.
QStringList TestWildRegions::reportedNumbers() const
{
    QString report;
    QTextStream stream(&report);
    ValueReport::write({theWindow->regionTool()}, stream);
    QStringList numbers;
    const QStringList lines = report.split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(1);
    for (const QString& line : lines)
        numbers << line.split(QLatin1Char('\t')).value(3);
    return numbers;
}

double TestWildRegions::number(int aIdx, const QString& aName)
{
    QStringList units;
    return theWindow->regionTool()->getValues({aName}, aIdx, units).first().toDouble();
}

void TestWildRegions::undoAll()
{
    while (theWindow->stack().canUndo())
        theWindow->stack().undo();
}

void TestWildRegions::regionOpensWithItsWholeNodes()
{
    QFETCH(int, nodes);
    openRow();
    QCOMPARE(theWindow->regionCount(), 1);
    LmCvObject* item = theWindow->item(1);
    QVERIFY(item && item->isVisible());
    // All nodes, wherever they lie: four bands that hold the range of numbers but for its lowest one.
    item->moveObjectBy(QPoint(1000, 1000));
    qsizetype count = 0;
    for (const int x : {-INT_MAX, 0})
        for (const int y : {-INT_MAX, 0}) {
            item->selectNodes(QPoint(x, y),
                              QSize(x < 0 ? INT_MAX - 1 : INT_MAX, y < 0 ? INT_MAX - 1 : INT_MAX));
            count += item->getSelectedNodes().size();
        }
    QCOMPARE(count, nodes);
}

void TestWildRegions::valuesAreNumbers()
{
    openRow();
    const QStringList numbers = reportedNumbers();
    QCOMPARE(numbers.size(), 6);
    for (const QString& text : numbers) {
        bool isNumber = false;
        const double value = text.toDouble(&isNumber);
        QVERIFY2(isNumber && std::isfinite(value) && value >= 0.0, qPrintable(text));
    }
    for (const char* mean : {"Avg. lightness", "Avg. saturation"})
        QVERIFY(number(1, QLatin1String(mean)) <= 100.0);
    LmCvManipulator* tool = theWindow->regionTool();
    QString unit;
    for (const QString& name : tool->getAnimatedValueNames()) {
        const QLinkedList<LmParamKeyframe> animation = tool->getAnimation(name, 1, unit);
        for (const LmParamKeyframe& keyframe : animation)
            QVERIFY(std::isfinite(keyframe.getValue().toDouble()));
    }
    for (const QString& name : tool->theValueNames) {
        tool->updateDisplayValue(theWindow->item(1), name, true, true);
        QVERIFY(theWindow->item(1)->labelText().startsWith(QStringLiteral(" 1 <")));
    }
}

void TestWildRegions::regionIsPaintedAtEveryZoom()
{
    openRow();
    RegionWindow& f = *theWindow;
    QCOMPARE(PictureRenderer::render(f.editor()).size(), QSize(400, 300));
    f.key(Qt::Key_A, Qt::ControlModifier);
    f.editor().activateItem(f.item(1));
    for (const double zoom : {0.02, 0.5, 1.0, 3.0, 64.0}) {
        f.editor().setZoom(zoom);
        QCOMPARE(f.editor().zoom(), zoom);
        QVERIFY(!f.editor().viewport()->grab().isNull());
    }
}

void TestWildRegions::editsAreUndone()
{
    openRow();
    RegionWindow& f = *theWindow;
    const QString before = recordsText();
    f.drag(QPoint(100, 80), QPoint(130, 95)); // on a node or the inside, or beside it
    f.drag(QPoint(80, 60), QPoint(85, 50));
    f.drag(QPoint(80, 60), QPoint(60, 50), Qt::AltModifier);
    f.key(Qt::Key_A, Qt::ControlModifier);
    f.key(Qt::Key_Right, Qt::ShiftModifier);
    f.key(Qt::Key_Up);
    QVERIFY(f.stack().count() >= 2);
    undoAll();
    QCOMPARE(recordsText(), before);
    QVERIFY(f.item(1));
    f.key(Qt::Key_A, Qt::ControlModifier);
    f.key(Qt::Key_Delete);
    QCOMPARE(f.regionCount(), 0);
    undoAll();
    QCOMPARE(recordsText(), before);
    f.regionTool()->changeAnimationCvObject(f.item(1), !f.region(1)->theAnimated, false, false);
    undoAll();
    QCOMPARE(recordsText(), before);
    QVERIFY(!f.editor().viewport()->grab().isNull());
}

void TestWildRegions::drawingGoesOnAndIsUndone()
{
    openRow();
    RegionWindow& f = *theWindow;
    const QString before = recordsText();
    f.pickPen();
    f.editor().activateItem(f.item(1));
    f.click(QPoint(80, 60)); // an end node of some of them
    f.click(QPoint(100, 80));
    f.click(QPoint(250, 200));
    f.key(Qt::Key_Delete);
    f.key(Qt::Key_Escape);
    undoAll();
    QCOMPARE(recordsText(), before);
    f.pickPen();
    f.editor().activateItem(f.item(1));
    f.click(QPoint(300, 250), Qt::AltModifier); // starts it over
    QCOMPARE(f.anchors(1), (QList<QPoint>{{300, 250}}));
    QVERIFY(f.stack().canUndo());
    undoAll();
    QCOMPARE(recordsText(), before);
    for (const bool autoShape : {false, true}) {
        f.pickPencil(true, autoShape);
        f.editor().activateItem(f.item(1));
        f.stroke({{100, 80}, {120, 80}, {120, 110}, {101, 111}});
        f.contextMenu(QPoint(90, 90)); // closes it
        f.pickArrow();
        undoAll();
        QCOMPARE(recordsText(), before);
    }
}

void TestWildRegions::savedRegionIsTheSame()
{
    openRow();
    RegionWindow& f = *theWindow;
    const QString before = recordsText();
    const QString path = f.path(QStringLiteral("again.mtp"));
    {
        const ModalAnswer answer(ModalAnswer::chooseFile(path));
        f.actions().theSaveAs->trigger();
    }
    f.restart();
    QVERIFY(f.window().openAtStart(path));
    QCOMPARE(recordsText(), before);
}

void TestWildRegions::regionLargerThanThePictureHasThePicturesMeans()
{
    RegionText whole;
    whole.thePoints = RegionText::corners("-200,-150 199,-150 199,149 -200,149");
    whole.thePos = "200 150";
    RegionText larger = whole;
    larger.thePoints = RegionText::corners("-5000,-5000 5000,-5000 5000,5000 -5000,5000");
    RegionText largest = whole;
    largest.thePoints = RegionText::corners(WildRegions::kEnds);
    open(ProjectText::region(1, whole) + ProjectText::region(2, larger) + ProjectText::region(3, largest));
    for (const char* name : {"Avg. lightness", "Avg. saturation"}) {
        const double mean = number(1, QLatin1String(name));
        QVERIFY(mean > 0.0 && mean < 100.0);
        QCOMPARE(number(2, QLatin1String(name)), mean);
        QCOMPARE(number(3, QLatin1String(name)), mean);
    }
    QCOMPARE(number(2, QStringLiteral("Width")), 10001.0);
    QCOMPARE(number(3, QStringLiteral("Width")), 4294967296.0);
}

void TestWildRegions::regionOutsideThePictureHasItsSizeAndNoMeans()
{
    RegionText outside;
    outside.thePos = "-3000 5000";
    open(ProjectText::region(1, outside));
    QCOMPARE(number(1, QStringLiteral("Width")), 41.0);
    QCOMPARE(number(1, QStringLiteral("Area")), 1600.0);
    QCOMPARE(number(1, QStringLiteral("Avg. lightness")), 0.0);
    QCOMPARE(number(1, QStringLiteral("Avg. saturation")), 0.0);
    // It is shown again by moving it into the picture.
    RegionWindow& f = *theWindow;
    f.key(Qt::Key_A, Qt::ControlModifier);
    f.key(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(f.regionValue(1, QStringLiteral("pos")).toPoint(), QPoint(-2990, 5000));
}

MEASURE_TEST_MAIN(TestWildRegions)
#include "TestWildRegions.moc"
