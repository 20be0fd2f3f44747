#ifndef Q3VALUELIST_H
#define Q3VALUELIST_H

#include <QList>

/// A list of values: today's QList under the name that the tools use.
template <typename T>
class Q3ValueList : public QList<T>
{
public:
    using QList<T>::QList;
    Q3ValueList() = default;
    Q3ValueList(const QList<T>& aList) : QList<T>(aList) {}
};

#endif
