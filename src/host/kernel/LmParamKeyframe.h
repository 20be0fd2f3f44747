#ifndef LMPARAMKEYFRAME_H
#define LMPARAMKEYFRAME_H

#include "LmInt64.h"

#include <QVariant>

/// One value of one parameter at one frame. An invalid value means that there is none.
class LmParamKeyframe
{
public:
    LmParamKeyframe() = default;
    LmParamKeyframe(long long aFrame, const QVariant& aValue) : theFrame(aFrame), theValue(aValue) {}

    void setKeyframe(long long aFrame, const QVariant& aValue)
    {
        theFrame = aFrame;
        theValue = aValue;
    }
    long long getFrame() const { return theFrame; }
    const QVariant& getValue() const { return theValue; }
    bool hasValue() const { return theValue.isValid(); }
    bool operator==(const LmParamKeyframe& aOther) const
    {
        return theFrame == aOther.theFrame && theValue == aOther.theValue;
    }

private:
    long long theFrame = kDefaultFrame;
    QVariant theValue;
};

#endif
