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

/// The values of a region as they stand in the file: by default a closed square of 40 pixels around (100, 80)
/// with corners.
struct RegionText
{
    QByteArray thePoints = corners("-20,-20 20,-20 20,20 -20,20");
    QByteArray theStates = states(4);
    QByteArray theClosed = "true";
    QByteArray thePos = "100 80";
    QByteArray theKeyframes; // of the points

    /// Each anchor with both handles on it.
    static QByteArray corners(const QByteArray& aAnchors);
    /// The states of so many nodes whose handles keep one direction.
    static QByteArray states(int aCount);
};

QByteArray region(int aIdx, const RegionText& aText = RegionText());

} // namespace ProjectText

#endif
