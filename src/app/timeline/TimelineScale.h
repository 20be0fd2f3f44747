#ifndef TIMELINESCALE_H
#define TIMELINESCALE_H

/// Where frames stand on the time line: every frame is equally wide. The line shows all frames, or at a
/// higher zoom a part of them. Pure arithmetic, in pixels of the widget from its left edge.
class TimelineScale
{
public:
    /// The widest a frame gets, in pixels.
    static constexpr double kWidestFrame = 40.0;

    /// The margin is free space at both ends, so that marks of the first and the last frame are whole.
    void setExtent(int aWidth, int aMargin, int aFrameCount);
    /// Zooms so that the frame under aX stays there.
    void zoom(double aFactor, double aX);
    /// Moves the shown part.
    void scrollTo(double aFirstFrame);
    /// Moves the shown part as little as needed to show the frame.
    void reveal(int aFrame);

    /// The middle of the frame.
    double xOf(int aFrame) const;
    /// The frame whose middle is nearest, within the sequence.
    int frameAt(double aX) const;
    double pixelsPerFrame() const { return thePixelsPerFrame; }
    double firstShown() const { return theFirst; }
    /// How many frames are shown at once.
    double shownFrames() const;
    int frameCount() const { return theFrameCount; }

    /// The smallest of 1, 2, 5, 10, 20, ... frames that is at least so many pixels wide.
    int tickStep(double aLeastPixels) const;

private:
    void limit();
    double fittingScale() const;

    int theWidth = 0;
    int theMargin = 0;
    int theFrameCount = 1;
    double thePixelsPerFrame = 1.0;
    double theFirst = 0.0;  // frame at the left margin
    bool theFitting = true; // shows all frames, whatever the width
};

#endif
