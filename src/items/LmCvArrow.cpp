#include "LmCvArrow.h"

#include "ArrowHead.h"
#include "PointMath.h"
#include "TextSizes.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignBottom;
constexpr int kFontRaise = 2;  // points above those of other labels, since there is no box behind the text
constexpr int kSideGap = 2;    // pixels between the label's side and the arrow
constexpr int kEmptyWidth = 4; // blanks

// A font in pixels has no points of its own; without a size there is nothing to be seen.
int pointSizeOf(const QFont& aFont)
{
    const int size = aFont.pointSize() > 0 ? aFont.pointSize() : QFontInfo(aFont).pointSize();
    return std::max(size, 1);
}

} // namespace

quint64 LmCvArrow::theChangeCount = 0;

LmCvArrow::LmCvArrow(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView)
    : LmCvObject(aTool, aCanvas, aLabel, aView),
      theFont(QStringLiteral("Lucida Grande"), kDefaultFntSize + kFontRaise),
      thePointSize(theFont.pointSize()), theSelSize(kDefaultSelSize)
{
}

LmCvArrow::~LmCvArrow() = default;

void LmCvArrow::moveBy(double aDx, double aDy)
{
    ++theChangeCount;
    LmCvObject::moveBy(aDx, aDy);
}

void LmCvArrow::setVisible(bool aOn)
{
    ++theChangeCount;
    LmCvObject::setVisible(aOn);
}

void LmCvArrow::setColor(const QColor& aColor)
{
    ++theChangeCount;
    LmCvObject::setColor(aColor);
}

void LmCvArrow::setStep(double aStep, const QString& aUnit)
{
    ++theChangeCount;
    LmCvObject::setStep(aStep, aUnit);
}

void LmCvArrow::setStartPoint(const QPoint& aPoint)
{
    invalidate();
    const QPoint bottom = PointMath::nearby(aPoint);
    theTextRect.moveLeft(bottom.x() - theTextRect.width() / 2);
    theTextRect.moveBottom(bottom.y());
    update();
    move(aPoint.x(), aPoint.y());
    setEndPoint(theEndPoint);
}

void LmCvArrow::setEndPoint(const QPoint& aPoint)
{
    invalidate();
    theEndPoint = aPoint;
    fitArrow();
    update();
}

/// Tail and head for the present label and tip.
void LmCvArrow::fitArrow()
{
    ++theChangeCount;
    theTailPoint = tailFor(theEndPoint);
    theFittedTip = theEndPoint;
    theFittedLength = theHeadLength;
    const double dx = double(theEndPoint.x()) - theTailPoint.x();
    const double dy = double(theEndPoint.y()) - theTailPoint.y();
    theArrowLength = std::sqrt(dx * dx + dy * dy);
    if (theArrowLength == 0.0) {
        theBarb1 = theBarb2 = QPoint(0, 0);
        return;
    }
    const double k = theHeadLength / theArrowLength;
    const ArrowHead head(dx * k, dy * k);
    theBarb1 = head.theWing1;
    theBarb2 = head.theWing2;
}

bool LmCvArrow::isBesideLabel(const QPoint& aPoint) const
{
    return aPoint.y() >= theTextRect.top() && aPoint.y() < theTextRect.bottom();
}

QPoint LmCvArrow::tailFor(const QPoint& aTip) const
{
    if (aTip.y() < theTextRect.top())
        return QPoint(PointMath::cut(x()), theTextRect.top());
    const int halfHeight = (theTextRect.bottom() - theTextRect.top() + 1) / 2;
    const int middle = PointMath::cut(y() - halfHeight);
    if (isBesideLabel(aTip) && aTip.x() > theTextRect.right())
        return QPoint(theTextRect.right() + kSideGap, middle);
    if (isBesideLabel(aTip) && aTip.x() < theTextRect.left())
        return QPoint(theTextRect.left() - kSideGap, middle);
    return PointMath::cut(x(), y());
}

void LmCvArrow::setText(const QString& aText)
{
    theText = aText.isEmpty() ? QString(kEmptyWidth, QLatin1Char(' ')) : aText;
    fitLabel();
}

