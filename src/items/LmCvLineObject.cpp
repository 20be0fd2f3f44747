#include "LmCvLineObject.h"

#include "SegmentGeometry.h"
#include "TurnedLabel.h"

#include <QMouseEvent>

LmCvLineObject::LmCvLineObject(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel,
                               Q3CanvasView* aView)
    : LmCvObject(aTool, aCanvas, aLabel, aView), theFont(QStringLiteral("Lucida Grande"), kDefaultFntSize),
      theSelSize(kDefaultSelSize)
{
}

LmCvLineObject::~LmCvLineObject() = default;

bool LmCvLineObject::linesIntersect(QPoint a, QPoint b, QPoint c, QPoint d, QPoint& aOut)
{
    return SegmentGeometry::intersect(a, b, c, d, aOut);
}

LmCvObject::ScaledSizes LmCvLineObject::takeScale(const QMatrix& aMatrix)
{
    const ScaledSizes sizes = scaleTo(aMatrix);
    theFont.setPointSizeF(sizes.theFontSize);
    theSelSize = sizes.theSelSize;
    return sizes;
}

void LmCvLineObject::startEdit(QMouseEvent* aEvent)
{
    theNodesChanged = false;
    theEditDone = false;
    aEvent->accept();
}

void LmCvLineObject::finishEdit(QMouseEvent* aEvent)
{
    theEditDone = true;
    aEvent->accept();
}

TurnedLabel LmCvLineObject::label() const
{
    return {theLabelRect, labelText(), theFont, theThinPen, QBrush(linePen().color()), theTextPen};
}

QBrush LmCvLineObject::headBrush() const
{
    return theActive ? QBrush(linePen().color()) : QBrush(Qt::white);
}
