#ifndef LMVALUECHANGE_H
#define LMVALUECHANGE_H

#include <QPolygon>
#include <QVariant>

/// The step from one value to another, in both directions. Point lists keep only the stretch in which they differ, so
/// that a thousand small changes of one long list cost no thousand copies of it.
class LmValueChange
{
public:
    LmValueChange(const QVariant& aBefore, const QVariant& aAfter);

    /// The value after the step, given the one before it; and the other way round.
    QVariant forward(const QVariant& aBefore) const;
    QVariant backward(const QVariant& aAfter) const;
    bool isEmpty() const;

private:
    static QPolygon replaced(const QPolygon& aList, qsizetype aFrom, qsizetype aCount, const QPolygon& aBy);

    bool theIsDifference = false; // both values are point lists
    QVariant theBefore;           // the whole values otherwise
    QVariant theAfter;
    qsizetype theFrom = 0; // first point that differs
    QPolygon theOldPoints; // the stretch before
    QPolygon theNewPoints; // the stretch after
};

#endif
