#include "Document.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "TestFont.h"
#include "TimelineView.h"
#include "TimelineWindow.h"

#include <QAction>
#include <QDockWidget>
#include <QScrollBar>
#include <QUndoStack>
#include <QtTest>

/// The ruler of the time line: position, zoom, and what the dock shows when.
class TestTimeline : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dockIsThereForSeveralFramesOnly();
    void hiddenDockStaysHiddenUntilTheNextFile();
    void pressOnTheRulerGoesToTheFrame();
    void positionFollowsThePullAlongTheRuler();
    void arrowKeysStepAndStopAtTheEnds();
    void wheelZoomsAboutThePointer();
    void zoomedLineFollowsThePosition();
    void viewIsAnimatedAsAStep();
    void animatedViewIsKeptInTheProject();
    void screenReaderIsToldPositionAndObject();
    void paintsInAllStates();
};

static QDockWidget* dock(WindowFixture& aFixture)
{
    return aFixture.window().findChild<QDockWidget*>(QStringLiteral("timelineDock"));
}

void TestTimeline::dockIsThereForSeveralFramesOnly()
{
    WindowFixture f;
    QVERIFY(dock(f) && !dock(f)->isVisible());
    QVERIFY(!dock(f)->toggleViewAction()->isEnabled());
    f.openPages(3);
    QVERIFY(dock(f)->isVisible());
    QVERIFY(f.window().openAtStart(f.picturePath()));
    QVERIFY(!dock(f)->isVisible());
}

void TestTimeline::hiddenDockStaysHiddenUntilTheNextFile()
{
    WindowFixture f;
    f.openPages(3);
    dock(f)->toggleViewAction()->trigger();
    QVERIFY(!dock(f)->isVisible());
    f.key(Qt::Key_PageDown);
    QCOMPARE(f.kernel().theCurrentFrame, 1U);
    QVERIFY(!dock(f)->isVisible());
    f.openPages(4);
    QVERIFY(dock(f)->isVisible());
    f.restart();
    QVERIFY(!dock(f)->isVisible());
}

void TestTimeline::pressOnTheRulerGoesToTheFrame()
{
    TimelineWindow f;
    f.clickLine(f.line().rulerPlace(7));
    QCOMPARE(f.kernel().theCurrentFrame, 7U);
    f.clickLine(f.line().rulerPlace(TimelineWindow::kPages - 1) + QPoint(100, 0));
    QCOMPARE(f.kernel().theCurrentFrame, unsigned(TimelineWindow::kPages - 1));
    f.clickLine(f.line().keyframePlace(3)); // below the ruler
    QCOMPARE(f.kernel().theCurrentFrame, unsigned(TimelineWindow::kPages - 1));
}

void TestTimeline::positionFollowsThePullAlongTheRuler()
{
    TimelineWindow f;
    QList<long long> shown;
    connect(&f.kernel(), &LmKSKernelData::signalFrameReadyStop, this,
            [&shown](Int64 aFrame) { shown.append(aFrame); });
    f.pull(f.line().rulerPlace(2), f.line().rulerPlace(6));
    f.kernel().disconnect(this);
    QCOMPARE(shown, (QList<long long>{2, 3, 4, 5, 6}));
}

void TestTimeline::arrowKeysStepAndStopAtTheEnds()
{
    TimelineWindow f;
    f.lineKey(Qt::Key_Left);
    QCOMPARE(f.kernel().theCurrentFrame, 0U);
    f.lineKey(Qt::Key_Right);
    f.lineKey(Qt::Key_Right);
    QCOMPARE(f.kernel().theCurrentFrame, 2U);
    f.lineKey(Qt::Key_End);
    f.lineKey(Qt::Key_Right);
    QCOMPARE(f.kernel().theCurrentFrame, unsigned(TimelineWindow::kPages - 1));
    f.lineKey(Qt::Key_Home);
    QCOMPARE(f.kernel().theCurrentFrame, 0U);
}

