#ifndef COUNTERFIXTURE_H
#define COUNTERFIXTURE_H

#include "LmCvArrow.h"
#include "LmCvManipCounter.h"
#include "ToolFixture.h"

#include <QPolygon>

/// The tool "Counter", started and current. Canvas point + (40, 30) is the image point.
class CounterFixture : public ToolFixture
{
public:
    static constexpr int kType = 1107;
    enum Param { kVis, kCol, kDispv, kPos, kName, kFont };

    CounterFixture();
    // The tool goes before editor and stack; commands that are out of the kernel own their records.
    ~CounterFixture() { theStack.clear(); }

    QList<LmCvArrow*> marks(int aIdx) const { return theTool.theCounters.value(aIdx); }
    // Both end the program with a message where there is none.
    LmCvArrow* mark(int aIdx, int aPos) const;
    LmKernelObjectData* record(int aIdx) const;

    bool hasRecord(int aIdx) const { return theKernel.getObject(kType, aIdx) != nullptr; }
    int recordCount() const { return int(theKernel.getObjectsOfType(kType).size()); }
    QPolygon points(int aIdx) const { return stored(kType, aIdx, kPos).value<QPolygon>(); }
    QString name(int aIdx) const { return stored(kType, aIdx, kName).toString(); }
    QStringList texts(int aIdx) const;
    QList<QPoint> tips(int aIdx) const;
    LmCvObject* current() const { return theEditor.theCurrentTrack; }
    QString undoText() const { return theStack.undoText(); }

    /// Whether the record holds the marks as they stand, up to the region of interest.
    bool recordIsMarks(int aIdx) const;
    /// A record that the kernel gets from elsewhere, with one mark at each image point.
    void insertRecord(int aIdx, const QList<QPoint>& aImagePoints, bool aShown = true,
                      const QString& aName = QStringLiteral("7"));
    /// Makes counters one after the other of as many marks each as told, at places apart from each other.
    void makeCounters(const QList<int>& aCounts);

    LmCvManipCounter theTool{nullptr};
};

#endif
