#ifndef LMCVOBJECTTOOL_H
#define LMCVOBJECTTOOL_H

#include "LmCvManipulator.h"
#include "ParamDescr.h"

#include <QPair>

#include <functional>
#include <utility>

class LmKernelObjectDataDescr;
class Q3CanvasItem;

/// The life of one measured object between mouse, kernel and canvas, the same for all tools that draw
/// objects: how it starts, reaches the kernel, comes back after undo, follows frames and resolution, and is
/// loaded. A tool adds its geometry, its texts, its values and its gestures.
///
/// Every record begins with "vis", "col" and "dispv"; the geometry follows. Points of a record are image
/// coordinates, points of an item canvas coordinates; the origin of the region of interest lies between them.
class LmCvObjectTool : public LmCvManipulator
{
    Q_OBJECT

public:
    enum CommonParam { kVisible = 0, kColor = 1, kShownValue = 2, kFirstOwnParam = 3 };

    ~LmCvObjectTool() override;

    void initManipulator(QToolBar* aToolBar) override;
    int getCvObjectFlags(LmCvObject* aObject) override;
    QStringList getObjectTypeNames() override;
    QIcon& getIconSet(const QString& aType) override;
    QString getObjectName(int aIdx) override;
    QString getObjectName(const LmCvObject* aObject) override;
    void setCvEditor(LmCvEditor* aEditor) override;
    void recreateCanvasObjects(QPoint aOrigin, long long aFrame, bool aAll) override;
    void constructDataObject(const QDomElement& aElement, QProgressDialog* aProgress) override;
    const QCursor& getCursor() const override;

    QCursor theToolCursor;
    QPoint thePressPoint; // canvas, where the drawing began
    QIcon theToolIcon;

public Q_SLOTS:
    virtual void slotCanvasObjectChanged(LmCvObject* aObject);
    virtual void slotCurrentResChangedByCameraInKernel(QSize aOldSize, QSize aNewSize);
    virtual void slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData);
    virtual void slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData);
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

    LmCvObjectTool(int aObjectType, QObject* aParent);
    /// One of the cursors of a ruler, whose lower left end points.
    void loadRulerCursor(const QString& aFile);

    // What differs between the tools.
    virtual QString typeName() const = 0; // what the user calls an object
    virtual Texts texts() const = 0;
    /// The parameters behind the three common ones.
    virtual QList<ParamDescr> geometryParams() const = 0;
    virtual LmCvObject* newItem(const QString& aLabel) = 0;
    /// The item's geometry as a record holds it, in the order in which it is written. aFormer is the record
    /// that gets it, null for a new object; what it holds already may be left out.
    virtual NamedValues geometryOf(const LmCvObject* aItem, const QPoint& aOrigin,
                                   const LmKernelObjectData* aFormer) const = 0;
    virtual void applyGeometry(LmCvObject* aItem, const LmParamKeyframeVector& aValues,
                               const QPoint& aOrigin) const = 0;
    /// Called before the item's changed geometry goes into its record; does nothing by default.
    virtual void beforeChange(const LmCvObject* aItem, int aIdx, const LmKernelObjectData& aRecord);

    // Steps of drawing a new object.
    /// The position of a move, with Shift in one of the eight main directions from thePressPoint; canvas.
    QPoint drawnPoint(const QMouseEvent& aEvent) const;
    /// Whether the kernel took the tool's type and there is a canvas; a tool without both makes no items.
    bool canDraw() const;
    /// Gives a new item its colour and calibration, makes it current and shows it.
    void presentNewItem(LmCvObject* aItem);
    /// Deletes an item that isn't stored yet and clears the pointer; false if there was none.
    template <typename Item>
    bool discard(Item*& aItem)
    {
        return remove(std::exchange(aItem, nullptr));
    }
    /// Called when an item has left the canvas, whatever the reason; its own class has gone already. Does
    /// nothing by default.
    virtual void forgetItem(const Q3CanvasItem* aItem);
    /// Takes a drawn item into theCvObjects under the next index and pushes the creation of its record.
    void storeNewItem(LmCvObject* aItem, const QString& aShownValue);

    /// Pushes the creation of a record that holds the values, up to the first one that is refused.
    void pushCreation(int aIdx, const NamedValues& aValues);

    LmKernelObjectDataDescr* descriptor() const; // null before initManipulator
    /// A vector for the default keyframes with the values, up to the first one that is refused.
    LmParamKeyframeVector vectorOf(const NamedValues& aValues) const;
    LmKernelObjectData* recordOf(int aIdx) const;
    QVariant sharedValue(const LmParamKeyframeVector& aValues, CommonParam aParam) const;
    LmCvObject* ownItem(const LmCvObject* aObject) const; // null for an item that isn't stored
    /// The measure of one name with its unit; invalid for a name that it doesn't know.
    using Measure = std::function<QVariant(const QString& aName, QString& aUnit)>;
    /// A value and a unit for each name. Where nothing is asked, and for an unknown name, an invalid value
    /// with an empty unit.
    static QLinkedList<QVariant> valuesOf(const QStringList& aNames, QStringList& aUnits,
                                          const Measure& aMeasure);

private:
    bool remove(LmCvObject* aItem);
    LmKernelObjectDataDescr* createDescriptor() const;
    bool registerWithKernel();
    LmCvObject* itemFromRecord(int aIdx, const LmParamKeyframeVector& aValues);
};

#endif
