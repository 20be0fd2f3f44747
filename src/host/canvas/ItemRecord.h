#ifndef ITEMRECORD_H
#define ITEMRECORD_H

class LmCvObject;
class LmKernelObjectData;
class QColor;

/// What the editor needs of an item's record in the kernel. Items without a tool or a record are left alone.
namespace ItemRecord {

/// Puts the value that the item shows on its label, worked out from its geometry in the middle of a drag, and
/// nothing where the geometry has no such value. A tool that knows values only from records leaves the label
/// as it is.
void showLiveValue(LmCvObject& aItem);

/// Brings the item back to its record, after a drag that is not to count.
void restore(LmCvObject& aItem);

/// A record that doesn't say is one that was never hidden.
bool isShown(const LmKernelObjectData& aData);
bool hasColor(const LmKernelObjectData& aData, const QColor& aColor);

} // namespace ItemRecord

#endif
