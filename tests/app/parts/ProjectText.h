#ifndef PROJECTTEXT_H
#define PROJECTTEXT_H

#include <QByteArray>
#include <QString>

/// Pieces of project files as text, for files that the program itself would never write.
namespace ProjectText {

/// A whole project: the text of its picture, calibrations and objects within the root of the version.
QByteArray project(const QByteArray& aPicture, const QByteArray& aCalibrations, const QByteArray& aObjects,
                   const QByteArray& aVersion = "1");
QByteArray picture(const QString& aPath, int aWidth, int aHeight);
/// A complete distance from (10, 20) to (30, 40).
QByteArray distance(int aIdx);

} // namespace ProjectText

#endif
