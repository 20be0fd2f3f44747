#include "RegionFixture.h"

#include "Q3PopupMenu.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QToolButton>
#include <QtTest>

void RegionFixture::pickPen()
{
    theTool.theToolButton->setChecked(true);
}

void RegionFixture::pickPencil()
{
    theTool.thePencilButton->setChecked(true);
}

void RegionFixture::pickPencil(bool aSmooth, bool aAutoShape)
{
    if (theTool.theSmooth != aSmooth)
        theTool.slotMenuItemActivated(0);
    if (theTool.theAutoShape != aAutoShape)
        theTool.slotMenuItemActivated(1);
    pickPencil();
}

QList<QPoint> RegionFixture::anchors(int aIdx) const
{
    const LmCvRegion* region = item(aIdx);
    QList<QPoint> anchors;
    for (int node = 0; node < region->nodeCount(); ++node)
        anchors.append(region->thePoints[3 * node + 1]);
    return anchors;
}

bool RegionFixture::recordIsItem(int aIdx) const
{
    const LmCvRegion* region = item(aIdx);
    const QPoint offset = pos(aIdx) - theKernel.origin();
    const QPolygon own = points(aIdx).translated(offset);
    return own == static_cast<const QPolygon&>(region->thePoints) && isClosed(aIdx) == region->theClosed &&
           stored(kType, aIdx, kStates).toByteArray() == LmCvManipRegion::SvToBa(region->theNodeStates);
}

void RegionFixture::clickAll(const QList<QPoint>& aCanvasPoints)
{
    for (const QPoint& point : aCanvasPoints)
        click(point);
}

void RegionFixture::stroke(const QList<QPoint>& aCanvasPoints)
{
    press(aCanvasPoints.first());
    for (const QPoint& point : aCanvasPoints)
        move(point);
    release(aCanvasPoints.last());
}

void RegionFixture::hover(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers)
{
    const QPoint pos = viewportPos(aCanvasPoint);
    QMouseEvent event(QEvent::MouseMove, pos, theEditor.viewport()->mapToGlobal(pos), Qt::NoButton,
                      Qt::NoButton, aModifiers);
    QApplication::sendEvent(theEditor.viewport(), &event);
}

void RegionFixture::rightClick(const QPoint& aCanvasPoint)
{
    const QPoint pos = viewportPos(aCanvasPoint);
    QTest::mousePress(theEditor.viewport(), Qt::RightButton, {}, pos);
    // The platform asks for a menu at a right press.
    QContextMenuEvent menu(QContextMenuEvent::Mouse, pos, theEditor.viewport()->mapToGlobal(pos));
    QApplication::sendEvent(theEditor.viewport(), &menu);
    QTest::mouseRelease(theEditor.viewport(), Qt::RightButton, {}, pos);
}
