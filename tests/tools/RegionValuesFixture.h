#ifndef REGIONVALUESFIXTURE_H
#define REGIONVALUESFIXTURE_H

#include "LmKernelObjectDataDescr.h"
#include "RegionFixture.h"
#include "RegionShapes.h"

/// Regions that stand in the kernel without having been drawn.
class RegionValuesFixture : public RegionFixture
{
public:
    using Animation = QLinkedList<LmParamKeyframe>;

    /// A record outside the kernel; the caller owns it.
    LmKernelObjectData* newRecord(const QPolygon& aPoints, bool aClosed, const QPoint& aPos) const
    {
        const LmKernelObjectDataDescr* descriptor = theKernel.getDataDescriptor(kType);
        LmParamKeyframeVector values = descriptor->createKeyframeVector();
        QByteArray states;
        for (qsizetype i = 0; i < aPoints.size() / 3; ++i)
            states.append(QByteArray::fromHex("ff0001"));
        const bool taken = descriptor->setValue(values, QStringLiteral("vis"), true) &&
                           descriptor->setValue(values, QStringLiteral("col"), QColor(Qt::red)) &&
                           descriptor->setValue(values, QStringLiteral("dispv"), QString()) &&
                           descriptor->setValue(values, QStringLiteral("cl"), aClosed) &&
                           descriptor->setValue(values, QStringLiteral("pts"), aPoints) &&
                           descriptor->setValue(values, QStringLiteral("nst"), states) &&
                           descriptor->setValue(values, QStringLiteral("pos"), aPos);
        if (!taken)
            qFatal("a value of the region was refused");
        return new LmKernelObjectData(values, descriptor->getKeyframeTypes(), 0);
    }

    /// The record is the kernel's.
    LmKernelObjectData* insert(int aIdx, const QPolygon& aPoints, bool aClosed, const QPoint& aPos)
    {
        LmKernelObjectData* made = newRecord(aPoints, aClosed, aPos);
        if (!theKernel.insertObject(kType, aIdx, made))
            qFatal("there is a region %d already", aIdx);
        return made;
    }

    QString theUnit;

    /// One value of a record, with its unit in theUnit.
    QVariant value(const QString& aName, const LmKernelObjectData* aRecord)
    {
        QStringList units;
        const QLinkedList<QVariant> values = theTool.getValues(QStringList{aName}, aRecord, units);
        theUnit = units.value(0);
        return values.size() == 1 && units.size() == 1 ? values.first()
                                                       : QVariant(QStringLiteral("lists differ"));
    }

    /// One value, which must be a double.
    double number(const QString& aName, const LmKernelObjectData* aRecord)
    {
        const QVariant found = value(aName, aRecord);
        if (found.typeId() != QMetaType::Double)
            qFatal("%s is no number", qPrintable(aName));
        return found.toDouble();
    }

    static void paint(LmImage& aImage, const QRect& aRect, int aRed, int aGreen, int aBlue)
    {
        const int colours[] = {aRed, aGreen, aBlue};
        for (int y = aRect.top(); y <= aRect.bottom(); ++y)
            for (int x = aRect.left(); x <= aRect.right(); ++x)
                for (int i = 0; i < aImage.channels(); ++i)
                    aImage.row(y)[x * aImage.channels() + i] = static_cast<unsigned char>(colours[i]);
    }

    /// The animation of region 1, with its unit in theUnit.
    Animation animation(const QString& aName)
    {
        theUnit = QStringLiteral("untouched");
        return theTool.getAnimation(aName, 1, theUnit);
    }
};

#endif