static void turnWheel(TimelineView& aLine, const QPoint& aPlace, int aNotches)
{
    QWheelEvent event(aPlace, aLine.viewport()->mapToGlobal(aPlace), QPoint(), QPoint(0, 120 * aNotches),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(aLine.viewport(), &event);
}

void TestTimeline::wheelZoomsAboutThePointer()
{
    WindowFixture f;
    f.openPages(300);
    auto& line = *f.window().findChild<TimelineView*>();
    QCOMPARE(line.horizontalScrollBar()->maximum(), 0);
    const QPoint place = line.rulerPlace(150);
    const int span = line.rulerPlace(160).x() - place.x();
    turnWheel(line, place, 5);
    QCOMPARE(line.rulerPlace(150), place);
    QVERIFY(line.rulerPlace(160).x() - place.x() > 2 * span);
    QVERIFY(line.horizontalScrollBar()->maximum() > 0);
    turnWheel(line, place, -20);
    QCOMPARE(line.rulerPlace(150), place);
    QCOMPARE(line.horizontalScrollBar()->maximum(), 0);
}

void TestTimeline::zoomedLineFollowsThePosition()
{
    WindowFixture f;
    f.openPages(300);
    auto& line = *f.window().findChild<TimelineView*>();
    turnWheel(line, line.rulerPlace(0), 8);
    QVERIFY(!line.viewport()->rect().contains(line.rulerPlace(299)));
    line.setFocus();
    QTest::keyClick(&line, Qt::Key_End);
    QVERIFY(line.viewport()->rect().contains(line.rulerPlace(299)));
    QVERIFY(!line.viewport()->rect().contains(line.rulerPlace(0)));
    line.horizontalScrollBar()->setValue(0);
    QVERIFY(line.viewport()->rect().contains(line.rulerPlace(0)));
}

void TestTimeline::viewIsAnimatedAsAStep()
{
    TimelineWindow f;
    auto* action = f.window().findChild<QAction*>(QStringLiteral("animate-view"));
    action->trigger();
    QVERIFY(LmCvManipulator::theCurrentViewAnimated);
    QCOMPARE(f.stack().undoText(), QStringLiteral("Animate the view"));
    f.stack().undo();
    QVERIFY(!LmCvManipulator::theCurrentViewAnimated);
    QVERIFY(!action->isChecked());
    f.stack().redo();
    QVERIFY(action->isChecked());
    f.stack().clear();
    QVERIFY(f.window().openAtStart(f.picturePath()));
    QVERIFY(!LmCvManipulator::theCurrentViewAnimated);
    QVERIFY(!action->isChecked());
}

void TestTimeline::animatedViewIsKeptInTheProject()
{
    TimelineWindow f;
    f.window().findChild<QAction*>(QStringLiteral("animate-view"))->trigger();
    QString error;
    const QString project = f.path(QStringLiteral("view.mtp"));
    QVERIFY2(f.bench().document().save(project, error), qPrintable(error));
    QVERIFY(f.window().openAtStart(f.picturePath()));
    QVERIFY(!LmCvManipulator::theCurrentViewAnimated);
    QVERIFY(f.window().openAtStart(project));
    QVERIFY(LmCvManipulator::theCurrentViewAnimated);
    f.stack().clear();
    QVERIFY(f.window().openAtStart(f.picturePath()));
}

void TestTimeline::screenReaderIsToldPositionAndObject()
{
    TimelineWindow f;
    f.drawMoving({3});
    QCOMPARE(f.line().accessibleName(), QStringLiteral("Time line"));
    QCOMPARE(f.line().accessibleDescription(), QStringLiteral("Frame 4 of 12. Distance 1: 2 keyframe(s)"));
}

void TestTimeline::paintsInAllStates()
{
    TimelineWindow f;
    const QImage empty = f.line().grab().toImage();
    f.drawMoving({5});
    const QImage fresh = f.line().grab().toImage();
    QVERIFY(fresh != empty);
    f.clickLine(f.line().keyframePlace(5));
    QVERIFY(f.line().grab().toImage() != fresh);
    const QImage selected = f.line().grab().toImage();
    f.goTo(2);
    QVERIFY(f.line().grab().toImage() != selected);
}

MEASURE_TEST_MAIN(TestTimeline)
#include "TestTimeline.moc"
