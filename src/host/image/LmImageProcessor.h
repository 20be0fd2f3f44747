#ifndef LMIMAGEPROCESSOR_H
#define LMIMAGEPROCESSOR_H

#include <QString>

class LmImage;

/// Operations on images. All of them work on the regions of interest of their images and do nothing,
/// returning false, for images whose sizes or channel counts don't fit each other.
class LmImageProcessor
{
public:
    /// The one processor. The first call may give a function that takes messages for a log; null keeps
    /// silent.
    static LmImageProcessor* getInstance(void (*aLog)(const QString&));

    /// Copies the source's region of interest into the target's; sizes and channels must be equal.
    bool copy(const LmImage* aSource, LmImage* aTarget);
    /// Copies one channel of the source into one channel of the target.
    bool copyChannel(const LmImage* aSource, int aSourceChannel, LmImage* aTarget, int aTargetChannel);
    /// Luma by ITU-R BT.601, 0.299 R + 0.587 G + 0.114 B rounded, of a 3 or 4 channel image; copies a gray
    /// one.
    bool RGBtoGrayscale(const LmImage* aSource, LmImage* aTarget);

private:
    LmImageProcessor() = default;
    bool reject(const char* aWhat) const;

    void (*theLog)(const QString&) = nullptr;
};

#endif
