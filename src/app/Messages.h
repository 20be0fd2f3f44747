#ifndef MESSAGES_H
#define MESSAGES_H

#include <QString>

class QWidget;

/// Tells the user one sentence in a message box over the window.
void tellError(QWidget* aWindow, const QString& aSentence);

/// Tells the name and version of the program.
void tellAbout(QWidget* aWindow);

#endif
