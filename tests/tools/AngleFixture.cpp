#include "AngleFixture.h"

#include <QApplication>
#include <QMouseEvent>

void AngleFixture::hover(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers)
{
    const QPoint pos = viewportPos(aCanvasPoint);
    QMouseEvent event(QEvent::MouseMove, pos, theEditor.viewport()->mapToGlobal(pos), Qt::NoButton,
                      Qt::NoButton, aModifiers);
    QApplication::sendEvent(theEditor.viewport(), &event);
}

void AngleFixture::draw(const QPoint& aVertex, const QPoint& aEnd1, const QPoint& aEnd2)
{
    startDrawing(aVertex, aEnd2);
    hover(aEnd1);
    click(aEnd1);
}

void AngleFixture::setKeyframe(int aIdx, long long aFrame, const QPoint& aPos, const QPoint& aEp1,
                               const QPoint& aEp2)
{
    record(aIdx)->storeValue(kPos, aFrame, aPos);
    record(aIdx)->storeValue(kEp1, aFrame, aEp1);
    record(aIdx)->storeValue(kEp2, aFrame, aEp2);
}
