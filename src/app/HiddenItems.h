#ifndef HIDDENITEMS_H
#define HIDDENITEMS_H

/// Puts the items of hidden objects where they belong. The tools leave them where they are when the picture
/// moves or is scaled under them, and there they would come back one day.
void placeHiddenItems();

#endif
