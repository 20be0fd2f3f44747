#ifndef SCENESEARCH_H
#define SCENESEARCH_H

#include "DrawnScene.h"

/// Searches drawn scenes and tells what came of it.
namespace SceneSearch {

/// All objects of at least so many pixels in the image's region; ends the program if the search refuses it.
QLinkedList<LmCVSequence> search(const LmImage& aImage, int aLeastArea = 5);

double meanOverlap(const DrawnScene::Outcome& aOutcome);
void tell(const char* aWhat, const DrawnScene::Outcome& aOutcome);
DrawnScene::Thing disc(double aX, double aY, double aRadius, double aContrast);

} // namespace SceneSearch

#endif
