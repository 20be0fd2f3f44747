#ifndef TIMELINEVIEW_H
#define TIMELINEVIEW_H

#include "TimelineScale.h"

#include <QAbstractScrollArea>
#include <QTimer>

class KeyframeTrack;
class Media;

/// The time line: a ruler of frames and times on which the position is drawn along, and below it the
/// keyframes of the current object, which can be selected and dragged. The wheel zooms.
class TimelineView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    TimelineView(const Media& aMedia, KeyframeTrack& aTrack, QWidget* aParent);

    const QList<int>& selectedFrames() const { return theSelected; }
    void select(const QList<int>& aFrames);
    void selectAll();

    // Places on the viewport, in pixels.
    QPoint keyframePlace(int aFrame) const;
    QPoint rulerPlace(int aFrame) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void frameWanted(int aFrame);
    void selectionChanged();
    /// The frame under the pointer, for a menu there.
    void menuWanted(int aFrame, const QPoint& aGlobalPos);

protected:
    bool event(QEvent* aEvent) override;
    bool viewportEvent(QEvent* aEvent) override;
    void paintEvent(QPaintEvent* aEvent) override;
    void resizeEvent(QResizeEvent* aEvent) override;
    void scrollContentsBy(int aDx, int aDy) override;
    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* aEvent) override;
    void wheelEvent(QWheelEvent* aEvent) override;
    void keyPressEvent(QKeyEvent* aEvent) override;
    void contextMenuEvent(QContextMenuEvent* aEvent) override;

private:
    enum Gesture {
        kNone,
        kScrub, // the position follows the mouse along the ruler
        kMove,  // the selected keyframes follow the mouse
        kBand   // keyframes inside the rectangle become selected
    };

    void mediaOpened();
    void frameShown(int aFrame);
    void trackChanged();
    void updateScale();
    void updateDescription();
    /// The keyframe under the pointer, or -1.
    int keyframeAt(const QPoint& aPos) const;
    void pressKeyframe(int aFrame, Qt::KeyboardModifiers aModifiers);
    void selectBand();
    void endGesture(bool aAbort);
    QAction* actionOf(const QKeyEvent& aEvent) const;

    static constexpr int kKeyframeRadius = 6; // pixels
    static constexpr int kTickHeight = 6;     // pixels

    int rulerHeight() const;
    int rowMiddle() const;
    void paintRuler(QPainter& aPainter) const;
    void paintTick(QPainter& aPainter, int aNumber, bool aLabelled) const;
    void paintKeyframes(QPainter& aPainter) const;
    void paintKeyframe(QPainter& aPainter, int aFrame, int aShift) const;
    void paintPosition(QPainter& aPainter) const;
    QString rowText() const;

    const Media& theMedia;
    KeyframeTrack& theTrack;
    TimelineScale theScale;
    QList<int> theSelected; // keyframes, ascending
    QList<int> theKnown;    // keyframes of the track as last told
    QString theKnownObject;
    QList<int> theFresh; // keyframes that have just appeared, lit up for a moment
    QTimer theFreshTimer;
    Gesture theGesture = kNone;
    QPoint thePress;   // viewport
    QPoint theMouse;   // viewport
    int theDragBy = 0; // frames
};

#endif
