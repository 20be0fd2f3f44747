#include "CounterLook.h"

#include "LmCvArrow.h"
#include "PointMath.h"

#include <algorithm>

namespace {

constexpr QLatin1String kBetween(" #");

} // namespace

QString CounterLook::markText(const QString& aName, qsizetype aNumber)
{
    return aName + kBetween + QString::number(aNumber);
}

bool CounterLook::isMarkText(const QString& aText, const QString& aName, qsizetype aNumber)
{
    const QChar* const begin = aText.constData();
    const QChar* end = begin + aText.size();
    for (qsizetype rest = aNumber; rest > 0; rest /= 10)
        if (end == begin || (--end)->unicode() != '0' + rest % 10)
            return false;
    const QStringView before(begin, end);
    return before.size() == aName.size() + kBetween.size() && before.startsWith(aName) &&
           before.endsWith(kBetween);
}

QPoint CounterLook::anchor(qsizetype aPos) const
{
    return PointMath::difference(thePoints.at(2 * aPos), theOrigin);
}

QPoint CounterLook::tip(qsizetype aPos) const
{
    return PointMath::difference(thePoints.at(2 * aPos + 1), theOrigin);
}

bool CounterLook::isLike(const CounterLook& aOther) const
{
    return theOrigin == aOther.theOrigin && theName == aOther.theName && theColor == aOther.theColor &&
           theFont == aOther.theFont && theStep == aOther.theStep && theUnit == aOther.theUnit &&
           theVisible == aOther.theVisible;
}

void KnownLooks::notice()
{
    if (theChangeCount != LmCvArrow::changeCount())
        forgetAll();
    accept();
}

void KnownLooks::accept()
{
    theChangeCount = LmCvArrow::changeCount();
}

void KnownLooks::forgetFrom(int aIdx, qsizetype aPos)
{
    const auto known = theCounters.find(aIdx);
    if (known == theCounters.end() || known->theLook.markCount() < aPos)
        return;
    known->theLook.thePoints.resize(2 * aPos);
    known->theNewCount = std::min(known->theNewCount, aPos);
}

void KnownLooks::learn(int aIdx, const CounterLook& aLook)
{
    theCounters.insert(aIdx, {aLook, aLook.markCount()});
    accept();
}

qsizetype KnownLooks::keptCount(int aIdx, const CounterLook& aLook) const
{
    const auto known = theCounters.constFind(aIdx);
    if (known == theCounters.constEnd() || !known->theLook.isLike(aLook))
        return 0;
    const QPolygon& before = known->theLook.thePoints;
    const auto end = before.cbegin() + std::min(2 * known->theNewCount, aLook.thePoints.size());
    return (std::mismatch(before.cbegin(), end, aLook.thePoints.cbegin()).first - before.cbegin()) / 2;
}

void KnownLooks::learnPoints(int aIdx, const QPolygon& aPoints, const QString& aName, const QPoint& aOrigin)
{
    CounterLook& look = theCounters[aIdx].theLook;
    look.thePoints = aPoints;
    look.theName = aName;
    look.theOrigin = aOrigin;
    accept();
}

QPolygon KnownLooks::knownPoints(int aIdx, const QString& aName, const QPoint& aOrigin) const
{
    const auto known = theCounters.constFind(aIdx);
    if (known == theCounters.constEnd() || known->theLook.theName != aName ||
        known->theLook.theOrigin != aOrigin)
        return QPolygon();
    QPolygon points = known->theLook.thePoints;
    points.resize(2 * known->theLook.markCount());
    return points;
}
