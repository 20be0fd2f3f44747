#ifndef Q3VALUEVECTOR_H
#define Q3VALUEVECTOR_H

#include <QList>

/// A growable array of values: today's QList under the name that the tools use.
template <typename T>
class Q3ValueVector : public QList<T>
{
public:
    using QList<T>::QList;
    Q3ValueVector() = default;
    Q3ValueVector(const QList<T>& aList) : QList<T>(aList) {}
};

#endif
