#ifndef COMMANDTEXT_H
#define COMMANDTEXT_H

#include <QString>

/// An entry of the undo list, such as "Create Distance 3": the translated text, in the context "UndoCommand",
/// with the object in the place of %1.
QString commandText(const char* aText, int aType, int aIdx);

#endif
