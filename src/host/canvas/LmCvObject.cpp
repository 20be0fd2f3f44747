#include "LmCvObject.h"

namespace {

constexpr double kPenWidth = 2.0;     // screen pixels
constexpr double kArrowLength = 10.0; // canvas pixels at zoom 1 and above

QPen linePenOfWidth(double aWidth)
{
    return QPen(QBrush(QColor(Qt::black), Qt::SolidPattern), aWidth, Qt::SolidLine, Qt::SquareCap,
                Qt::BevelJoin);
}

} // namespace

const int LmCvObject::kDefaultFntSize = 10;
const int LmCvObject::kDefaultSelSize = 8;

LmCvObject::LmCvObject(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView)
    : Q3CanvasPolygonalItem(aCanvas), theLabel(aLabel), theView(aView), thePen(linePenOfWidth(kPenWidth)),
      theThinPen(linePenOfWidth(0.0)), theTextPen(QColor(Qt::white)), theManipulator(aTool)
{
}

LmCvObject::~LmCvObject() = default;

void LmCvObject::setSelected(bool aOn)
{
    if (isSelected() == aOn)
        return;
    invalidate();
    Q3CanvasPolygonalItem::setSelected(aOn);
    update();
}

void LmCvObject::setActive(bool aOn)
{
    if (theActive == aOn)
        return;
    invalidate();
    theActive = aOn;
    Q3CanvasPolygonalItem::setActive(aOn);
    update();
}

void LmCvObject::setPen(QPen aPen)
{
    Q3CanvasPolygonalItem::setPen(aPen);
}

void LmCvObject::setColor(const QColor& aColor)
{
    if (thePen.color() == aColor && theThinPen.color() == aColor)
        return;
    invalidate();
    thePen.setColor(aColor);
    theThinPen.setColor(aColor);
    update();
}

QColor LmCvObject::getColor()
{
    return thePen.color();
}

void LmCvObject::setPenStyle(Qt::PenStyle aStyle)
{
    if (thePenStyle == aStyle)
        return;
    invalidate();
    thePenStyle = aStyle;
    thePen.setStyle(aStyle);
    theThinPen.setStyle(aStyle);
    update();
}

bool LmCvObject::isActive()
{
    return theActive;
}

bool LmCvObject::isLocked()
{
    return theLocked;
}

void LmCvObject::setLocked(bool aOn)
{
    theLocked = aOn;
}

QLinkedList<int> LmCvObject::getSelectedNodes()
{
    return {};
}

void LmCvObject::setStep(double aStep, const QString& aUnit)
{
    invalidate();
    theStep = aStep;
    theUnit = aUnit;
    update();
}

void LmCvObject::selectNodes(const QPoint&, const QSize&) {}

void LmCvObject::updateLabel() {}

void LmCvObject::setDisplayValue(const QString& aText)
{
    theDisplayValue = aText;
    updateLabel();
}

QString LmCvObject::labelText() const
{
    QString text = QLatin1Char(' ') + theLabel + QLatin1Char(' ');
    if (!theDisplayValue.isEmpty())
        text += QLatin1Char('<') + theDisplayValue + QStringLiteral("> ");
    return text;
}

LmCvObject::ScaledSizes LmCvObject::scaleTo(const QMatrix& aMatrix)
{
    // A mirrored or empty matrix is no zoom; the sizes of zoom 1 keep the item usable.
    const double zoom = aMatrix.m11() > 0.0 ? aMatrix.m11() : 1.0;
    thePen.setWidthF(kPenWidth / zoom);
    if (zoom >= 1.0)
        return {1.0, double(kDefaultFntSize), kDefaultSelSize, kArrowLength};
    return {zoom, kDefaultFntSize / zoom, int(kDefaultSelSize / zoom), kArrowLength / zoom};
}