/// A label for the present text and font, and the arrow to it.
void LmCvArrow::fitLabel()
{
    ++theChangeCount;
    if (!theView)
        return;
    const QPoint corner = theTextRect.bottomLeft();
    theTextRect.setSize(TextSizes::getInstance().sizeOf(theText, theFont));
    theTextRect.moveBottomLeft(corner);
    // Another number mostly leaves the arrow as it is, which matters when ten thousand marks are renumbered.
    if (theTailPoint != tailFor(theEndPoint) || theFittedTip != theEndPoint ||
        theFittedLength != theHeadLength)
        fitArrow();
    update(); // repaints where the label was, too
}

void LmCvArrow::setFont(const QFont& aFont)
{
    const double zoom = theFont.pointSizeF() / thePointSize;
    thePointSize = pointSizeOf(aFont);
    theFont = aFont;
    theFont.setPointSizeF(thePointSize * zoom);
    setText(theText);
}

void LmCvArrow::adjustScale(const QMatrix& aMatrix)
{
    invalidate();
    const ScaledSizes sizes = scaleTo(aMatrix);
    theHeadLength = sizes.theArrowLength;
    theSelSize = sizes.theSelSize;
    theFont.setPointSizeF(thePointSize / sizes.theZoom);
    update();
    setText(theText);
}

void LmCvArrow::drawShape(QPainter& aPainter)
{
    aPainter.save();
    aPainter.setFont(theFont);
    aPainter.setPen(linePen());
    if (theParts & kShaft) {
        const QLine shaft(theEndPoint, theTailPoint);
        aPainter.drawLines(&shaft, 1);
        aPainter.setBrush(theActive ? QBrush(linePen().color()) : QBrush(Qt::white));
        aPainter.setPen(theThinPen);
        ArrowHead toTip;
        toTip.theWing1 = theBarb1;
        toTip.theWing2 = theBarb2;
        toTip.turnedRound().draw(aPainter, theEndPoint);
    }
    if (theParts & kText)
        aPainter.drawText(theTextRect, kTextFlags, theText);
    aPainter.restore();
}

Q3PointArray LmCvArrow::areaPoints() const
{
    const QPoint topLeft = theTextRect.topLeft();
    const QPoint topRight = theTextRect.topRight();
    const QPoint bottomLeft = theTextRect.bottomLeft();
    const QPoint bottomRight = theTextRect.bottomRight();
    Q3PointArray corners;
    corners.reserve(7);
    if (theTextRect.contains(theEndPoint)) {
        corners << topLeft << topRight << bottomLeft << bottomRight;
        return corners;
    }
    const QPoint& tip = theEndPoint;
    const QPoint a = PointMath::sum(tip, QPoint(theBarb1.y(), -theBarb1.x()));
    const QPoint c = PointMath::sum(tip, QPoint(-theBarb2.y(), theBarb2.x()));
    if (tip.y() < theTextRect.top())
        corners << topLeft << a << tip << c << topRight << bottomRight << bottomLeft;
    else if (isBesideLabel(tip) && tip.x() > theTextRect.right())
        corners << topLeft << topRight << a << tip << c << bottomRight << bottomLeft;
    else if (isBesideLabel(tip) && tip.x() < theTextRect.left())
        corners << topLeft << topRight << bottomRight << bottomLeft << a << tip << c;
    else
        corners << topLeft << topRight << bottomRight << a << tip << c << bottomLeft;
    return corners;
}

/// What the area leaves out is repainted as well: the head of an arrow that is shorter than it, and a tail on
/// the anchor of a label whose text has become much shorter.
QRect LmCvArrow::boundingRect() const
{
    QRect bounds = LmCvObject::boundingRect();
    for (const QPoint& point : {theTailPoint, PointMath::difference(theEndPoint, theBarb1),
                                PointMath::difference(theEndPoint, theBarb2)}) {
        const QPoint reached = PointMath::nearby(point);
        bounds |= QRect(reached, reached);
    }
    return bounds;
}
