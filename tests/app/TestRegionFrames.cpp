#include "BenchState.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "RegionWindow.h"
#include "TestFont.h"

#include <QMenu>

/// Regions over the pages of a picture: animated ones follow the frames, and a change of the node count is
/// held to its frame.
class TestRegionFrames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void animatedRegionMovesBetweenItsKeyframes();
    void plainRegionIsTheSameOnAllFrames();
    void deletedNodeIsMissingOnItsFrameAlone();
    void addedNodeIsThereOnItsFrameAlone();
    void undoListNamesTheKeptFrames_data();
    void undoListNamesTheKeptFrames();
    void keptFramesAreUndoneAndDoneAgainStepByStep();
    void valuesAreThoseOfTheFrame();
    void outlineInTheMakingLivesThroughAChangeOfFrame();
};

static const QList<QPoint> kBox{{100, 80}, {199, 80}, {199, 129}, {100, 129}};
static const QPoint kInside(150, 110);
constexpr int kPages = 6;

static void showFrame(RegionWindow& aFixture, int aFrame)
{
    while (int(aFixture.kernel().theCurrentFrame) < aFrame)
        aFixture.key(Qt::Key_PageDown);
    while (int(aFixture.kernel().theCurrentFrame) > aFrame)
        aFixture.key(Qt::Key_PageUp);
}

/// A closed box on all pages.
static void drawBox(RegionWindow& aFixture)
{
    aFixture.openPages(kPages);
    QCOMPARE(aFixture.drawClosed(kBox), 1);
}

static void drawAnimatedBox(RegionWindow& aFixture)
{
    drawBox(aFixture);
    QMenu* menu = aFixture.contextMenu(kInside);
    QVERIFY(menu);
    QVERIFY(aFixture.choose(*menu, QStringLiteral("Animated")));
    QVERIFY(aFixture.region(1)->theAnimated);
}

static void deleteNode(RegionWindow& aFixture, int aFrame, const QPoint& aNode)
{
    showFrame(aFixture, aFrame);
    aFixture.click(aNode);
    aFixture.key(Qt::Key_Delete);
}

/// The number of nodes on each frame; -1 where the item has another number than its record.
static QList<qsizetype> nodeCounts(RegionWindow& aFixture)
{
    QList<qsizetype> counts;
    for (int frame = 0; frame < kPages; ++frame) {
        showFrame(aFixture, frame);
        const qsizetype count = aFixture.anchors(1).size();
        counts << (aFixture.itemNodeCount(1) == count ? count : -1);
    }
    return counts;
}

void TestRegionFrames::animatedRegionMovesBetweenItsKeyframes()
{
    RegionWindow f;
    drawAnimatedBox(f);
    f.drag(kInside, kInside + QPoint(0, 20));
    showFrame(f, 4);
    f.drag(kInside + QPoint(0, 20), kInside + QPoint(80, 20));
    showFrame(f, 1);
    QCOMPARE(f.anchors(1)[0], QPoint(120, 100));
    QVERIFY(f.item(1)->boundingRect().contains(QRect(120, 100, 100, 50)));
    showFrame(f, 2);
    QCOMPARE(f.anchors(1)[0], QPoint(140, 100));
    showFrame(f, 5);
    QCOMPARE(f.anchors(1)[0], QPoint(180, 100));
}

void TestRegionFrames::plainRegionIsTheSameOnAllFrames()
{
    RegionWindow f;
    drawBox(f);
    deleteNode(f, 3, kBox[2]);
    QCOMPARE(nodeCounts(f), (QList<qsizetype>{3, 3, 3, 3, 3, 3}));
    QVERIFY(f.region(1)->getKeyframedFrames().isEmpty());
}

void TestRegionFrames::deletedNodeIsMissingOnItsFrameAlone()
{
    RegionWindow f;
    drawAnimatedBox(f);
    deleteNode(f, 3, kBox[2]);
    QCOMPARE(nodeCounts(f), (QList<qsizetype>{4, 4, 4, 3, 4, 4}));
    showFrame(f, 4);
    QCOMPARE(f.anchors(1), kBox);
    showFrame(f, 3);
    QCOMPARE(f.anchors(1), (QList<QPoint>{kBox[0], kBox[1], kBox[3]}));
}

