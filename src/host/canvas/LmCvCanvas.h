#ifndef LMCVCANVAS_H
#define LMCVCANVAS_H

#include "Q3Canvas.h"

#include <QImage>
#include <QList>

class LmImage;

/// The canvas under the tools: its background is the region of interest of the current image. Canvas
/// coordinates are pixels of that region.
///
/// Below zoom 1 the picture is painted from a chain of halved copies, smoothed; above it every pixel is a
/// sharp square.
class LmCvCanvas : public Q3Canvas
{
    Q_OBJECT

public:
    explicit LmCvCanvas(QObject* aParent = nullptr);
    ~LmCvCanvas() override;

    /// Copies the image's region of interest, takes its size and repaints all; null clears the canvas.
    void showImage(const LmImage* aImage);
    /// The picture that is shown, at full size.
    QImage picture() const;

protected:
    void drawBackground(QPainter& aPainter, const QRect& aCanvasRect) override;

private:
    const QImage& levelFor(double aScale, int& aShift) const;

    mutable QList<QImage> theLevels; // full size first, then halved again and again, made when first needed
};

#endif
