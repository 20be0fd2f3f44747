#ifndef LMBEZIERPOINT_H
#define LMBEZIERPOINT_H

#include "Q3PointArray.h"

/// One node of an outline: always three points, the left control (towards the previous node), the anchor (on
/// the curve) and the right control (towards the next node).
class LmBezierPoint : public Q3PointArray
{
public:
    /// How the handle that isn't dragged follows the other. The numbers stand in saved records.
    enum Synchro : int {
        kSynchroNone = 0,      // stays
        kSynchroDirection = 1, // keeps its length, points away from the dragged one
        kSynchroMirror = 2     // is the dragged one's reflection
    };
    enum Point { kLeftCtrl = 0, kAnchor = 1, kRightCtrl = 2 };
    static constexpr int kPointCount = 3;

    /// Three points at (0, 0).
    LmBezierPoint(bool aValid, bool aRelative, Synchro aSynchro);
    /// Takes the array as it stands.
    explicit LmBezierPoint(const Q3PointArray& aPoints);

    /// Turns the controls into offsets from the anchor or back into absolute points; nothing when they are so
    /// already.
    void setRelativeHandles(bool aRelative);

    Synchro theSynchro = kSynchroNone;
    bool theValid = false; // filled from a node
    bool theRelativeHandles = false;
};

#endif
