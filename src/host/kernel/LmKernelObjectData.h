#ifndef LMKERNELOBJECTDATA_H
#define LMKERNELOBJECTDATA_H

#include "LmParamKeyframeVector.h"
#include "ParamDescr.h"

#include <QLinkedList>
#include <QList>
#include <QVector>

/// The record of one object: for each parameter a default value and keyframes over frames, sorted by frame.
///
/// Between keyframes a kBlended parameter runs linearly, rounded, point by point where both lists have the
/// same length, and holds the earlier value where they don't. A kHeld one holds the earlier value. Before the
/// first keyframe and behind the last the nearest one holds. Without keyframes, and at frame -1, the default
/// counts.
class LmKernelObjectData
{
public:
    /// A record, not animated, with the values of the vector as defaults. aFlags is kept for the host and is
    /// 0.
    LmKernelObjectData(const LmParamKeyframeVector& aDefaults,
                       const QVector<ParamDescr::KeyframeType>& aTypes, int aFlags);

    int count() const { return int(theParams.size()); }
    ParamDescr::KeyframeType keyframeType(int aParam) const { return theParams[aParam].theType; }

    /// Each parameter's value at the frame. A record that isn't animated has the same values at every frame.
    LmParamKeyframeVector getKeyframesAt(long long aFrame) const;
    LmParamKeyframeVector getDefaultKeyframes() const;
    /// The value that the parameter's keyframes give at the frame, also in a record that isn't animated: it
    /// keeps its keyframes, and a path read from it is the path that they describe.
    LmParamKeyframe getKeyframe(unsigned int aParam, long long aFrame) const;
    /// The parameter's keyframes over frames, without the default.
    QLinkedList<LmParamKeyframe>& getAnimationKeyframes(int aParam);
    const QLinkedList<LmParamKeyframe>& getAnimationKeyframes(int aParam) const;
    /// The frames that hold a keyframe of any parameter, in ascending order, each once.
    QList<long long> getKeyframedFrames() const;

    /// Writes the vector's valid values at its frame, at once and without undo; kWhole ones always as
    /// defaults.
    void update(const LmParamKeyframeVector& aVector);

    /// The value that stands exactly at the frame (the default for -1 and for kWhole), invalid where none
    /// stands.
    QVariant storedValue(int aParam, long long aFrame) const;
    /// Stores a value exactly there; an invalid one takes the keyframe away, or the default.
    void storeValue(int aParam, long long aFrame, const QVariant& aValue);

    /// Swaps the parameter's keyframes for others, which must be in order.
    void exchangeKeyframes(int aParam, QLinkedList<LmParamKeyframe>& aKeyframes);
    /// The keyframes with a value at a frame from 0 on, sorted by frame; of several at one frame the last
    /// counts.
    static QLinkedList<LmParamKeyframe> inOrder(const QLinkedList<LmParamKeyframe>& aKeyframes);

    bool theAnimated = false;

private:
    struct Param
    {
        ParamDescr::KeyframeType theType = ParamDescr::kWhole;
        QVariant theDefault;
        QLinkedList<LmParamKeyframe> theKeyframes;
    };

    QVariant valueAt(const Param& aParam, long long aFrame) const;

    QList<Param> theParams;
};

#endif
