#ifndef Q3MEMARRAY_H
#define Q3MEMARRAY_H

#include <QList>

/// An array of plain values: today's QList under the name that the tools use.
template <typename T>
class Q3MemArray : public QList<T>
{
public:
    using QList<T>::QList;
    Q3MemArray() = default;
    Q3MemArray(const QList<T>& aList) : QList<T>(aList) {}
};

#endif
