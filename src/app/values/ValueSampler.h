#ifndef VALUESAMPLER_H
#define VALUESAMPLER_H

#include "LmParamKeyframeVector.h"
#include "ParamDescr.h"
#include "ValueSeries.h"

#include <QStringList>
#include <QVector>

class LmCvManipulator;
class LmImage;
class LmKernelObjectData;

/// Measures values of one object at one frame after the other. It works on a copy of the object's keyframes,
/// so the object may change or go meanwhile.
class ValueSampler
{
public:
    ValueSampler(LmCvManipulator& aTool, const LmKernelObjectData& aRecord, const QStringList& aNames);
    ~ValueSampler();
    ValueSampler(ValueSampler&&) noexcept;
    ValueSampler& operator=(ValueSampler&&) = delete;

    /// Frames come in ascending order; one that is left out is a gap. Without an image the one on the screen
    /// counts.
    void sample(int aFrame, LmImage* aImage = nullptr);
    const QStringList& names() const { return theNames; }
    /// One series for each name; the sampler has none afterwards.
    std::vector<ValueSeries> take() { return std::move(theSeries); }

    /// A value that the tool gives at the keyframes only.
    static ValueSeries ofKeyframes(LmCvManipulator& aTool, int aIdx, const QString& aName);

private:
    const LmKernelObjectData& stretchAt(int aFrame);
    void add(int aSeries, int aFrame, const QVariant& aValue, const QString& aUnit, bool aKeyframe);

    LmCvManipulator& theTool;
    QStringList theNames;
    LmParamKeyframeVector theDefaults;
    QVector<ParamDescr::KeyframeType> theTypes;
    std::vector<std::vector<LmParamKeyframe>> theKeyframes; // of each parameter, ascending
    QList<long long> theKeyframed;                          // frames with a keyframe, ascending
    std::vector<ValueSeries> theSeries;
    std::unique_ptr<LmKernelObjectData> theStretch;
    int theStretchEnd = -1; // first frame behind it
};

#endif
