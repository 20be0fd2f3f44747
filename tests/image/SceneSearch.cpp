#include "SceneSearch.h"

#include "LmImageProcessor.h"

QLinkedList<LmCVSequence> SceneSearch::search(const LmImage& aImage, int aLeastArea)
{
    QLinkedList<LmCVSequence> found;
    const bool done = LmImageProcessor::getInstance(nullptr)->findContourSeq(
        found, &aImage, aLeastArea, aImage.theImageSize, false, false);
    if (!done)
        qFatal("the search refused an image");
    return found;
}

double SceneSearch::meanOverlap(const DrawnScene::Outcome& aOutcome)
{
    return aOutcome.theFound > 0 ? aOutcome.theOverlapSum / aOutcome.theFound : 0.0;
}

void SceneSearch::tell(const char* aWhat, const DrawnScene::Outcome& aOutcome)
{
    qInfo("%s: %d found, %d missed, %d false, overlap %.3f", aWhat, aOutcome.theFound, aOutcome.theMissed,
          aOutcome.theFalse, meanOverlap(aOutcome));
}

DrawnScene::Thing SceneSearch::disc(double aX, double aY, double aRadius, double aContrast)
{
    return {DrawnScene::kDisc, QPointF(aX, aY), aRadius, 0.0, aContrast};
}
