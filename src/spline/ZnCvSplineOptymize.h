#ifndef ZNCVSPLINEOPTYMIZE_H
#define ZNCVSPLINEOPTYMIZE_H

class LmCvRegion;

/// Smooths a freehand outline: drops crowded nodes and fits few cubic segments through the rest.
class ZnCvSplineOptymize
{
public:
    /// aError is the squared tolerance of the fit in canvas pixels. A node is dropped when its neighbours lie
    /// within aNeighbourDistance of each other (Manhattan). Returns the number of segments written; 0 when
    /// nothing was fitted and a negative number when the fit failed, and then the outline is only thinned.
    static int optymizeSpline(LmCvRegion* aRegion, float aError, float aNeighbourDistance);
};

#endif
