#ifndef RECORDREADER_H
#define RECORDREADER_H

#include "ParamDescr.h"

#include <QDomElement>
#include <QString>
#include <QVariant>

#include <map>
#include <memory>
#include <vector>

class LmKernelObjectData;
class LmKernelObjectDataDescr;
class QProgressDialog;

/// Reads one record from its XML element and checks everything in it. The first fault ends the reading and is
/// told in one sentence.
class RecordReader
{
public:
    /// The progress dialog may be null.
    RecordReader(const LmKernelObjectDataDescr& aDescriptor, QProgressDialog* aProgress);

    /// The record, or null with error() set.
    std::unique_ptr<LmKernelObjectData> read(const QDomElement& aElement);
    int index() const { return theIndex; }
    const QString& error() const { return theError; }

private:
    struct Param
    {
        bool theIsRead = false;
        QVariant theDefault;
        std::map<long long, QVariant> theKeyframes;
    };

    bool readObject(const QDomElement& aElement, bool& aAnimated);
    bool readParam(const QDomElement& aElement);
    bool readKeyframe(const QDomElement& aElement, int aParam);
    bool readValue(const QDomElement& aElement, const ParamDescr& aDescription, QVariant& aValue);
    bool goOn();
    bool fail(const QDomElement& aElement, const QString& aWhat);

    const LmKernelObjectDataDescr& theDescriptor;
    QProgressDialog* theProgress; // not owned
    std::vector<Param> theParams;
    int theKeyframeCount = 0;
    int theIndex = 0;
    QString theError;
};

#endif
