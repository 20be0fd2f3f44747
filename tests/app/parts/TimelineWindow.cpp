#include "TimelineWindow.h"

#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "Media.h"
#include "TimelineView.h"

#include <QAction>
#include <QtTest>

namespace {

constexpr int kDistance = 1102;
constexpr int kFirstMiddle = 200; // image x

} // namespace

TimelineWindow::TimelineWindow()
{
    openPages(kPages);
}

TimelineView& TimelineWindow::line()
{
    return *window().findChild<TimelineView*>();
}

void TimelineWindow::pull(const QPoint& aFrom, const QPoint& aTo, Qt::KeyboardModifiers aModifiers)
{
    constexpr int kMoves = 4;
    QWidget* viewport = line().viewport();
    QTest::mousePress(viewport, Qt::LeftButton, aModifiers, aFrom);
    for (int move = 1; move <= kMoves; ++move) {
        const QPoint place = aFrom + (aTo - aFrom) * move / kMoves;
        QMouseEvent event(QEvent::MouseMove, place, viewport->mapToGlobal(place), Qt::NoButton,
                          Qt::LeftButton, aModifiers);
        QApplication::sendEvent(viewport, &event);
    }
    QTest::mouseRelease(viewport, Qt::LeftButton, aModifiers, aTo);
}

void TimelineWindow::clickLine(const QPoint& aPlace, Qt::KeyboardModifiers aModifiers)
{
    QTest::mouseClick(line().viewport(), Qt::LeftButton, aModifiers, aPlace);
}

void TimelineWindow::lineKey(Qt::Key aKey, Qt::KeyboardModifiers aModifiers)
{
    line().setFocus();
    QTest::keyClick(&line(), aKey, aModifiers);
}

void TimelineWindow::goTo(int aFrame)
{
    QString error;
    if (!bench().media().showFrame(aFrame, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
}

void TimelineWindow::drawMoving(const QList<int>& aFrames)
{
    draw(QPoint(kFirstMiddle - 100, 100), QPoint(kFirstMiddle + 100, 100));
    window().findChild<QAction*>(QStringLiteral("animate-object"))->trigger();
    for (const int frame : aFrames) {
        goTo(frame);
        const QPoint middle(middleAt(frame), 100);
        drag(middle, QPoint(kFirstMiddle + frame, 100));
    }
}

int TimelineWindow::middleAt(int aFrame)
{
    const LmKernelObjectDataDescr* descriptor = kernel().getDataDescriptor(kDistance);
    return descriptor->getValue(distance(1)->getKeyframesAt(aFrame), QStringLiteral("pos")).toPoint().x();
}

QList<long long> TimelineWindow::keyframes(int aIdx)
{
    return distance(aIdx)->getKeyframedFrames();
}
