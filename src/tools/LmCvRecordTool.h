#ifndef LMCVRECORDTOOL_H
#define LMCVRECORDTOOL_H

#include "LmCvManipulator.h"
#include "ParamDescr.h"

#include <QPair>

class LmKernelObjectDataDescr;
class Q3CanvasItem;

/// A tool that has an object type in the kernel: its button, its descriptor and its connections, and what all
/// such tools do with records, however they keep their items.
///
/// Every record begins with "vis", "col" and "dispv"; the tool's own parameters follow. Points of a record
/// are image coordinates, points of an item canvas coordinates; the origin of the region of interest lies
/// between them.
class LmCvRecordTool : public LmCvManipulator
{
    Q_OBJECT

public:
    enum CommonParam { kVisible = 0, kColor = 1, kShownValue = 2, kFirstOwnParam = 3 };

    ~LmCvRecordTool() override;

    void initManipulator(QToolBar* aToolBar) override;
    QStringList getObjectTypeNames() override;
    QIcon& getIconSet(const QString& aType) override;
    QString getObjectName(int aIdx) override;
    QString getObjectName(const LmCvObject* aObject) override;
    void setCvEditor(LmCvEditor* aEditor) override;

    QIcon theToolIcon;

public Q_SLOTS:
    virtual void slotCanvasObjectChanged(LmCvObject* aObject) = 0;
    virtual void slotCurrentResChangedByCameraInKernel(QSize aOldSize, QSize aNewSize);
    virtual void slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData) = 0;
    virtual void slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData) = 0;
    virtual void slotFrameReadyStopInKernel(Int64 aFrame);

protected:
    struct Texts
    {
        QString theToolTip;
        QString theHelp;
        QString theIconFile;
        QStringList theValueNames;
    };
    using NamedValues = QList<QPair<QString, QVariant>>;

    LmCvRecordTool(int aObjectType, QObject* aParent);

    // What differs between the tools.
    virtual QString typeName() const = 0; // what the user calls an object
    virtual Texts texts() const = 0;
    /// The parameters behind the three common ones.
    virtual QList<ParamDescr> ownParams() const = 0;
    /// The objects that have items on the canvas.
    virtual QList<int> shownIndexes() const = 0;
    /// Called when an item has left the canvas, whatever the reason; its own class has gone already. Does
    /// nothing by default.
    virtual void forgetItem(const Q3CanvasItem* aItem);

    /// Tells that the hint is another one now, if it is.
    void tellHint();
    /// Whether the kernel took the tool's type and there is a canvas; a tool without both makes no items.
    bool canDraw() const;
    /// Pushes the creation of a record that holds the values, up to the first one that is refused.
    void pushCreation(int aIdx, const NamedValues& aValues);
    LmKernelObjectDataDescr* descriptor() const; // null before initManipulator
    /// A vector for the default keyframes with the values, up to the first one that is refused.
    LmParamKeyframeVector vectorOf(const NamedValues& aValues) const;
    LmKernelObjectData* recordOf(int aIdx) const;
    QVariant sharedValue(const LmParamKeyframeVector& aValues, CommonParam aParam) const;

private:
    LmKernelObjectDataDescr* createDescriptor() const;
    bool registerWithKernel();

    QString theToldHint;
};

#endif
