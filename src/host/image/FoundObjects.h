#ifndef FOUNDOBJECTS_H
#define FOUNDOBJECTS_H

#include "PixelOutline.h"

#include <QSize>

/// Something that stands out from the ground.
struct FoundObject
{
    PixelOutline theOutline;
    int theContrast; // how far it stands out
    bool theDark;    // below the ground
    long long thePixels;
};

namespace FoundObjects {

/// Keeps what a person would call objects of all that was found in a field of the given size:
/// - crumbs at the rim of something fifty times as large belong to it;
/// - of the two kinds, brighter and darker than the ground, the one that makes less of the picture loses what
///   may be its shade: what touches or surrounds a much stronger object of the other kind, and, where there
///   is hardly anything of its kind, what touches the field's edge;
/// - nothing counts inside another object;
/// - faint marks don't count beside strong objects unless they are far above the noise of the ground.
void select(std::vector<FoundObject>& aObjects, double aGroundSpread, const QSize& aField);

} // namespace FoundObjects

#endif
