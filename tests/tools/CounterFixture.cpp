#include "CounterFixture.h"

#include "LmKernelObjectDataDescr.h"

#include <QFont>

CounterFixture::CounterFixture()
{
    start(theTool);
}

LmCvArrow* CounterFixture::mark(int aIdx, int aPos) const
{
    LmCvArrow* found = marks(aIdx).value(aPos);
    if (!found)
        qFatal("counter %d has no mark at %d", aIdx, aPos);
    return found;
}

LmKernelObjectData* CounterFixture::record(int aIdx) const
{
    LmKernelObjectData* found = theKernel.getObject(kType, aIdx);
    if (!found)
        qFatal("there is no record of counter %d", aIdx);
    return found;
}

QStringList CounterFixture::texts(int aIdx) const
{
    QStringList texts;
    for (const LmCvArrow* mark : marks(aIdx))
        texts.append(mark->theText);
    return texts;
}

QList<QPoint> CounterFixture::tips(int aIdx) const
{
    QList<QPoint> tips;
    for (const LmCvArrow* mark : marks(aIdx))
        tips.append(mark->theEndPoint);
    return tips;
}

bool CounterFixture::recordIsMarks(int aIdx) const
{
    QPolygon own;
    for (const LmCvArrow* mark : marks(aIdx))
        own << QPoint(int(mark->x()) + 40, int(mark->y()) + 30) << mark->theEndPoint + QPoint(40, 30);
    return !own.isEmpty() && own == points(aIdx);
}

void CounterFixture::insertRecord(int aIdx, const QList<QPoint>& aImagePoints, bool aShown,
                                  const QString& aName)
{
    QPolygon points;
    for (const QPoint& point : aImagePoints)
        points << point + QPoint(20, -20) << point;
    const LmKernelObjectDataDescr* descr = theKernel.getDataDescriptor(kType);
    LmParamKeyframeVector values = descr->createKeyframeVector();
    values.setValue(kVis, aShown);
    values.setValue(kCol, QColor(Qt::green));
    values.setValue(kDispv, QString());
    values.setValue(kPos, QVariant::fromValue<QPolygon>(points));
    values.setValue(kName, aName);
    values.setValue(kFont, QFont(QStringLiteral("DejaVu Sans"), 14));
    theKernel.insertObject(kType, aIdx, new LmKernelObjectData(values, descr->getKeyframeTypes(), 0));
}

void CounterFixture::makeCounters(const QList<int>& aCounts)
{
    int row = 0;
    for (const int count : aCounts) {
        theEditor.activateItem(nullptr);
        for (int i = 0; i < count; ++i)
            theTool.createCounterElement(QPoint(10 + 15 * i, 25 + 40 * row), false);
        ++row;
    }
}
