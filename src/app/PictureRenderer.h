#ifndef PICTURERENDERER_H
#define PICTURERENDERER_H

#include <QImage>
#include <QString>

class LmCvEditor;

/// The picture with its objects burned in, at the picture's own resolution.
namespace PictureRenderer {

/// The region of interest with its objects, labels and heads at the sizes they have at zoom 1, and with a
/// scale bar if it is wanted; null without a picture.
QImage render(LmCvEditor& aEditor, bool aScaleBar = false);

/// Renders into a file, written whole or not at all; false with one sentence in aError.
bool renderTo(LmCvEditor& aEditor, const QString& aPath, QString& aError, bool aScaleBar = false);

} // namespace PictureRenderer

#endif
