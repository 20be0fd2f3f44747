#ifndef KERNELFIXTURE_H
#define KERNELFIXTURE_H

#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"

#include <QRandomGenerator>
#include <QStringList>

class LmCvManipulator;

/// An object type of the tests with a parameter of every value type, registered while this object lives.
/// Everything that a test leaves behind in the kernel goes with it.
class KernelFixture
{
public:
    enum Param { kVis, kCol, kDispv, kPos, kPts, kNst, kMarks, kFont };
    static constexpr int kType = 9001;

    KernelFixture();
    ~KernelFixture();

    /// A stand-in for a tool: the kernel keeps the pointer and never looks behind it.
    static LmCvManipulator* tool(int aNumber);
    static LmKernelObjectDataDescr* makeDescriptor();

    /// A record with a default value of every parameter; the caller owns it.
    static LmKernelObjectData* makeRecord();
    /// A record of random values and keyframes, extremes among them; the caller owns it.
    static LmKernelObjectData* randomRecord(QRandomGenerator& aRandom);
    /// A vector at a frame with one value set.
    static LmParamKeyframeVector vectorWith(int aParam, const QVariant& aValue,
                                            long long aFrame = kDefaultFrame);

    /// Everything that a record holds, one line per value.
    static QStringList dump(const LmKernelObjectData* aData);
    /// All records and calibrations of the kernel.
    static QStringList dumpKernel();
};

#endif
