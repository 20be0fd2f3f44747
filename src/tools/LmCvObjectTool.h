#ifndef LMCVOBJECTTOOL_H
#define LMCVOBJECTTOOL_H

#include "LmCvRecordTool.h"

#include <functional>
#include <utility>

/// The life of one measured object between mouse, kernel and canvas, the same for all tools that draw
/// objects: how it starts, reaches the kernel, comes back after undo, follows frames and resolution, and is
/// loaded. A tool adds its geometry, its texts, its values and its gestures.
class LmCvObjectTool : public LmCvRecordTool
{
    Q_OBJECT

public:
    ~LmCvObjectTool() override;

    void initManipulator(QToolBar* aToolBar) override;
    int getCvObjectFlags(LmCvObject* aObject) override;
    void recreateCanvasObjects(QPoint aOrigin, long long aFrame, bool aAll) override;
    void constructDataObject(const QDomElement& aElement, QProgressDialog* aProgress) override;
    const QCursor& getCursor() const override;

    QCursor theToolCursor;
    QPoint thePressPoint; // canvas, where the drawing began

public Q_SLOTS:
    void slotCanvasObjectChanged(LmCvObject* aObject) override;
    void slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData) override;
    void slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData) override;

protected:
    LmCvObjectTool(int aObjectType, QObject* aParent);
    /// One of the cursors of a ruler, whose lower left end points.
    void loadRulerCursor(const QString& aFile);

    // What differs between the tools.
    virtual LmCvObject* newItem(const QString& aLabel) = 0;
    /// The item's geometry as a record holds it, in the order in which it is written. aFormer is the record
    /// that gets it, null for a new object; what it holds already may be left out.
    virtual NamedValues geometryOf(const LmCvObject* aItem, const QPoint& aOrigin,
                                   const LmKernelObjectData* aFormer) const = 0;
    virtual void applyGeometry(LmCvObject* aItem, const LmParamKeyframeVector& aValues,
                               const QPoint& aOrigin) const = 0;
    /// Called before the item's changed geometry goes into its record; does nothing by default.
    virtual void beforeChange(const LmCvObject* aItem, int aIdx, const LmKernelObjectData& aRecord);
    QList<int> shownIndexes() const override;

    // Steps of drawing a new object.
    /// The position of a move, with Shift in one of the eight main directions from thePressPoint; canvas.
    QPoint drawnPoint(const QMouseEvent& aEvent) const;
    /// Gives a new item its colour and calibration, makes it current and shows it.
    void presentNewItem(LmCvObject* aItem);
    /// Deletes an item that isn't stored yet and clears the pointer; false if there was none.
    template <typename Item>
    bool discard(Item*& aItem)
    {
        return remove(std::exchange(aItem, nullptr));
    }
    /// Takes a drawn item into theCvObjects under the next index and pushes the creation of its record.
    void storeNewItem(LmCvObject* aItem, const QString& aShownValue);
    LmCvObject* ownItem(const LmCvObject* aObject) const; // null for an item that isn't stored
    /// The measure of one name with its unit; invalid for a name that it doesn't know.
    using Measure = std::function<QVariant(const QString& aName, QString& aUnit)>;
    /// A value and a unit for each name. Where nothing is asked, and for an unknown name, an invalid value
    /// with an empty unit.
    static QLinkedList<QVariant> valuesOf(const QStringList& aNames, QStringList& aUnits,
                                          const Measure& aMeasure);

private:
    bool remove(LmCvObject* aItem);
    LmCvObject* itemFromRecord(int aIdx, const LmParamKeyframeVector& aValues);
};

#endif
