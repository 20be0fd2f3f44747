#ifndef LMVALUECHANGE_H
#define LMVALUECHANGE_H

#include <QVariant>

/// The step from one value to another, in both directions. Point lists and byte arrays keep only the stretch
/// in which they differ, so that a thousand small changes of one long list cost no thousand copies of it.
class LmValueChange
{
public:
    LmValueChange(const QVariant& aBefore, const QVariant& aAfter);

    /// The value after the step, given the one before it; and the other way round.
    QVariant forward(const QVariant& aBefore) const;
    QVariant backward(const QVariant& aAfter) const;
    bool isEmpty() const { return theIsEmpty; }
    /// Bytes of points and byte arrays that the step keeps.
    qsizetype storedSize() const;

private:
    enum Kind {
        kValues, // the whole values
        kPoints, // the stretches of two point lists
        kBytes   // the stretches of two byte arrays
    };

    template <typename List>
    void keepStretches(const List& aBefore, const List& aAfter);
    QVariant exchanged(const QVariant& aValue, const QVariant& aOut, const QVariant& aIn) const;

    Kind theKind = kValues;
    bool theIsEmpty = false;
    QVariant theBefore;
    QVariant theAfter;
    qsizetype theFrom = 0; // where the stretches begin
};

#endif
