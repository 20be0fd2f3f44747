#ifndef FRAMEGUARD_H
#define FRAMEGUARD_H

#include <QtGlobal>

class LmImage;

/// Lets tools measure at another frame for as long as it lives: the kernel has that frame, and its picture if
/// one is given, and tells nobody. No event may be handled meanwhile.
class FrameGuard
{
public:
    explicit FrameGuard(int aFrame, LmImage* aImage = nullptr);
    ~FrameGuard();
    Q_DISABLE_COPY_MOVE(FrameGuard)

private:
    quint32 theFrame;
    LmImage* theImage; // not owned
};

#endif
