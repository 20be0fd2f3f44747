#ifndef FRAMETEXT_H
#define FRAMETEXT_H

#include <QString>

class FrameTimes;

/// How frames and times are written for people. Frames count from 1.
namespace FrameText {

/// How far a written time may be from the real one, in seconds.
constexpr double kRounding = 0.0005;

/// Seconds as "12.040 s", or from a minute on as "1:02.040".
QString time(double aSeconds);
/// A number of seconds, or minutes and hours before colons; false for anything else.
bool fromText(const QString& aText, double& aSeconds);
/// "Frame 12", with its time where there is one: "Frame 12, 0.440 s".
QString frame(int aFrame, const FrameTimes& aTimes);

} // namespace FrameText

#endif
