#ifndef PROJECTFILE_H
#define PROJECTFILE_H

#include "LmCalibData.h"

#include <QDomDocument>
#include <QList>
#include <QMap>
#include <QRect>
#include <QSize>
#include <QString>

#include <functional>

/// What a project file holds, apart from where it is.
struct ProjectContent
{
    QString thePicture; // absolute path
    QSize thePictureSize;
    QRect theRegion; // inside the picture; null for the whole
    int theFrame = 0;
    int theFrameCount = 1;
    bool theViewAnimated = false;
    QMap<QString, LmCalibData> theCalibrations;
    QString theCurrentCalibration;
    QDomDocument theDocument; // keeps the elements alive
    /// Checked, every one can be constructed; in order of type and index.
    QList<QDomElement> theObjects;
};

/// Reads and writes `.mtp` files: XML of format version 1. The picture is named relative to the file, and
/// absolute for the case that only one of the two was moved.
namespace ProjectFile {

constexpr int kVersion = 1;

/// Told how many of the objects have been checked; false stops the reading.
using Progress = std::function<bool(int aDone, int aCount)>;

/// The object type that a saved element is of; 0 for none.
int objectType(const QDomElement& aElement);

/// Whether the file is a project rather than a picture: by its ending, or by its first element.
bool isProject(const QString& aPath);

/// Reads and checks a whole file, touching nothing else. False with one sentence (with line and element where
/// there is one) in aError for anything wrong: no XML, no project, a newer version, an unknown type, a
/// duplicate object, a missing or wrong parameter.
bool read(const QString& aPath, ProjectContent& aContent, QString& aError,
          const Progress& aProgress = Progress());

/// Writes picture reference, calibrations and the kernel's objects. The former file stays beside it as
/// `NAME.mtp~`. False with one sentence in aError, and the former file untouched, when it can't be written.
bool write(const QString& aPath, const QString& aPicture, int aFrame, QString& aError);

} // namespace ProjectFile

#endif
