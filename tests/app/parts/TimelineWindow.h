#ifndef TIMELINEWINDOW_H
#define TIMELINEWINDOW_H

#include "WindowFixture.h"

class TimelineView;

/// A window with a sequence of pages and one animated distance, whose time line is used with the mouse and
/// the keyboard.
class TimelineWindow : public WindowFixture
{
public:
    static constexpr int kPages = 12;

    TimelineWindow();

    TimelineView& line();
    /// Pulls on the line from one place to another with several moves.
    void pull(const QPoint& aFrom, const QPoint& aTo, Qt::KeyboardModifiers aModifiers = Qt::NoModifier);
    void clickLine(const QPoint& aPlace, Qt::KeyboardModifiers aModifiers = Qt::NoModifier);
    void lineKey(Qt::Key aKey, Qt::KeyboardModifiers aModifiers = Qt::NoModifier);
    void goTo(int aFrame);

    /// Draws a distance between (100, 100) and (300, 100) on the first frame, animated, and moves it by as
    /// many pixels to the right as the frame has as its number.
    void drawMoving(const QList<int>& aFrames);
    /// The image x of the first distance's middle at a frame.
    int middleAt(int aFrame);
    QList<long long> keyframes(int aIdx = 1);
};

#endif
