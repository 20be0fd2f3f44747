#ifndef FAKETOOL_H
#define FAKETOOL_H

#include "LmCvManipulator.h"

class ProbeItem;

/// A measuring tool whose answers a test sets: any flags, names and values. Its objects are ProbeItems, and
/// their records hold a position.
class FakeTool : public LmCvManipulator
{
    Q_OBJECT

public:
    enum Param { kVisible, kColor, kShownValue, kPos };
    static constexpr int kMeasured = 512;
    static constexpr int kFollowsFrames = 128;

    struct Cell
    {
        QVariant theValue;
        QString theUnit;
    };
    using Cells = QMap<QString, Cell>;

    /// A tool of objects that are measured and follow the frames.
    FakeTool(int aType, const QString& aName, const QStringList& aValueNames);

    /// Registers type and descriptor and connects the kernel.
    void initManipulator(QToolBar* aToolBar) override;
    int getCvObjectFlags(LmCvObject* aObject) override;
    QStringList getObjectTypeNames() override { return theTypeNames; }
    QIcon& getIconSet(const QString& aType) override { return theIcons[aType]; }
    bool allObjectsNeedRecalc() override { return theRecalc; }
    QString getObjectName(int) override { return theName; }
    QString getObjectName(const LmCvObject*) override { return theName; }
    using LmCvManipulator::getValues;
    QLinkedList<QVariant> getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                    QStringList& aUnits) override;

    /// Creates the next object with these values, as one undo step.
    int create(const Cells& aCells, const QPoint& aPos = QPoint(50, 40));
    /// A single object with one value, such as 12.3456, "mm".
    int create(const QString& aName, const QVariant& aValue, const QString& aUnit = QString());
    /// Gives an object another value, and the kernel tells of it.
    void change(int aIdx, const QString& aName, const QVariant& aValue, const QString& aUnit = QString());
    /// Moves an object to another canvas place, at the current frame if it is animated.
    void moveTo(int aIdx, const QPoint& aCanvasPoint);
    void remove(int aIdx);
    QPoint posOf(const LmKernelObjectData& aData) const;

    int theFlags = kMeasured | kFollowsFrames;
    bool theRecalc = false;
    /// Values come from the records: "X" is the position and "Share" its part of the sum of all objects'.
    bool theIsCounting = false;
    QString theName;
    QStringList theTypeNames;
    QMap<int, Cells> theCells;
    QMap<QString, QIcon> theIcons;
    int theQuestions = 0; // how often records were measured
    int theNullFlagQuestions = 0;

public Q_SLOTS:
    void slotCurrentResChangedByCameraInKernel(QSize, QSize) {}
    void slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData);
    void slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData);
    void slotFrameReadyStopInKernel(Int64 aFrame);

private:
    QVariant valueOf(const QString& aName, const LmKernelObjectData& aData, QString& aUnit) const;
};

#endif
