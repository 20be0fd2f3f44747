#include "AnimatedObjects.h"
#include "CmdSetAnimation.h"
#include "Drawn.h"
#include "LmCvManipulator.h"
#include "LmKernelObjectData.h"
#include "Sentence.h"
#include "TestFont.h"
#include "WindowFixture.h"

#include <QAction>
#include <QMenu>
#include <QStatusBar>

/// The entries of an item's menu that have to do with frames: animation, and paths that are copied and
/// pasted.
class TestItemMenuPaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { LmCvManipulator::theClipboardKeyframes.clear(); }
    void singlePictureOffersNoAnimation();
    void animationIsSwitchedOnFrames();
    void pathIsCopiedFromOneObjectToAnother();
    void placeWithoutAPathIsTold();
    void objectWithoutPathsLeavesTheCopiedOne_data();
    void objectWithoutPathsLeavesTheCopiedOne();
    void labelLeavesTheCopiedPath();
};

// The middle of the first distance; both are 200 pixels long.
static const QPoint kMiddle(200, 100);

static void drawFirst(WindowFixture& aFixture)
{
    QCOMPARE(aFixture.draw(kMiddle - QPoint(100, 0), kMiddle + QPoint(100, 0)), 1);
}

static void drawSecond(WindowFixture& aFixture)
{
    QCOMPARE(aFixture.draw(QPoint(100, 200), QPoint(300, 200)), 2);
}

// Beside the label and away from the heads.
static const QPoint kOnFirst = kMiddle - QPoint(75, 0);

static QLinkedList<LmParamKeyframe> path()
{
    QLinkedList<LmParamKeyframe> path;
    path << LmParamKeyframe(0, kMiddle) << LmParamKeyframe(2, kMiddle + QPoint(20, 60));
    return path;
}

static void chooseAt(WindowFixture& aFixture, const QPoint& aPlace, const char* aEntry)
{
    QMenu* menu = aFixture.contextMenu(aPlace);
    QVERIFY(menu);
    QVERIFY(aFixture.choose(*menu, QLatin1String(aEntry)));
}

// Draws the first distance, lets it follow the path and copies that.
static void copyFirst(WindowFixture& aFixture)
{
    drawFirst(aFixture);
    auto keyframes = path();
    aFixture.stack().push(new CmdSetAnimation(kDistanceType, 1, 3, keyframes));
    chooseAt(aFixture, kOnFirst, "Copy Path");
    QCOMPARE(LmCvManipulator::theClipboardKeyframes, path());
}

// Neither of both finds anything at the place, and both say what to do.
static void verifyNoPathAt(WindowFixture& aFixture, const QPoint& aPlace)
{
    const auto message = [&aFixture] { return aFixture.window().statusBar()->currentMessage(); };
    const int steps = aFixture.stack().count();
    chooseAt(aFixture, aPlace, "Copy Path");
    QCOMPARE(sentenceFault(message()), QString());
    QVERIFY2(message().contains(QStringLiteral("no path")), qPrintable(message()));
    QCOMPARE(LmCvManipulator::theClipboardKeyframes, path());
    chooseAt(aFixture, aPlace, "Paste Path");
    QCOMPARE(sentenceFault(message()), QString());
    QVERIFY2(message().contains(QStringLiteral("can follow")), qPrintable(message()));
    QCOMPARE(aFixture.stack().count(), steps);
}

void TestItemMenuPaths::singlePictureOffersNoAnimation()
{
    WindowFixture fixture;
    drawFirst(fixture);
    LmCvManipulator::theClipboardKeyframes = path();
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    for (const char* entry : {"Animated", "Paste Path"})
        QVERIFY2(!WindowFixture::find(*menu, QLatin1String(entry))->isEnabled(), entry);
    menu->close();
}

void TestItemMenuPaths::animationIsSwitchedOnFrames()
{
    WindowFixture fixture;
    fixture.openPages(3);
    drawFirst(fixture);
    for (const bool animated : {true, false}) {
        QMenu* menu = fixture.contextMenu(kMiddle);
        QVERIFY(menu);
        QCOMPARE(WindowFixture::find(*menu, QStringLiteral("Animated"))->isChecked(), !animated);
        QVERIFY(fixture.choose(*menu, QStringLiteral("Animated")));
        QCOMPARE(fixture.distance(1)->theAnimated, animated);
    }
    fixture.stack().undo();
    QVERIFY(fixture.distance(1)->theAnimated);
}

void TestItemMenuPaths::pathIsCopiedFromOneObjectToAnother()
{
    WindowFixture fixture;
    fixture.openPages(3);
    copyFirst(fixture);
    drawSecond(fixture);
    chooseAt(fixture, QPoint(125, 200), "Paste Path");
    QVERIFY(fixture.distance(2)->theAnimated);
    QCOMPARE(fixture.distance(2)->getAnimationKeyframes(3), path());
    QCOMPARE(fixture.window().statusBar()->currentMessage(), QStringLiteral("The path is copied."));
}

void TestItemMenuPaths::placeWithoutAPathIsTold()
{
    WindowFixture fixture;
    fixture.openPages(3);
    drawFirst(fixture);
    QMenu* menu = fixture.contextMenu(kOnFirst);
    QVERIFY(menu);
    QVERIFY(!WindowFixture::find(*menu, QStringLiteral("Paste Path"))->isEnabled());
    QVERIFY(fixture.choose(*menu, QStringLiteral("Copy Path")));
    QVERIFY(fixture.window().statusBar()->currentMessage().contains(QStringLiteral("no path")));
}

void TestItemMenuPaths::objectWithoutPathsLeavesTheCopiedOne_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("region") << AnimatedObjects::kRegionType;
    QTest::newRow("dimension") << AnimatedObjects::kDimensionType;
}

void TestItemMenuPaths::objectWithoutPathsLeavesTheCopiedOne()
{
    QFETCH(int, type);
    WindowFixture fixture;
    fixture.openPages(3);
    copyFirst(fixture);
    const QPoint edge(100, 200);
    if (type == AnimatedObjects::kRegionType)
        AnimatedObjects::addSquare(fixture.bench(), 60, {{0, edge + QPoint(30, 0)}});
    else
        AnimatedObjects::addDimension(fixture.bench(),
                                      {{0, QPolygon({edge - QPoint(0, 60), edge + QPoint(0, 20)})}});
    verifyNoPathAt(fixture, edge);
}

void TestItemMenuPaths::labelLeavesTheCopiedPath()
{
    WindowFixture fixture;
    fixture.openPages(3);
    copyFirst(fixture);
    // Near enough to the line for the menu of the distance, too far from it for its path.
    verifyNoPathAt(fixture, kMiddle - QPoint(0, 3));
}

MEASURE_TEST_MAIN(TestItemMenuPaths)
#include "TestItemMenuPaths.moc"
