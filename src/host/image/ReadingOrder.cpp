#include "ReadingOrder.h"

#include <algorithm>
#include <utility>

namespace {

struct Placed
{
    QRect theBox;
    PixelOutline theOutline;
    bool theTaken = false;
};

bool isHigher(const Placed& aOne, const Placed& aOther)
{
    return std::make_pair(aOne.theBox.top(), aOne.theOutline.front().x()) <
           std::make_pair(aOther.theBox.top(), aOther.theOutline.front().x());
}

bool isLefter(const Placed* aOne, const Placed* aOther)
{
    return std::make_pair(aOne->theBox.left(), aOne->theBox.top()) <
           std::make_pair(aOther->theBox.left(), aOther->theBox.top());
}

int usualHeight(const std::vector<Placed>& aObjects)
{
    std::vector<int> heights;
    heights.reserve(aObjects.size());
    for (const Placed& object : aObjects)
        heights.push_back(object.theBox.height());
    const auto middle = heights.begin() + std::ptrdiff_t(heights.size() / 2);
    std::nth_element(heights.begin(), middle, heights.end());
    return *middle;
}

/// Takes the row of the highest object that is left.
std::vector<Placed*> takeRow(std::vector<Placed>& aObjects, std::size_t aFirst, int aHeight)
{
    const int bottom = aObjects[aFirst].theBox.top() + aHeight;
    std::vector<Placed*> row;
    for (std::size_t i = aFirst; i < aObjects.size() && aObjects[i].theBox.top() <= bottom; ++i) {
        Placed& object = aObjects[i];
        if (object.theTaken || (i != aFirst && object.theBox.center().y() > bottom))
            continue;
        object.theTaken = true;
        row.push_back(&object);
    }
    std::stable_sort(row.begin(), row.end(), isLefter);
    return row;
}

} // namespace

void ReadingOrder::sort(std::vector<PixelOutline>& aOutlines)
{
    if (aOutlines.empty())
        return;
    std::vector<Placed> objects;
    objects.reserve(aOutlines.size());
    for (PixelOutline& outline : aOutlines)
        objects.push_back({PixelOutlines::boundingRect(outline), std::move(outline)});
    std::sort(objects.begin(), objects.end(), isHigher);
    const int height = usualHeight(objects);
    aOutlines.clear();
    for (std::size_t first = 0; first < objects.size(); ++first) {
        if (objects[first].theTaken)
            continue;
        for (Placed* object : takeRow(objects, first, height))
            aOutlines.push_back(std::move(object->theOutline));
    }
}
