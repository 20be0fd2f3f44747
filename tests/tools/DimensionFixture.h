#ifndef DIMENSIONFIXTURE_H
#define DIMENSIONFIXTURE_H

#include "CmdChangeObject.h"
#include "LmCvDimension.h"
#include "LmCvManipDim.h"
#include "LmKernelObjectDataDescr.h"
#include "LmParamKeyframeVector.h"
#include "ObjectFixture.h"

#include <QPolygon>

class DimensionFixture : public ObjectFixture<LmCvManipDim, LmCvDimension>
{
public:
    enum Param { kVis, kCol, kDispv, kPos, kPoints };

    QPoint pos(int aIdx) const { return storedPoint(aIdx, kPos); }
    QPolygon points(int aIdx) const { return stored(kType, aIdx, kPoints).value<QPolygon>(); }
    QString shown(int aIdx) const { return item(aIdx)->theDisplayValue; }

    void altDrag(const QPoint& aFrom, const QPoint& aTo) { drag(aFrom, aTo, Qt::AltModifier); }
    /// A height and level widths of these lengths, one below the other.
    void drawLevel(int aHeight, const QList<int>& aWidths)
    {
        drag(QPoint(20, 20), QPoint(20, 20 + aHeight));
        int y = 60;
        for (const int width : aWidths) {
            altDrag(QPoint(60, y), QPoint(60 + width, y));
            y += 30;
        }
    }
    /// Puts the value of this name on the label, as the host does it.
    void show(int aIdx, const QString& aName)
    {
        const LmKernelObjectDataDescr* descriptor = theKernel.getDataDescriptor(kType);
        LmParamKeyframeVector vector = descriptor->createKeyframeVector();
        descriptor->setValue(vector, QStringLiteral("dispv"), aName);
        theStack.push(new CmdChangeObject(kType, aIdx, vector, false));
    }
    void storePoints(int aIdx, long long aFrame, const QPolygon& aPoints)
    {
        record(aIdx)->storeValue(kPoints, aFrame, QVariant::fromValue<QPolygon>(aPoints));
    }

    // Values of the first dimension, with their units in theUnit.
    QVariant fromRecord(const QString& aName)
    {
        QStringList units;
        const QLinkedList<QVariant> values = theTool.getValues(QStringList(aName), record(1), units);
        theUnit = units.value(0);
        return values.size() == 1 && units.size() == 1 ? values.first() : QVariant(QStringLiteral("no list"));
    }
    QVariant live(const QString& aName) { return theTool.getValue(aName, item(1), theUnit); }

    QString theUnit;
};

inline const QString kHeight = QStringLiteral("Height");
inline const QString kAverage = QStringLiteral("Avg. Width");
inline const QString kLiveAverage = QStringLiteral("Avg Width"); // its name while a dimension is dragged

inline QString width(int aNumber)
{
    return QStringLiteral("Width%1").arg(aNumber);
}

#endif
