#ifndef TESTSAMPLES_H
#define TESTSAMPLES_H

#include <QImage>
#include <QString>

/// The path of a sample picture in the shared folder, or an empty string where that folder isn't there.
QString sharedSample(const QString& aName);

/// A picture of gradients and squares, the same at every call, for tests that stand alone.
QImage madePicture(int aWidth, int aHeight);

#endif
