#ifndef WATCHEDVIEW_H
#define WATCHEDVIEW_H

#include "CanvasTestItems.h"
#include "Q3CanvasView.h"
#include "TestSamples.h"

#include <QPaintEvent>
#include <QScreen>
#include <QtTest>

/// A canvas with a picture behind the items, painted smoothly as a photograph would be.
class PictureCanvas : public Q3Canvas
{
public:
    PictureCanvas(int aWidth, int aHeight)
        : Q3Canvas(aWidth, aHeight), thePicture(madePicture(aWidth, aHeight))
    {
    }

protected:
    void drawBackground(QPainter& aPainter, const QRect&) override { aPainter.drawImage(0, 0, thePicture); }

private:
    QImage thePicture;
};

/// Notes what is painted and may show a foreground.
class WatchedView : public Q3CanvasView
{
public:
    using Q3CanvasView::Q3CanvasView;

    QRegion takePainted() { return std::exchange(thePainted, {}); }

    QRegion thePainted;
    int thePaintEvents = 0;
    bool theForeground = false;

protected:
    void paintEvent(QPaintEvent* aEvent) override
    {
        thePainted += aEvent->region();
        ++thePaintEvents;
        Q3CanvasView::paintEvent(aEvent);
    }

    void drawForeground(QPainter& aPainter) override
    {
        if (theForeground)
            aPainter.fillRect(10, 10, 20, 20, Qt::cyan);
    }

    bool hasForeground() const override { return theForeground; }
};

inline void showAt(Q3CanvasView& aView, const QSize& aSize)
{
    aView.setFrameShape(QFrame::NoFrame);
    aView.resize(aSize);
    aView.show();
    QVERIFY(QTest::qWaitForWindowExposed(&aView));
    if (aView.canvas())
        aView.canvas()->update(); // what was marked before the test's own changes
    QCoreApplication::processEvents();
}

/// What stands on the screen, without asking for a repaint.
inline QImage shown(const Q3CanvasView& aView)
{
    QCoreApplication::processEvents();
    const QImage whole = aView.screen()->grabWindow(aView.winId()).toImage();
    return whole.copy(aView.viewport()->geometry()).convertToFormat(QImage::Format_RGB32);
}

inline QImage repainted(Q3CanvasView& aView)
{
    QCoreApplication::processEvents();
    return aView.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

#endif
