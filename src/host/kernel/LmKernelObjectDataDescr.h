#ifndef LMKERNELOBJECTDATADESCR_H
#define LMKERNELOBJECTDATADESCR_H

#include "LmParamKeyframeVector.h"
#include "ParamDescr.h"

#include <QLinkedList>
#include <QVector>

class LmKernelObjectData;
class QDomDocument;
class QDomElement;
class QProgressDialog;

/// Describes the parameters of one object type, and reads and writes its records as XML.
class LmKernelObjectDataDescr
{
public:
    LmKernelObjectDataDescr(int aType, int aCount);

    int objectType() const { return theObjectType; }
    int count() const { return int(theParams.size()); }
    const ParamDescr& param(int aIndex) const { return theParams[aIndex]; }
    /// The index of a name, or -1.
    int indexOf(const QString& aName) const;

    /// An index outside the count is ignored.
    void addParamDescr(unsigned int aIndex, const QString& aName, QMetaType::Type aType,
                       ParamDescr::KeyframeType aKeyframeType);

    /// A vector with one empty keyframe per parameter, for the default keyframes.
    LmParamKeyframeVector createKeyframeVector() const;
    QVector<ParamDescr::KeyframeType> getKeyframeTypes() const;

    /// An unknown name gives an invalid value.
    const QVariant& getValue(const LmParamKeyframeVector& aVector, const QString& aName) const;
    /// False, without effect, for an unknown name or a value of another type than the parameter's. Every
    /// polygon type counts as QPolygon and is stored as such.
    bool setValue(LmParamKeyframeVector& aVector, const QString& aName, const QVariant& aValue) const;

    /// Whether the value is of the parameter's very type. Point lists must be real QPolygons here.
    bool accepts(int aParam, const QVariant& aValue) const;
    /// Whether the parameter can have these keyframes; one of one value for the whole object can have none.
    bool accepts(int aParam, const QLinkedList<LmParamKeyframe>& aKeyframes) const;

    /// A new record, which the caller owns, read from an element that createXML made; null when anything
    /// in it is wrong, and xmlError() then tells what and where. The progress dialog may be null.
    LmKernelObjectData* createObjectDataFromXML(const QDomElement& aElement, int& aIdx,
                                                QProgressDialog* aProgress) const;
    /// The element of a record, for the caller to append to its document.
    QDomElement createXML(QDomDocument& aDocument, int aIdx, const LmKernelObjectData& aData) const;
    /// What was wrong with the last element: one sentence with the line; empty if nothing was.
    const QString& xmlError() const { return theXmlError; }

private:
    int theObjectType;
    QVector<ParamDescr> theParams;
    mutable QString theXmlError;
};

#endif
