#include "LmKSKernelData.h"

#include "LmImage.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <limits>

LmKSKernelData* LmKSKernelData::getInstance()
{
    static LmKSKernelData kernel;
    return &kernel;
}

LmKSKernelData::LmKSKernelData() = default;

LmKSKernelData::~LmKSKernelData()
{
    for (const auto& objects : std::as_const(theObjects))
        qDeleteAll(objects);
    qDeleteAll(theDescriptors);
}

bool LmKSKernelData::registerObjectType(LmCvManipulator* aTool, int aType)
{
    if (!aTool || theTools.contains(aType))
        return false;
    theTools.insert(aType, aTool);
    if (!theToolList.contains(aTool))
        theToolList.append(aTool);
    return true;
}

bool LmKSKernelData::registerDataDescriptor(LmKernelObjectDataDescr* aDescriptor, int aType)
{
    if (!aDescriptor || theDescriptors.contains(aType))
        return false;
    theDescriptors.insert(aType, aDescriptor);
    return true;
}

void LmKSKernelData::unregisterManipulator(const LmCvManipulator* aTool)
{
    const QList<int> types = theTools.keys();
    for (const int type : types) {
        if (theTools.value(type) != aTool)
            continue;
        theTools.remove(type);
        qDeleteAll(theObjects.take(type));
        delete theDescriptors.take(type);
    }
    theToolList.erase(std::remove(theToolList.begin(), theToolList.end(), aTool), theToolList.end());
}

LmKernelObjectDataDescr* LmKSKernelData::getDataDescriptor(int aType) const
{
    return theDescriptors.value(aType, nullptr);
}

LmCvManipulator* LmKSKernelData::getCvManipulator(int aType) const
{
    return theTools.value(aType, nullptr);
}

QList<LmCvManipulator*> LmKSKernelData::getCvManipulatorList() const
{
    return theToolList;
}

LmKernelObjectData* LmKSKernelData::getObject(int aType, int aIdx) const
{
    return getObjectsOfType(aType).value(aIdx, nullptr);
}

const QMap<int, LmKernelObjectData*>& LmKSKernelData::getObjectsOfType(int aType) const
{
    static const QMap<int, LmKernelObjectData*> none;
    const auto objects = theObjects.constFind(aType);
    return objects == theObjects.constEnd() ? none : *objects;
}

bool LmKSKernelData::insertObject(int aType, int aIdx, LmKernelObjectData* aData)
{
    if (!aData || getObject(aType, aIdx))
        return false;
    theObjects[aType].insert(aIdx, aData);
    Q_EMIT signalObjectCreated(aType, aIdx, aData);
    return true;
}

LmKernelObjectData* LmKSKernelData::takeObject(int aType, int aIdx)
{
    if (!getObject(aType, aIdx))
        return nullptr;
    Q_EMIT signalObjectBeforeRemove(aType, aIdx);
    LmKernelObjectData* data = theObjects[aType].take(aIdx);
    if (data)
        Q_EMIT signalObjectRemoved(aType, aIdx);
    return data;
}

void LmKSKernelData::announceObjectChanged(int aType, int aIdx)
{
    if (const LmKernelObjectData* data = getObject(aType, aIdx))
        Q_EMIT signalObjectChanged(aType, aIdx, data);
}

void LmKSKernelData::announceObjectColor(int aType, int aIdx, const QColor& aColor)
{
    Q_EMIT signalObjectColorChanged(aType, aIdx, aColor);
}

void LmKSKernelData::announceObjectShow(int aType, int aIdx, bool aShown)
{
    Q_EMIT signalObjectShow(aType, aIdx, aShown);
}

QString LmKSKernelData::objectText(int aType, int aIdx) const
{
    const QString text = theObjectNamer ? theObjectNamer(aType, aIdx) : QString();
    return text.isEmpty() ? tr("object %1").arg(aIdx) : text;
}

LmCalibData LmKSKernelData::getCurrentCalibData(QString& aName) const
{
    aName = theCurrentCalibration;
    return theCalibrations.value(theCurrentCalibration);
}

void LmKSKernelData::setCalibration(const QString& aName, const LmCalibData& aData)
{
    const auto known = theCalibrations.constFind(aName);
    if (aName.isEmpty() || (known != theCalibrations.constEnd() && *known == aData))
        return;
    // Copies, since the arguments may lie in the map or be changed by a listener.
    const QString name = aName;
    const LmCalibData data = aData;
    theCalibrations.insert(name, data);
    Q_EMIT signalCalibrationChanged(name, data);
    Q_EMIT signalAfterCalibrationChanged(name, data);
}

void LmKSKernelData::removeCalibration(const QString& aName)
{
    const QString name = aName;
    if (theCalibrations.remove(name) == 0)
        return;
    if (name == theCurrentCalibration) {
        setCurrentCalibration(QString());
        return;
    }
    Q_EMIT signalCalibrationChanged(name, LmCalibData());
    Q_EMIT signalAfterCalibrationChanged(name, LmCalibData());
}

void LmKSKernelData::setCurrentCalibration(const QString& aName)
{
    if (aName == theCurrentCalibration || (!aName.isEmpty() && !theCalibrations.contains(aName)))
        return;
    const QString name = aName;
    const LmCalibData data = theCalibrations.value(name);
    theCurrentCalibration = name;
    Q_EMIT signalCalibrationCurrent(name, data);
    Q_EMIT signalAfterCalibrationChanged(name, data);
}

double LmKSKernelData::currentStep(QString& aUnit) const
{
    // A smaller width, or one that isn't a number, is how an object is marked as not calibrated.
    constexpr double kLeastValue = 0.001;
    QString name;
    const LmCalibData data = getCurrentCalibData(name);
    aUnit = data.theUnit;
    if (!std::isfinite(data.theValue) || data.theValue <= kLeastValue)
        return 0.0;
    const double step = getCurrentImageSize().width() * theCalibScale / data.theValue;
    return std::isfinite(step) ? step : 0.0;
}

QSize LmKSKernelData::getCurrentImageSize() const
{
    return theCurrentImage ? theCurrentImage->size() : QSize(0, 0);
}

LmImage* LmKSKernelData::getShownImage() const
{
    return theImageSource == 1 || theImageSource == 2 ? theAltImage : theCurrentImage;
}

QPoint LmKSKernelData::origin() const
{
    return theCurrentImage ? QPoint(theCurrentImage->theRoiX, theCurrentImage->theRoiY) : QPoint();
}

void LmKSKernelData::showFrame(Int64 aFrame, bool aPlaying)
{
    theCurrentFrame = quint32(std::clamp<Int64>(aFrame, 0, std::numeric_limits<quint32>::max()));
    if (aPlaying)
        Q_EMIT signalFrameReadyPlayout(theCurrentFrame);
    else
        Q_EMIT signalFrameReadyStop(theCurrentFrame);
}

void LmKSKernelData::announceResolution(QSize aOldSize, QSize aNewSize)
{
    Q_EMIT signalCurrentResChangedByCamera(aOldSize, aNewSize);
    // A unit has another number of pixels now, so whoever shows values reads them again.
    Q_EMIT signalAfterCalibrationChanged(theCurrentCalibration, theCalibrations.value(theCurrentCalibration));
}

void LmKSKernelData::announceCurrentView(int aView, int aMode)
{
    Q_EMIT signalCurrentView(aView, aMode);
}

void LmKSKernelData::announceManipulatorsLoaded()
{
    Q_EMIT signalManipulatorsLoaded();
}
