#include "LmValueChange.h"

#include <QByteArray>
#include <QPolygon>

#include <algorithm>

namespace {

/// A value of an own buffer without spare room, since a change can live as long as the undo stack.
QPolygon stretch(const QPolygon& aList, qsizetype aFrom, qsizetype aTo)
{
    return QPolygon(aList.sliced(aFrom, aTo - aFrom));
}

QByteArray stretch(const QByteArray& aList, qsizetype aFrom, qsizetype aTo)
{
    return aList.sliced(aFrom, aTo - aFrom);
}

/// The list with the stretch aOut, which begins at aFrom, exchanged for aIn. A list that has been rewritten
/// behind the undo stack's back may be shorter than the stretch expects; it is then exchanged as far as it
/// goes.
template <typename List>
QVariant withStretch(const List& aList, qsizetype aFrom, const List& aOut, const List& aIn)
{
    const qsizetype from = std::min(aFrom, aList.size());
    const qsizetype behind = std::min(from + aOut.size(), aList.size());
    List result;
    result.reserve(aList.size() - (behind - from) + aIn.size());
    result.append(aList.first(from));
    result.append(aIn);
    result.append(aList.sliced(behind));
    return QVariant::fromValue<List>(result);
}

qsizetype listSize(const QVariant& aValue)
{
    if (aValue.metaType() == QMetaType::fromType<QPolygon>())
        return aValue.value<QPolygon>().size() * qsizetype(sizeof(QPoint));
    return aValue.metaType() == QMetaType::fromType<QByteArray>() ? aValue.toByteArray().size() : 0;
}

} // namespace

LmValueChange::LmValueChange(const QVariant& aBefore, const QVariant& aAfter) : theIsEmpty(aBefore == aAfter)
{
    if (theIsEmpty)
        return;
    const bool sameType = aBefore.metaType() == aAfter.metaType();
    if (sameType && aBefore.metaType() == QMetaType::fromType<QPolygon>()) {
        theKind = kPoints;
        keepStretches(aBefore.value<QPolygon>(), aAfter.value<QPolygon>());
    } else if (sameType && aBefore.metaType() == QMetaType::fromType<QByteArray>()) {
        theKind = kBytes;
        keepStretches(aBefore.toByteArray(), aAfter.toByteArray());
    } else {
        theBefore = aBefore;
        theAfter = aAfter;
    }
}

template <typename List>
void LmValueChange::keepStretches(const List& aBefore, const List& aAfter)
{
    const qsizetype shorter = std::min(aBefore.size(), aAfter.size());
    const auto firstOther = std::mismatch(aBefore.cbegin(), aBefore.cbegin() + shorter, aAfter.cbegin());
    theFrom = firstOther.first - aBefore.cbegin();
    const auto lastOther =
        std::mismatch(aBefore.crbegin(), aBefore.crbegin() + (shorter - theFrom), aAfter.crbegin());
    const qsizetype sameBehind = lastOther.first - aBefore.crbegin();
    theBefore = QVariant::fromValue<List>(stretch(aBefore, theFrom, aBefore.size() - sameBehind));
    theAfter = QVariant::fromValue<List>(stretch(aAfter, theFrom, aAfter.size() - sameBehind));
}

QVariant LmValueChange::exchanged(const QVariant& aValue, const QVariant& aOut, const QVariant& aIn) const
{
    if (theIsEmpty)
        return aValue;
    switch (theKind) {
    case kPoints:
        return withStretch(aValue.value<QPolygon>(), theFrom, aOut.value<QPolygon>(), aIn.value<QPolygon>());
    case kBytes:
        return withStretch(aValue.toByteArray(), theFrom, aOut.toByteArray(), aIn.toByteArray());
    case kValues:
        break;
    }
    return aIn;
}

QVariant LmValueChange::forward(const QVariant& aBefore) const
{
    return exchanged(aBefore, theBefore, theAfter);
}

QVariant LmValueChange::backward(const QVariant& aAfter) const
{
    return exchanged(aAfter, theAfter, theBefore);
}

qsizetype LmValueChange::storedSize() const
{
    return listSize(theBefore) + listSize(theAfter);
}
