#ifndef PICTUREEND_H
#define PICTUREEND_H

#include <QString>

/// Finds picture files that end too early where the decoder would not tell: JPEG and BMP, whose missing rows
/// it fills.
namespace PictureEnd {

/// True if the file is a JPEG or an uncompressed BMP whose end is missing; false for all other files.
bool isCutOff(const QString& aPath);

} // namespace PictureEnd

#endif
