#ifndef LMKSKERNELDATA_H
#define LMKSKERNELDATA_H

#include "LmCalibData.h"
#include "LmInt64.h"

#include <QColor>
#include <QList>
#include <QMap>
#include <QObject>
#include <QSize>

class LmCvManipulator;
class LmImage;
class LmKernelObjectData;
class LmKernelObjectDataDescr;

Q_MOC_INCLUDE("LmKernelObjectData.h")

/// The store of everything measured, the one place in which records, calibrations and the current frame
/// stand, and the object that emits their signals. Records change through commands only; a resolution change
/// is the exception.
class LmKSKernelData : public QObject
{
    Q_OBJECT

public:
    static LmKSKernelData* getInstance();
    ~LmKSKernelData() override;

    // Tools and types. Both answer false for a type that is taken; the kernel owns a descriptor it has taken.
    bool registerObjectType(LmCvManipulator* aTool, int aType);
    bool registerDataDescriptor(LmKernelObjectDataDescr* aDescriptor, int aType);
    /// Takes the tool's types and descriptors back; its records are deleted without signals.
    void unregisterManipulator(const LmCvManipulator* aTool);
    LmKernelObjectDataDescr* getDataDescriptor(int aType) const;
    LmCvManipulator* getCvManipulator(int aType) const;
    QList<LmCvManipulator*> getCvManipulatorList() const;

    // Records.
    LmKernelObjectData* getObject(int aType, int aIdx) const;
    const QMap<int, LmKernelObjectData*>& getObjectsOfType(int aType) const;
    /// Takes the record and emits signalObjectCreated; false, without effect, if the place is taken.
    bool insertObject(int aType, int aIdx, LmKernelObjectData* aData);
    /// Emits signalObjectBeforeRemove, hands the record to the caller and emits signalObjectRemoved; null if
    /// none.
    LmKernelObjectData* takeObject(int aType, int aIdx);
    void announceObjectChanged(int aType, int aIdx);
    void announceObjectColor(int aType, int aIdx, const QColor& aColor);
    void announceObjectShow(int aType, int aIdx, bool aShown);
    /// How an object is called in undo texts, such as "Distance 3"; the tools' base class gives the namer.
    QString objectText(int aType, int aIdx) const;
    void setObjectNamer(QString (*aNamer)(int aType, int aIdx)) { theObjectNamer = aNamer; }

    // Calibration. The current one may be none: an empty name and an empty record.
    LmCalibData getCurrentCalibData(QString& aName) const;
    const QMap<QString, LmCalibData>& calibrations() const { return theCalibrations; }
    /// Adds or edits a calibration and emits signalCalibrationChanged; an equal one changes nothing.
    void setCalibration(const QString& aName, const LmCalibData& aData);
    /// Takes a calibration away; if it was the current one, none is current afterwards.
    void removeCalibration(const QString& aName);
    /// Makes a known calibration (or none, by an empty name) current and emits signalCalibrationCurrent.
    void setCurrentCalibration(const QString& aName);
    /// Pixels per unit of the current calibration, its unit in aUnit; 0 when not calibrated or without an
    /// image.
    double currentStep(QString& aUnit) const;

    // Image and frames.
    QSize getCurrentImageSize() const;
    /// theAltImage when the image source is 1 or 2, theCurrentImage otherwise; may be null.
    LmImage* getShownImage() const;
    /// Origin of the current image's region of interest: canvas point + origin = image point.
    QPoint origin() const;
    /// Stores the frame and emits signalFrameReadyPlayout while playing, signalFrameReadyStop otherwise.
    void showFrame(Int64 aFrame, bool aPlaying);
    void announceResolution(QSize aOldSize, QSize aNewSize);
    void announceCurrentView(int aView, int aMode);
    void announceManipulatorsLoaded();

    double theCalibScale = 1.0;
    QMap<int, QMap<int, LmKernelObjectData*>> theObjects; // owned
    quint32 theCurrentFrame = 0;
    Int64 theFrameCount = 0;
    QString theMediaFile;
    int theImageSource = 0;
    LmImage* theCurrentImage = nullptr; // owned by the application's media
    LmImage* theAltImage = nullptr;     // the same

Q_SIGNALS:
    void signalObjectCreated(const int aType, const int aIdx, const LmKernelObjectData* aData);
    void signalObjectChanged(const int aType, const int aIdx, const LmKernelObjectData* aData);
    void signalObjectBeforeRemove(const int aType, const int aIdx);
    void signalObjectRemoved(const int aType, const int aIdx);
    void signalObjectColorChanged(const int aType, const int aIdx, const QColor& aColor);
    void signalObjectShow(const int aType, const int aIdx, bool aShown);
    void signalCalibrationChanged(const QString& aName, const LmCalibData& aData);
    void signalCalibrationCurrent(const QString& aName, const LmCalibData& aData);
    void signalAfterCalibrationChanged(const QString& aName, const LmCalibData& aData);
    void signalCurrentResChangedByCamera(QSize aOldSize, QSize aNewSize);
    void signalFrameReadyStop(Int64 aFrame);
    void signalFrameReadyPlayout(Int64 aFrame);
    void signalCurrentView(const int aView, const int aMode);
    void signalManipulatorsLoaded();

private:
    LmKSKernelData();

    QMap<int, LmCvManipulator*> theTools;               // by object type; not owned
    QList<LmCvManipulator*> theToolList;                // in order of registration
    QMap<int, LmKernelObjectDataDescr*> theDescriptors; // owned
    QMap<QString, LmCalibData> theCalibrations;
    QString theCurrentCalibration;
    QString (*theObjectNamer)(int, int) = nullptr;
};

#endif
