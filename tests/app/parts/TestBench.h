#ifndef TESTBENCH_H
#define TESTBENCH_H

#include "Workbench.h"

#include <QString>
#include <QTemporaryDir>

/// A workbench with tools and a folder for files of its own.
class TestBench : public Workbench
{
public:
    /// The test ends with a message if the tools don't load.
    TestBench();

    QString path(const QString& aName) const { return theFolder.filePath(aName); }
    /// Writes a picture of the size into the folder and opens it; its path.
    QString openPicture(int aWidth, int aHeight, const QString& aName = QStringLiteral("picture.png"));
    /// Two distances, a calibration and an undone step on an open picture: work that could be lost.
    void doWork();

private:
    QTemporaryDir theFolder;
};

#endif
