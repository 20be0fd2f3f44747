#include "RowIndex.h"

#include <algorithm>

int RowIndex::find(const QString& aKey) const
{
    const auto [begin, end] = theKeys.equal_range(aKey);
    if (begin == end)
        return -1;
    const auto row = std::lower_bound(theSerials.begin(), theSerials.end(), *std::min_element(begin, end));
    return int(row - theSerials.begin());
}

void RowIndex::append(const QString& aKey)
{
    theSerials.push_back(theNext);
    theKeys.insert(aKey, theNext++);
}

void RowIndex::remove(int aRow, const QString& aKey)
{
    const auto place = theSerials.begin() + aRow;
    theKeys.remove(aKey, *place);
    theSerials.erase(place);
}
