#ifndef BENCHSTATE_H
#define BENCHSTATE_H

#include <QString>

class Workbench;

/// Everything that a refused file must leave as it was, as text to compare: records, calibrations, picture
/// and frame in the kernel, items on the canvas, undo stack, and what the title shows.
QString benchState(Workbench& aBench);

/// The records of the kernel alone, as XML.
QString recordsText();

#endif
