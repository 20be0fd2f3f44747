#ifndef WILDREGIONS_H
#define WILDREGIONS_H

#include "ProjectText.h"

#include <QMetaType>

Q_DECLARE_METATYPE(ProjectText::RegionText)

/// Regions that nobody can have drawn but that a project file can hold.
namespace WildRegions {

/// Test data of the columns "region" (ProjectText::RegionText) and "nodes", how many nodes it has to have.
void addRows();

/// The anchors of a square between the ends of the range of numbers.
constexpr char kEnds[] =
    "-2147483648,-2147483648 2147483647,-2147483648 2147483647,2147483647 -2147483648,2147483647";

} // namespace WildRegions

#endif
