#ifndef HOLLOWCLIP_H
#define HOLLOWCLIP_H

#include <QSize>
#include <QString>

/// Files that are videos by their header and hold no frame.
namespace HollowClip {

/// A video of MPEG-4 that is said to have this size, with one packet of which nothing can be made. False if
/// it can't be written.
bool write(const QString& aPath, const QSize& aSize);

} // namespace HollowClip

#endif
