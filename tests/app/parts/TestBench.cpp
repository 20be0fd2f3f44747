#include "TestBench.h"

#include "Document.h"
#include "Drawn.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "TestSamples.h"

TestBench::TestBench()
{
    QString error;
    if (!loadTools(nullptr, error))
        qFatal("%s", qPrintable(error));
}

QString TestBench::openPicture(int aWidth, int aHeight, const QString& aName)
{
    const QString file =
        MadeFiles::writeIn(theFolder, aName, MadeFiles::encoded(madePicture(aWidth, aHeight), "png"));
    QString error;
    if (!document().open(file, error))
        qFatal("%s", qPrintable(error));
    return file;
}

void TestBench::doWork()
{
    openPicture(120, 80);
    LmKSKernelData::getInstance()->setCalibration(QStringLiteral("lens"),
                                                  LmCalibData{12.0, QStringLiteral("mm")});
    LmKSKernelData::getInstance()->setCurrentCalibration(QStringLiteral("lens"));
    addDistance(*this, QPoint(10, 10), QPoint(50, 10));
    addDistance(*this, QPoint(10, 20), QPoint(10, 70));
    addDistance(*this, QPoint(0, 0), QPoint(3, 4));
    undoStack().undo();
}
