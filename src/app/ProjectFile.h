#ifndef PROJECTFILE_H
#define PROJECTFILE_H

#include "LmCalibData.h"

#include <QDomDocument>
#include <QList>
#include <QMap>
#include <QSize>
#include <QString>

/// What a project file holds, apart from where it is.
struct ProjectContent
{
    QString thePicture; // absolute path; empty without a picture
    QSize thePictureSize;
    int theFrame = 0;
    QMap<QString, LmCalibData> theCalibrations;
    QString theCurrentCalibration;
    QDomDocument theDocument;     // keeps the elements alive
    QList<QDomElement> theObjects; // checked: every one can be constructed
};

/// Reads and writes `.mtp` files: XML of format version 1. The picture is named relative to the file where it can be.
namespace ProjectFile {

constexpr int kVersion = 1;

/// Reads and checks a whole file, touching nothing else. False with one sentence (with line and element where there is
/// one) in aError for anything wrong: no XML, no project, a newer version, an unknown type, a duplicate object, a
/// missing or wrong parameter.
bool read(const QString& aPath, ProjectContent& aContent, QString& aError);

/// Writes picture reference, calibrations and the kernel's objects. The former file stays beside it as `NAME.mtp~`.
/// False with one sentence in aError, and the former file untouched, when it can't be written.
bool write(const QString& aPath, const QString& aPicture, int aFrame, QString& aError);

} // namespace ProjectFile

#endif
