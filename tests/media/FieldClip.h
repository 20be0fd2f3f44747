#ifndef FIELDCLIP_H
#define FIELDCLIP_H

#include <QString>

/// A clip of interlaced frames whose fields are pictures of their own.
namespace FieldClip {

/// 128 x 128 pixels at 25 frames a second, the fields of a frame in one packet or in two, key frames
/// aGroupSize apart, every frame with its number for ClipNumber::read. False if it can't be written.
bool write(const QString& aPath, int aCount, int aGroupSize, bool aInOnePacket);

} // namespace FieldClip

#endif
