#include "BenchState.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "MadeFiles.h"
#include "ModalAnswer.h"
#include "RegionWindow.h"
#include "TestFont.h"

#include <QMenu>

/// Regions that are saved and come back.
class TestRegionProject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pointsStatesAndClosedFlagComeBack();
    void lookComesBack();
    void reloadedHandlesFollowEachOtherAsBefore();
    void indicesCloseUpAndNewRegionsFollow();
    void animatedRegionComesBack_data();
    void animatedRegionComesBack();
    void projectOpensAtItsFrame();
    void outlineInTheMakingIsSavedAsItStands();
    void secondSaveOfAReloadedProjectIsTheSameFile();
};

static const QList<QPoint> kBox{{100, 80}, {199, 80}, {199, 129}, {100, 129}};
static const QPoint kInside(150, 110);

static QString projectPath(RegionWindow& aFixture)
{
    return aFixture.path(QStringLiteral("work.mtp"));
}

static void save(RegionWindow& aFixture)
{
    const ModalAnswer answer(ModalAnswer::chooseFile(projectPath(aFixture)));
    aFixture.actions().theSaveAs->trigger();
}

/// Saves, starts the program anew and opens what was saved.
static void reload(RegionWindow& aFixture)
{
    save(aFixture);
    aFixture.restart();
    QCOMPARE(aFixture.regionCount(), 0);
    QVERIFY(aFixture.window().openAtStart(projectPath(aFixture)));
}

/// An open outline with a node of each kind of handles: mirrored, of one direction, broken apart.
static void drawCurve(RegionWindow& aFixture)
{
    aFixture.pickPen();
    aFixture.drag(QPoint(60, 200), QPoint(70, 180));
    aFixture.drag(QPoint(160, 200), QPoint(180, 210));
    aFixture.drag(QPoint(260, 200), QPoint(280, 220));
    aFixture.pickArrow();
    aFixture.click(QPoint(160, 200));
    aFixture.drag(QPoint(180, 210), QPoint(185, 230));
    aFixture.click(QPoint(260, 200));
    aFixture.drag(QPoint(280, 220), QPoint(260, 240), Qt::AltModifier);
}

static QByteArray states(RegionWindow& aFixture, int aIdx)
{
    return aFixture.regionValue(aIdx, QStringLiteral("nst")).toByteArray();
}

void TestRegionProject::pointsStatesAndClosedFlagComeBack()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kBox), 1);
    drawCurve(f);
    const QString records = recordsText();
    const QPolygon points = f.points(2);
    const QByteArray bytes = states(f, 2);
    // Three bytes a node, the last one says how its handles go together.
    QCOMPARE(bytes.size(), 9);
    QCOMPARE((QList<int>{bytes[2], bytes[5], bytes[8]}), (QList<int>{2, 1, 0}));
    reload(f);
    QCOMPARE(recordsText(), records);
    QVERIFY(f.isClosed(1));
    QVERIFY(!f.isClosed(2));
    QCOMPARE(f.anchors(1), kBox);
    QCOMPARE(f.points(2), points);
    QCOMPARE(states(f, 2), bytes);
    QCOMPARE(f.itemNodeCount(1), 4);
    QCOMPARE(f.itemNodeCount(2), 3);
    QVERIFY(!f.stack().canUndo());
}

void TestRegionProject::lookComesBack()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kBox), 1);
    f.regionTool()->setColorCvObject(f.item(1), QColor(1, 2, 200));
    QMenu* menu = f.contextMenu(kInside);
    QVERIFY(menu);
    QVERIFY(f.choose(*menu, QStringLiteral("Area")));
    const QString label = f.item(1)->labelText();
    QCOMPARE(f.drawClosed({{60, 200}, {160, 200}, {160, 280}}), 2);
    menu = f.contextMenu(QPoint(150, 220));
    QVERIFY(menu);
    QVERIFY(f.choose(*menu, QStringLiteral("Hide")));
    reload(f);
    QCOMPARE(f.item(1)->labelText(), label);
    QCOMPARE(f.item(1)->getColor(), QColor(1, 2, 200));
    QVERIFY(f.item(1)->isVisible());
    QVERIFY(!f.item(2)->isVisible());
}

void TestRegionProject::reloadedHandlesFollowEachOtherAsBefore()
{
    RegionWindow f;
    drawCurve(f);
    reload(f);
    f.click(QPoint(260, 200)); // its handles are broken apart
    f.drag(QPoint(260, 240), QPoint(230, 240));
    QCOMPARE(f.points(1)[8], QPoint(230, 240));
    QCOMPARE(f.points(1)[6], QPoint(240, 180)); // stays
    f.click(QPoint(60, 200));                   // mirrored until a handle is dragged by hand
    f.drag(QPoint(70, 180), QPoint(60, 150));
    QCOMPARE(f.points(1)[2], QPoint(60, 150));
    QCOMPARE(f.points(1)[0], QPoint(60, 222)); // turned, with its own length of a root of 500
    QCOMPARE(int(states(f, 1)[2]), 1);
}