void TestRegionFrames::addedNodeIsThereOnItsFrameAlone()
{
    RegionWindow f;
    f.openPages(kPages);
    f.pickPen();
    f.clickAll({{60, 60}, {200, 60}, {200, 160}});
    f.pickArrow();
    QMenu* menu = f.contextMenu(QPoint(160, 60));
    QVERIFY(menu);
    QVERIFY(f.choose(*menu, QStringLiteral("Animated")));
    showFrame(f, 2);
    f.pickPen();
    f.click(QPoint(200, 160)); // goes on at its end
    f.click(QPoint(60, 160));
    f.pickArrow();
    QCOMPARE(nodeCounts(f), (QList<qsizetype>{3, 3, 4, 3, 3, 3}));
    QCOMPARE(f.regionCount(), 1);
}

void TestRegionFrames::undoListNamesTheKeptFrames_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<QStringList>("texts");
    const QString change = QStringLiteral("Change Region 1");
    const auto keep = [](int aNumber) { return QStringLiteral("Keep Region 1 at frame %1").arg(aNumber); };
    QTest::newRow("first") << 0 << QStringList{change};
    QTest::newRow("second") << 1 << QStringList{keep(3), keep(1), change};
    QTest::newRow("middle") << 3 << QStringList{keep(5), keep(3), change};
    QTest::newRow("last") << 5 << QStringList{keep(5), change};
}

void TestRegionFrames::undoListNamesTheKeptFrames()
{
    QFETCH(int, frame);
    QFETCH(QStringList, texts);
    RegionWindow f;
    drawAnimatedBox(f);
    const int steps = f.stack().count();
    deleteNode(f, frame, kBox[2]);
    QCOMPARE(f.undoTexts().mid(steps), texts);
}

void TestRegionFrames::keptFramesAreUndoneAndDoneAgainStepByStep()
{
    RegionWindow f;
    drawAnimatedBox(f);
    const QString before = recordsText();
    deleteNode(f, 3, kBox[2]);
    const QString after = recordsText();
    f.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(nodeCounts(f), QList<qsizetype>(kPages, 4));
    QCOMPARE(f.region(1)->getKeyframedFrames(), (QList<long long>{0, 2, 4}));
    f.key(Qt::Key_Z, Qt::ControlModifier);
    f.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(recordsText(), before);
    for (int i = 0; i < 3; ++i)
        f.stack().redo();
    QCOMPARE(recordsText(), after);
    QCOMPARE(nodeCounts(f), (QList<qsizetype>{4, 4, 4, 3, 4, 4}));
}

void TestRegionFrames::valuesAreThoseOfTheFrame()
{
    RegionWindow f;
    drawAnimatedBox(f);
    showFrame(f, 3);
    f.drag(kBox[1], kBox[1] + QPoint(20, 0));
    f.drag(kBox[2], kBox[2] + QPoint(20, 0));
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 <120.00> "));
    showFrame(f, 0);
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 <100.00> "));
    showFrame(f, 3);
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 <120.00> "));
}

void TestRegionFrames::outlineInTheMakingLivesThroughAChangeOfFrame()
{
    RegionWindow f;
    f.openPages(kPages);
    f.pickPencil();
    f.stroke({{60, 60}, {100, 60}, {140, 60}});
    showFrame(f, 2);
    f.click(QPoint(140, 120));
    QCOMPARE(f.anchors(1), (QList<QPoint>{{60, 60}, {100, 60}, {140, 60}, {140, 120}}));
    QCOMPARE(f.itemNodeCount(1), 4);
    f.pickArrow();
    QCOMPARE(nodeCounts(f), QList<qsizetype>(kPages, 4));
}

MEASURE_TEST_MAIN(TestRegionFrames)
#include "TestRegionFrames.moc"
