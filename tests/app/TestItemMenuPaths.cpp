#include "CmdSetAnimation.h"
#include "Drawn.h"
#include "LmCvManipulator.h"
#include "LmKernelObjectData.h"
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
    void singlePictureOffersNoAnimation();
    void animationIsSwitchedOnFrames();
    void pathIsCopiedFromOneObjectToAnother();
    void placeWithoutAPathIsTold();
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

void TestItemMenuPaths::singlePictureOffersNoAnimation()
{
    WindowFixture fixture;
    drawFirst(fixture);
    QMenu* menu = fixture.contextMenu(kMiddle);
    QVERIFY(menu);
    QVERIFY(!WindowFixture::find(*menu, QStringLiteral("Animated"))->isEnabled());
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
    drawFirst(fixture);
    drawSecond(fixture);
    QLinkedList<LmParamKeyframe> path;
    path << LmParamKeyframe(0, kMiddle) << LmParamKeyframe(2, kMiddle + QPoint(20, 60));
    fixture.stack().push(new CmdSetAnimation(kDistanceType, 1, 3, path));

    // Beside the label and away from the heads.
    const QPoint onFirst = kMiddle - QPoint(75, 0);
    QMenu* menu = fixture.contextMenu(onFirst);
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("Copy Path")));
    QCOMPARE(LmCvManipulator::theClipboardKeyframes.size(), 2);
    menu = fixture.contextMenu(QPoint(125, 200));
    QVERIFY(menu);
    QVERIFY(fixture.choose(*menu, QStringLiteral("Paste Path")));
    QVERIFY(fixture.distance(2)->theAnimated);
    QCOMPARE(fixture.distance(2)->getAnimationKeyframes(3), path);
    LmCvManipulator::theClipboardKeyframes.clear();
}

void TestItemMenuPaths::placeWithoutAPathIsTold()
{
    WindowFixture fixture;
    LmCvManipulator::theClipboardKeyframes.clear();
    drawFirst(fixture);
    QMenu* menu = fixture.contextMenu(kMiddle - QPoint(75, 0));
    QVERIFY(menu);
    QVERIFY(!WindowFixture::find(*menu, QStringLiteral("Paste Path"))->isEnabled());
    QVERIFY(fixture.choose(*menu, QStringLiteral("Copy Path")));
    QVERIFY(fixture.window().statusBar()->currentMessage().contains(QStringLiteral("no path")));
}

MEASURE_TEST_MAIN(TestItemMenuPaths)
#include "TestItemMenuPaths.moc"
