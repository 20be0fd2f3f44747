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

LmCvRegion* RegionFixture::item(int aIdx) const
{
    LmCvObject* found = theTool.theCvObjects.value(aIdx);
    if (!found)
        qFatal("there is no region %d on the canvas", aIdx);
    return static_cast<LmCvRegion*>(found);
}

LmKernelObjectData* RegionFixture::record(int aIdx) const
{
    LmKernelObjectData* found = theKernel.getObject(kType, aIdx);
    if (!found)
        qFatal("there is no record of region %d", aIdx);
    return found;
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
