#ifndef PROJECTREADER_H
#define PROJECTREADER_H

#include "ProjectFile.h"

#include <QCoreApplication>
#include <QSet>

/// Reads one project file and checks all of it, so that whoever uses the content can't fail halfway.
class ProjectReader
{
    Q_DECLARE_TR_FUNCTIONS(ProjectReader)

public:
    ProjectReader(const QString& aPath, ProjectContent& aContent, const ProjectFile::Progress& aProgress);

    bool read();
    /// What was wrong: one sentence for the user.
    const QString& error() const { return theError; }

private:
    bool readBytes(QByteArray& aBytes);
    bool checkStructure(const QByteArray& aBytes);
    bool checkRoot(class QXmlStreamReader& aReader);
    bool readRoot();
    bool readPicture(const QDomElement& aElement);
    bool readRegion(const QDomElement& aElement);
    bool readCalibrations(const QDomElement& aElement);
    bool readCalibration(const QDomElement& aElement);
    bool readObjects(const QDomElement& aElement);
    bool readObject(const QDomElement& aElement, QPair<int, int>& aKey);
    QString findPicture(const QDomElement& aElement) const;

    bool fail(const QString& aSentence);
    /// Something wrong in the content: adds the file's name in front and what to do next behind.
    bool damaged(const QString& aWhat);
    bool damagedAt(const QDomElement& aElement, const QString& aWhat);
    QString subject() const;

    QString thePath;
    ProjectContent& theContent;
    const ProjectFile::Progress& theProgress;
    QSet<QPair<int, int>> theKnownObjects; // type and index
    QString theError;
};

#endif
