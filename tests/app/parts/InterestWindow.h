#ifndef INTERESTWINDOW_H
#define INTERESTWINDOW_H

#include "FindWindow.h"

#include <QRect>

/// A window in which a region of interest is set. Canvas coordinates are those of the region then.
class InterestWindow : public FindWindow
{
public:
    using FindWindow::FindWindow;

    /// The usual region of these tests.
    static constexpr QRect kRegion = QRect(50, 40, 200, 150);

    /// Pulls the rectangle around these pixels of the canvas.
    void setRegion(const QRect& aCanvasRect = kRegion);
    using RegionWindow::region;
    QRect region();
    /// Where the item stands on the picture.
    QRect place(const LmCvObject* aItem);
    /// The text of a field of the status bar.
    QString field(const char* aName);
    /// Start and end of a distance on the picture.
    QLine ends(int aIdx);
};

#endif
