#ifndef OBJECTFIXTURE_H
#define OBJECTFIXTURE_H

#include "ToolFixture.h"

/// An object tool, started and current, with its items and records. Canvas point + (40, 30) is the image
/// point.
template <class Tool, class Item>
class ObjectFixture : public ToolFixture
{
public:
    static constexpr int kType = Item::kRtti;

    ObjectFixture() { start(theTool); }
    // The tool goes before editor and stack; commands that are out of the kernel own their records.
    ~ObjectFixture() { theStack.clear(); }

    // Both end the program with a message where there is none.
    Item* item(int aIdx) const
    {
        LmCvObject* found = theTool.theCvObjects.value(aIdx);
        if (!found)
            qFatal("there is no object %d on the canvas", aIdx);
        return static_cast<Item*>(found);
    }
    LmKernelObjectData* record(int aIdx) const
    {
        LmKernelObjectData* found = theKernel.getObject(kType, aIdx);
        if (!found)
            qFatal("there is no record of object %d", aIdx);
        return found;
    }
    bool hasRecord(int aIdx) const { return theKernel.getObject(kType, aIdx) != nullptr; }
    int recordCount() const { return int(theKernel.getObjectsOfType(kType).size()); }
    QPoint storedPoint(int aIdx, int aParam) const { return stored(kType, aIdx, aParam).toPoint(); }

    Tool theTool{nullptr};
};

#endif
