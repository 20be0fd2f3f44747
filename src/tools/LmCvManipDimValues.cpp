// What the tool "Dimension" measures, and how it names it on the label.
#include "LmCvManipDim.h"

#include "LmCvDimension.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "PointMath.h"

#include <cmath>

namespace {

double lengthInUnits(const QPoint& aStart, const QPoint& aEnd, double aStep)
{
    const double dx = double(aEnd.x()) - aStart.x();
    const double dy = double(aEnd.y()) - aStart.y();
    const double length = std::sqrt(dx * dx + dy * dy);
    return aStep != 0.0 ? length / aStep : length;
}

// 0 for a segment that isn't there.
double segmentLength(const Q3PointArray& aPoints, int aSegment, double aStep)
{
    if (aSegment >= aPoints.size() / 2)
        return 0.0;
    return lengthInUnits(aPoints[2 * aSegment], aPoints[2 * aSegment + 1], aStep);
}

// The mean of the first or of the second ends of all widths, in whole pixels cut toward zero.
QPoint meanEnd(const Q3PointArray& aPoints, int aEnd)
{
    const qint64 widths = aPoints.size() / 2 - 1;
    qint64 x = 0;
    qint64 y = 0;
    for (qint64 i = 1; i <= widths; ++i) {
        const QPoint& point = aPoints[2 * i + aEnd];
        x += point.x();
        y += point.y();
    }
    return QPoint(int(x / widths), int(y / widths));
}

// The ends are averaged, not the lengths, so that widths drawn in opposite directions cancel out.
double averageWidth(const Q3PointArray& aPoints, double aStep)
{
    if (aPoints.size() / 2 < 2)
        return 0.0;
    return lengthInUnits(meanEnd(aPoints, 0), meanEnd(aPoints, 1), aStep);
}

// The name's last digit, or an empty text.
QString lastDigit(const QString& aName)
{
    const QString last = aName.right(1);
    return !last.isEmpty() && last[0].isDigit() ? last : QString();
}

} // namespace

// Any name that isn't the average's means the segment of its last digit, whichever tool it comes from.
QVariant LmCvManipDim::measured(const QString& aName, const QString& aAverageName,
                                const Q3PointArray& aPoints, double aStep)
{
    if (aName.isEmpty() || aPoints.size() < 2)
        return QVariant();
    if (aName == aAverageName)
        return averageWidth(aPoints, aStep);
    bool isNumber = false;
    const int segment = aName.right(1).toInt(&isNumber);
    return isNumber ? QVariant(segmentLength(aPoints, segment, aStep)) : QVariant();
}

QVariant LmCvManipDim::getValue(const QString& aName, const LmCvObject* aObject, QString& aUnit)
{
    aUnit = QString();
    if (!aObject || aObject->rtti() != theObjectType)
        return QVariant();
    const double step = theKernelData->currentStep(aUnit);
    // The average goes by another name here than in the list of values, and "Height" ends in no digit: a
    // label that is set to either goes blank while its dimension is dragged.
    return measured(aName, tr("Avg Width"), static_cast<const LmCvDimension*>(aObject)->thePoints, step);
}

QLinkedList<QVariant> LmCvManipDim::getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                              QStringList& aUnits)
{
    QString unit;
    const double step = theKernelData->currentStep(unit);
    const LmParamKeyframeVector keyframes = aData->getKeyframesAt(theKernelData->theCurrentFrame);
    const auto points = keyframes[kPoints].getValue().value<Q3PointArray>();
    return valuesOf(aNames, aUnits, [&](const QString& aName, QString& aUnit) {
        aUnit = unit;
        if (aName == tr("Height") && points.size() >= 2)
            return QVariant(segmentLength(points, 0, step));
        return measured(aName, tr("Avg. Width"), points, step);
    });
}

// "W2: 12.50mm": the letter and the digit of what is measured stand before the number, and the item reads
// from them along which segment its label lies. The average has neither.
QString LmCvManipDim::shownText(const QString& aName, const QString& aValueText) const
{
    const QString digit = lastDigit(aName);
    const QString stem = aName.chopped(qMin(aName.size(), qsizetype(1)));
    const auto isNamed = [&](const QString& aWord) { return aName == aWord || stem == aWord; };
    QString letter;
    if (isNamed(tr("Height")))
        letter = QStringLiteral("H");
    else if (isNamed(tr("Width")))
        letter = QStringLiteral("W");
    else
        return aValueText;
    return letter + digit + QStringLiteral(": ") + aValueText;
}
