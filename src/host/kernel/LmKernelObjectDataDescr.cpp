#include "LmKernelObjectDataDescr.h"

#include "LmKernelObjectData.h"
#include "PolygonValue.h"
#include "RecordReader.h"
#include "ValueText.h"

#include <QDomDocument>

#include <algorithm>

LmKernelObjectDataDescr::LmKernelObjectDataDescr(int aType, int aCount)
    : theObjectType(aType), theParams(std::max(aCount, 0))
{
}

int LmKernelObjectDataDescr::indexOf(const QString& aName) const
{
    for (int i = 0; i < count(); ++i)
        if (theParams[i].theName == aName)
            return i;
    return -1;
}

void LmKernelObjectDataDescr::addParamDescr(unsigned int aIndex, const QString& aName, QMetaType::Type aType,
                                            ParamDescr::KeyframeType aKeyframeType)
{
    if (aIndex < static_cast<unsigned int>(count()))
        theParams[int(aIndex)] = ParamDescr{aName, aType, aKeyframeType};
}

LmParamKeyframeVector LmKernelObjectDataDescr::createKeyframeVector() const
{
    return LmParamKeyframeVector(count());
}

QVector<ParamDescr::KeyframeType> LmKernelObjectDataDescr::getKeyframeTypes() const
{
    QVector<ParamDescr::KeyframeType> types;
    for (const ParamDescr& param : theParams)
        types.append(param.theKeyframeType);
    return types;
}

const QVariant& LmKernelObjectDataDescr::getValue(const LmParamKeyframeVector& aVector,
                                                  const QString& aName) const
{
    static const QVariant none;
    const int index = indexOf(aName);
    return index >= 0 && index < aVector.size() ? aVector[index].getValue() : none;
}

bool LmKernelObjectDataDescr::setValue(LmParamKeyframeVector& aVector, const QString& aName,
                                       const QVariant& aValue) const
{
    const int index = indexOf(aName);
    const QVariant value = PolygonValue::unified(aValue);
    if (index < 0 || index >= aVector.size() || !accepts(index, value))
        return false;
    aVector.setValue(index, value);
    return true;
}

bool LmKernelObjectDataDescr::accepts(int aParam, const QVariant& aValue) const
{
    return aParam >= 0 && aParam < count() && aValue.isValid() &&
           aValue.metaType() == QMetaType(theParams[aParam].theType);
}

bool LmKernelObjectDataDescr::accepts(int aParam, const QLinkedList<LmParamKeyframe>& aKeyframes) const
{
    if (aKeyframes.isEmpty())
        return true;
    return aParam >= 0 && aParam < count() && theParams[aParam].theKeyframeType != ParamDescr::kWhole &&
           std::all_of(aKeyframes.cbegin(), aKeyframes.cend(), [&](const LmParamKeyframe& aKeyframe) {
               return accepts(aParam, aKeyframe.getValue());
           });
}

LmKernelObjectData* LmKernelObjectDataDescr::createObjectDataFromXML(const QDomElement& aElement, int& aIdx,
                                                                     QProgressDialog* aProgress) const
{
    RecordReader reader(*this, aProgress);
    std::unique_ptr<LmKernelObjectData> data = reader.read(aElement);
    theXmlError = reader.error();
    if (data)
        aIdx = reader.index();
    return data.release();
}

QDomElement LmKernelObjectDataDescr::createXML(QDomDocument& aDocument, int aIdx,
                                               const LmKernelObjectData& aData) const
{
    const auto valueElement = [&](const QString& aTag, const QVariant& aValue) {
        QDomElement element = aDocument.createElement(aTag);
        element.appendChild(aDocument.createTextNode(ValueText::write(aValue)));
        return element;
    };
    QDomElement object = aDocument.createElement(QStringLiteral("object"));
    object.setAttribute(QStringLiteral("type"), theObjectType);
    object.setAttribute(QStringLiteral("index"), aIdx);
    object.setAttribute(QStringLiteral("animated"), ValueText::write(aData.theAnimated));
    for (int i = 0; i < count(); ++i) {
        QDomElement param = aDocument.createElement(QStringLiteral("param"));
        param.setAttribute(QStringLiteral("name"), theParams[i].theName);
        param.setAttribute(QStringLiteral("type"), QLatin1String(QMetaType(theParams[i].theType).name()));
        const QVariant standard = aData.storedValue(i, kDefaultFrame);
        if (accepts(i, standard))
            param.appendChild(valueElement(QStringLiteral("default"), standard));
        for (const LmParamKeyframe& keyframe : aData.getAnimationKeyframes(i)) {
            if (!accepts(i, keyframe.getValue()))
                continue;
            QDomElement element = valueElement(QStringLiteral("keyframe"), keyframe.getValue());
            element.setAttribute(QStringLiteral("frame"), keyframe.getFrame());
            param.appendChild(element);
        }
        object.appendChild(param);
    }
    return object;
}