void TestRegionProject::indicesCloseUpAndNewRegionsFollow()
{
    RegionWindow f;
    for (int i = 0; i < 3; ++i)
        QCOMPARE(f.drawClosed({{50 + 100 * i, 50}, {90 + 100 * i, 50}, {90 + 100 * i, 90}}), i + 1);
    f.regionTool()->removeCvObject(f.item(1));
    const QPolygon second = f.points(2);
    reload(f);
    QCOMPARE(f.kernel().getObjectsOfType(RegionWindow::kType).keys(), (QList<int>{1, 2}));
    QCOMPARE(f.points(1), second);
    QCOMPARE(f.drawClosed({{50, 200}, {90, 200}, {90, 240}}), 3);
}

void TestRegionProject::animatedRegionComesBack_data()
{
    QTest::addColumn<bool>("pinned");
    QTest::newRow("moved only") << false;
    QTest::newRow("with another node count on one frame") << true;
}

static void showFrame(RegionWindow& aFixture, int aFrame)
{
    while (int(aFixture.kernel().theCurrentFrame) < aFrame)
        aFixture.key(Qt::Key_PageDown);
    while (int(aFixture.kernel().theCurrentFrame) > aFrame)
        aFixture.key(Qt::Key_PageUp);
}

/// What a region looks like on each of the frames.
static QList<QPolygon> overFrames(RegionWindow& aFixture)
{
    QList<QPolygon> all;
    for (int frame = 0; frame < int(aFixture.kernel().theFrameCount); ++frame) {
        showFrame(aFixture, frame);
        all << aFixture.points(1);
        if (aFixture.itemNodeCount(1) * 3 != all.last().size())
            QTest::qFail("the item isn't like its record", __FILE__, __LINE__);
    }
    return all;
}

static void drawAnimated(RegionWindow& aFixture)
{
    aFixture.openPages(6);
    QCOMPARE(aFixture.drawClosed(kBox), 1);
    QMenu* menu = aFixture.contextMenu(kInside);
    QVERIFY(menu);
    QVERIFY(aFixture.choose(*menu, QStringLiteral("Animated")));
    aFixture.drag(kInside, kInside + QPoint(10, 0));
    showFrame(aFixture, 5);
    aFixture.drag(kInside + QPoint(10, 0), kInside + QPoint(60, 0));
}

static void deleteNode(RegionWindow& aFixture, int aFrame)
{
    showFrame(aFixture, aFrame);
    aFixture.click(aFixture.anchors(1)[2]);
    aFixture.key(Qt::Key_Delete);
    QCOMPARE(aFixture.anchors(1).size(), 3);
}

void TestRegionProject::animatedRegionComesBack()
{
    QFETCH(bool, pinned);
    RegionWindow f;
    drawAnimated(f);
    if (pinned)
        deleteNode(f, 3);
    const QString records = recordsText();
    const QList<QPolygon> before = overFrames(f);
    QCOMPARE(before[3].size(), pinned ? 9 : 12);
    QVERIFY(before[1] != before[2]);
    reload(f);
    QCOMPARE(recordsText(), records);
    QVERIFY(f.region(1)->theAnimated);
    QCOMPARE(overFrames(f), before);
    // And it goes on following the frames.
    deleteNode(f, 1);
    QCOMPARE(overFrames(f)[1].size(), 9);
    QCOMPARE(overFrames(f)[2], before[2]);
}

void TestRegionProject::projectOpensAtItsFrame()
{
    RegionWindow f;
    drawAnimated(f);
    deleteNode(f, 3);
    const QString label = f.item(1)->labelText();
    reload(f);
    QCOMPARE(f.kernel().theCurrentFrame, 3U);
    QCOMPARE(f.itemNodeCount(1), 3);
    QCOMPARE(f.item(1)->labelText(), label);
}

void TestRegionProject::outlineInTheMakingIsSavedAsItStands()
{
    RegionWindow f;
    f.pickPencil();
    f.stroke({{60, 60}, {100, 60}, {140, 60}});
    f.move(QPoint(200, 200));
    reload(f);
    QCOMPARE(f.anchors(1), (QList<QPoint>{{60, 60}, {100, 60}, {140, 60}}));
    QVERIFY(!f.isClosed(1));
    QVERIFY(!f.editor().mouseGrabber());
}

void TestRegionProject::secondSaveOfAReloadedProjectIsTheSameFile()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kBox), 1);
    drawCurve(f);
    reload(f);
    const QByteArray first = MadeFiles::read(projectPath(f));
    f.key(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(MadeFiles::read(projectPath(f) + QLatin1Char('~')), first);
    QCOMPARE(MadeFiles::read(projectPath(f)), first);
}

MEASURE_TEST_MAIN(TestRegionProject)
#include "TestRegionProject.moc"
