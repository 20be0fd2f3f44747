#ifndef REGIONFRAME_H
#define REGIONFRAME_H

#include "Q3CanvasRectangle.h"

/// The frame that is pulled around a region of interest: black dashes on white, to be seen on every picture.
class RegionFrame : public Q3CanvasRectangle
{
public:
    explicit RegionFrame(Q3Canvas* aCanvas);
    ~RegionFrame() override;

    void setRect(const QRect& aRect);

protected:
    void drawShape(QPainter& aPainter) override;
};

#endif
