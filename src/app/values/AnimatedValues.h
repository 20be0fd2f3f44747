#ifndef ANIMATEDVALUES_H
#define ANIMATEDVALUES_H

#include "ValueSeries.h"

#include <QList>
#include <QStringList>

class LmCvManipulator;
class LmKernelObjectData;

/// Values of one object.
struct ObjectValues
{
    int theType = 0;
    int theIdx = -1;
    QStringList theNames;

    bool operator==(const ObjectValues& aOther) const
    {
        return theType == aOther.theType && theIdx == aOther.theIdx && theNames == aOther.theNames;
    }
};

/// Which values can be had over time, and from what.
namespace AnimatedValues {

enum Source {
    kEveryFrame, // the record gives a value at every frame
    kKeyframes,  // the tool gives values at the keyframes only
    kPictures    // measured in the picture of each frame
};

/// All names of a tool: those at one frame first, then those that exist over time only.
QStringList names(LmCvManipulator& aTool);
Source source(LmCvManipulator& aTool, const QString& aName);
/// Also false for a key whose object or tool is gone.
bool isFromPictures(const ValueKey& aKey);
/// Whether the object follows the frames and has keyframes.
bool isAnimated(const LmKernelObjectData& aRecord);
/// The record of an animated object; null for any other.
const LmKernelObjectData* record(int aType, int aIdx);

/// The animated objects with all their values, in the order of the tools.
QList<ObjectValues> objects();
QList<ValueKey> keys(const QList<ObjectValues>& aObjects);
/// The same keys by their objects, in the order in which these come first.
QList<ObjectValues> grouped(const QList<ValueKey>& aKeys);
/// The value on the object's label, or its first value where there is none.
ValueKey labelled(int aType, int aIdx);
/// Such as "Distance 3".
QString objectText(const ValueKey& aKey);

} // namespace AnimatedValues

#endif
