#ifndef VALUESERIES_H
#define VALUESERIES_H

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

/// Names one value of one object.
struct ValueKey
{
    int theType = 0;
    int theIdx = -1;
    QString theName;

    bool operator==(const ValueKey& aOther) const
    {
        return theType == aOther.theType && theIdx == aOther.theIdx && theName == aOther.theName;
    }
};

inline size_t qHash(const ValueKey& aKey, size_t aSeed = 0)
{
    return qHashMulti(aSeed, aKey.theType, aKey.theIdx, aKey.theName);
}

/// A finite value at a frame.
struct ValueSample
{
    double theValue = 0.0;
    int theFrame = 0;
    bool theKeyframe = false; // the object has a keyframe there
    bool theJoined = false;   // no value is missing between the sample before and this one
};

/// A value over the frames, ascending. Frames without a value have no sample.
struct ValueSeries
{
    QString theUnit;
    std::vector<ValueSample> theSamples;
};

using ValueSeriesPtr = std::shared_ptr<const ValueSeries>;

#endif
