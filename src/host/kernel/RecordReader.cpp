#include "RecordReader.h"

#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "ValueText.h"

#include <QCoreApplication>
#include <QProgressDialog>

namespace {

constexpr int kMostKeyframes = 10'000'000; // of one object; more can only be a mistake
constexpr int kKeyframesPerPause = 20'000; // few enough to keep the progress dialog alive

QString text(const char* aText)
{
    return QCoreApplication::translate("RecordReader", aText);
}

/// Texts from a file can be of any length; an error message shows their beginning.
QString quoted(const QString& aText)
{
    constexpr int kMostShown = 40;
    const QString shown = aText.simplified();
    return QLatin1Char('"') + (shown.size() > kMostShown ? shown.left(kMostShown) + QChar(0x2026) : shown) +
           QLatin1Char('"');
}

} // namespace

RecordReader::RecordReader(const LmKernelObjectDataDescr& aDescriptor, QProgressDialog* aProgress)
    : theDescriptor(aDescriptor), theProgress(aProgress), theParams(size_t(aDescriptor.count()))
{
}

std::unique_ptr<LmKernelObjectData> RecordReader::read(const QDomElement& aElement)
{
    bool animated = false;
    if (!readObject(aElement, animated))
        return nullptr;
    for (QDomElement child = aElement.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        if (!readParam(child))
            return nullptr;
    LmParamKeyframeVector defaults = theDescriptor.createKeyframeVector();
    for (int i = 0; i < theDescriptor.count(); ++i) {
        if (!theParams[size_t(i)].theIsRead) {
            fail(aElement, text("the parameter %1 is missing").arg(quoted(theDescriptor.param(i).theName)));
            return nullptr;
        }
        defaults.setValue(i, theParams[size_t(i)].theDefault);
    }
    auto data = std::make_unique<LmKernelObjectData>(defaults, theDescriptor.getKeyframeTypes(), 0);
    data->theAnimated = animated;
    for (int i = 0; i < theDescriptor.count(); ++i)
        for (const auto& [frame, value] : theParams[size_t(i)].theKeyframes)
            data->storeValue(i, frame, value);
    return data;
}

bool RecordReader::readObject(const QDomElement& aElement, bool& aAnimated)
{
    if (aElement.tagName() != QLatin1String("object"))
        return fail(aElement, text("an object was expected here"));
    bool isNumber = false;
    const QString type = aElement.attribute(QStringLiteral("type"));
    if (type.toInt(&isNumber) != theDescriptor.objectType() || !isNumber)
        return fail(aElement, text("the object type is %1 instead of %2")
                                  .arg(quoted(type), QString::number(theDescriptor.objectType())));
    const QString index = aElement.attribute(QStringLiteral("index"));
    theIndex = index.toInt(&isNumber);
    if (!isNumber || theIndex < 1)
        return fail(aElement, text("the object index %1 isn't a number from 1 on").arg(quoted(index)));
    const QString animated = aElement.attribute(QStringLiteral("animated"));
    aAnimated = animated == QLatin1String("true");
    if (!aAnimated && animated != QLatin1String("false"))
        return fail(aElement, text("the animated flag is %1 instead of true or false").arg(quoted(animated)));
    return true;
}

bool RecordReader::readParam(const QDomElement& aElement)
{
    if (aElement.tagName() != QLatin1String("param"))
        return fail(aElement, text("a parameter was expected here"));
    const QString name = aElement.attribute(QStringLiteral("name"));
    const int index = theDescriptor.indexOf(name);
    if (index < 0)
        return fail(aElement, text("there is no parameter %1 in objects of this type").arg(quoted(name)));
    Param& param = theParams[size_t(index)];
    if (param.theIsRead)
        return fail(aElement, text("the parameter %1 comes twice").arg(quoted(name)));
    param.theIsRead = true;
    const QString type = aElement.attribute(QStringLiteral("type"));
    const QString wanted = QLatin1String(QMetaType(theDescriptor.param(index).theType).name());
    if (type != wanted)
        return fail(
            aElement,
            text("the parameter %1 is of the type %2 instead of %3").arg(quoted(name), quoted(type), wanted));
    bool hasDefault = false;
    for (QDomElement child = aElement.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const bool isDefault = child.tagName() == QLatin1String("default");
        if (isDefault && hasDefault)
            return fail(child, text("the parameter %1 has two default values").arg(quoted(name)));
        hasDefault = hasDefault || isDefault;
        if (!isDefault && child.tagName() != QLatin1String("keyframe"))
            return fail(child, text("a value of the parameter %1 was expected here").arg(quoted(name)));
        if (!(isDefault ? readValue(child, theDescriptor.param(index), param.theDefault)
                        : readKeyframe(child, index)))
            return false;
    }
    return true;
}

bool RecordReader::readKeyframe(const QDomElement& aElement, int aParam)
{
    const ParamDescr& description = theDescriptor.param(aParam);
    const QString name = quoted(description.theName);
    if (description.theKeyframeType == ParamDescr::kWhole)
        return fail(aElement, text("the parameter %1 can't have keyframes").arg(name));
    if (++theKeyframeCount > kMostKeyframes)
        return fail(aElement, text("there are more than %1 keyframes").arg(kMostKeyframes));
    const QString frameText = aElement.attribute(QStringLiteral("frame"));
    bool isNumber = false;
    const long long frame = frameText.toLongLong(&isNumber);
    if (!isNumber || frame < 0)
        return fail(aElement, text("the frame %1 isn't a number from 0 on").arg(quoted(frameText)));
    QVariant value;
    if (!readValue(aElement, description, value))
        return false;
    if (!theParams[size_t(aParam)].theKeyframes.emplace(frame, value).second)
        return fail(aElement, text("the parameter %1 has two keyframes at frame %2").arg(name).arg(frame));
    return goOn();
}

bool RecordReader::readValue(const QDomElement& aElement, const ParamDescr& aDescription, QVariant& aValue)
{
    const QString valueText = aElement.text();
    if (!aElement.firstChildElement().isNull())
        return fail(aElement, text("a value was expected here instead of elements"));
    aValue = ValueText::read(aDescription.theType, valueText);
    if (aValue.isValid())
        return true;
    return fail(aElement, text("%1 isn't a value of the type %2 for the parameter %3")
                              .arg(quoted(valueText), QLatin1String(QMetaType(aDescription.theType).name()),
                                   quoted(aDescription.theName)));
}

bool RecordReader::goOn()
{
    // Events are only let through under a modal dialog, where nothing else can change the document meanwhile.
    if (!theProgress || !theProgress->isModal() || theKeyframeCount % kKeyframesPerPause != 0)
        return true;
    QCoreApplication::processEvents();
    if (theProgress->wasCanceled())
        theError = text("The loading was cancelled.");
    return theError.isEmpty();
}

bool RecordReader::fail(const QDomElement& aElement, const QString& aWhat)
{
    const QString tag = QLatin1Char('<') + aElement.tagName() + QLatin1Char('>');
    // Only elements of a parsed document know their line.
    theError = aElement.lineNumber() > 0
                   ? text("Line %1, element %2: %3.").arg(QString::number(aElement.lineNumber()), tag, aWhat)
                   : text("Element %1: %2.").arg(tag, aWhat);
    return false;
}
