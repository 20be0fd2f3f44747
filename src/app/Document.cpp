#include "Document.h"

#include "CmdAnimateView.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LoadProgress.h"
#include "Media.h"
#include "ProjectFile.h"

#include <QDir>
#include <QFileInfo>
#include <QUndoStack>

#include <algorithm>
#include <utility>

namespace {

LmKSKernelData* kernel()
{
    return LmKSKernelData::getInstance();
}

void clearCalibrations()
{
    kernel()->setCurrentCalibration(QString());
    const QStringList names = kernel()->calibrations().keys();
    for (const QString& name : names)
        kernel()->removeCalibration(name);
}

void removeRecords()
{
    const QList<int> types = kernel()->theObjects.keys();
    for (int type : types) {
        const QList<int> indices = kernel()->getObjectsOfType(type).keys();
        for (int idx : indices)
            delete kernel()->takeObject(type, idx);
    }
}

/// Keeps the view from painting every single object of a long load.
class QuietView
{
public:
    explicit QuietView(LmCvEditor& aEditor) : theEditor(aEditor) { theEditor.setUpdatesEnabled(false); }
    ~QuietView() { theEditor.setUpdatesEnabled(true); }
    Q_DISABLE_COPY_MOVE(QuietView)

private:
    LmCvEditor& theEditor;
};

} // namespace

Document::Document(Media& aMedia, QUndoStack& aStack, QObject* aParent)
    : QObject(aParent), theMedia(aMedia), theStack(aStack)
{
}

bool Document::open(const QString& aPath, QString& aError)
{
    return ProjectFile::isProject(aPath) ? openProject(aPath, aError) : openPicture(aPath, aError);
}

bool Document::openPicture(const QString& aPath, QString& aError)
{
    if (!openMedia(aPath, aError))
        return false;
    clearObjects();
    theProjectPath.clear();
    Q_EMIT changed();
    return true;
}

bool Document::openLive(std::unique_ptr<MediaSource> aSource, const QString& aName, QString& aError)
{
    if (!theMedia.open(std::move(aSource), aError))
        return false;
    clearObjects();
    theProjectPath.clear();
    theLiveName = aName;
    Q_EMIT changed();
    return true;
}

bool Document::openProject(const QString& aPath, QString& aError)
{
    ProjectContent content;
    if (!readProject(aPath, content, aError))
        return false;
    // Nothing can fail from here on.
    const QuietView quiet(theMedia.editor());
    clearObjects();
    openPictureOf(content, aError);
    setCalibrations(content);
    constructObjects(content);
    theProjectPath = QFileInfo(aPath).absoluteFilePath();
    Q_EMIT changed();
    return true;
}

bool Document::readProject(const QString& aPath, ProjectContent& aContent, QString& aError)
{
    constexpr int kManyObjects = 2000;
    LoadProgress progress(tr("Checking the objects..."), theProgressParent, kManyObjects);
    return ProjectFile::read(aPath, aContent, aError,
                             [&progress](int aDone, int aCount) { return progress.report(aDone, aCount); });
}

void Document::clearObjects()
{
    LmCvEditor& editor = theMedia.editor();
    if (editor.theCurrentManipulator)
        editor.theCurrentManipulator->abortAction();
    theStack.clear();
    removeRecords();
    clearCalibrations();
    if (LmCvManipulator::theCurrentViewAnimated)
        CmdAnimateView::show(false);
    thePictureRelocated = false;
    theLiveName.clear();
}

bool Document::openMedia(const QString& aPath, QString& aError)
{
    LoadProgress progress(tr("Reading %1...").arg(QFileInfo(aPath).fileName()), theProgressParent, 1);
    return theMedia.open(aPath, aError,
                         [&progress](int aDone, int aCount) { return progress.report(aDone, aCount); });
}

void Document::openPictureOf(const ProjectContent& aContent, QString& aError)
{
    aError.clear();
    if (!openMedia(aContent.thePicture, aError))
        theMedia.openPlaceholder(aContent.thePicture, aContent.thePictureSize, aContent.theFrameCount);
    // In a picture of another size the region would show some other part.
    if (theMedia.image()->size() == aContent.thePictureSize)
        theMedia.setRegion(aContent.theRegion);
    const int frame = qMin(aContent.theFrame, theMedia.frameCount() - 1);
    if (QString frameError; frame > 0 && !theMedia.showFrame(frame, frameError))
        aError = frameError;
    if (const QString other = difference(aContent.thePictureSize, aContent.theFrameCount); !other.isEmpty())
        aError = other;
}

QString Document::difference(const QSize& aSize, int aFrameCount) const
{
    const QString name = QDir::toNativeSeparators(theMedia.path());
    if (theMedia.image()->size() != aSize)
        return tr("The picture %1 has another size than when the project was saved; check the calibration.")
            .arg(name);
    if (theMedia.frameCount() != aFrameCount)
        return tr("The file %1 has %2 frames instead of %3 as when the project was saved; check the "
                  "keyframes.")
            .arg(name)
            .arg(theMedia.frameCount())
            .arg(aFrameCount);
    return QString();
}

void Document::setCalibrations(const ProjectContent& aContent)
{
    for (auto at = aContent.theCalibrations.begin(); at != aContent.theCalibrations.end(); ++at)
        kernel()->setCalibration(at.key(), at.value());
    kernel()->setCurrentCalibration(aContent.theCurrentCalibration);
}

void Document::constructObjects(const ProjectContent& aContent)
{
    // One macro, so that the stack announces the many creations once.
    theStack.beginMacro(QString());
    for (const QDomElement& element : aContent.theObjects)
        if (LmCvManipulator* tool = kernel()->getCvManipulator(ProjectFile::objectType(element)))
            tool->constructDataObject(element, nullptr);
    theStack.endMacro();
    theStack.clear();
    // Tools make their items from the default keyframes; the frame puts those that follow it in their places.
    if (aContent.theViewAnimated)
        CmdAnimateView::show(true);
    else
        kernel()->showFrame(theMedia.frame(), false);
}

bool Document::locatePicture(const QString& aPath, QString& aError)
{
    if (!isPictureMissing()) {
        aError = tr("The picture of this project is already shown; open another picture instead.");
        return false;
    }
    const int frameCount = theMedia.frameCount();
    LoadProgress progress(tr("Reading %1...").arg(QFileInfo(aPath).fileName()), theProgressParent, 1);
    if (!theMedia.replacePlaceholder(
            aPath, aError, [&progress](int aDone, int aCount) { return progress.report(aDone, aCount); }))
        return false;
    if (const QString other = difference(theMedia.image()->size(), frameCount); !other.isEmpty())
        aError = other;
    thePictureRelocated = true;
    Q_EMIT changed();
    return true;
}

bool Document::save(const QString& aPath, QString& aError)
{
    if (theKeeper && !theKeeper(aError))
        return false;
    // What is in no file when the project is opened again doesn't count.
    const int kept = qMax(1, theMedia.keptFrameCount());
    const Int64 present = std::exchange(kernel()->theFrameCount, kept);
    const bool isWritten =
        ProjectFile::write(aPath, theMedia.path(), qMin(theMedia.frame(), kept - 1), aError);
    kernel()->theFrameCount = present;
    if (!isWritten)
        return false;
    theProjectPath = QFileInfo(aPath).absoluteFilePath();
    thePictureRelocated = false;
    theStack.setClean();
    Q_EMIT changed();
    return true;
}

void Document::startAnew(bool aForgetsProject)
{
    if (aForgetsProject)
        theProjectPath.clear();
    const bool wasModified = isModified(); // a calibration is work too
    const bool hadObjects = std::any_of(kernel()->theObjects.cbegin(), kernel()->theObjects.cend(),
                                        [](const auto& aObjects) { return !aObjects.isEmpty(); });
    theStack.clear();
    if (hadObjects || wasModified)
        theStack.resetClean();
    Q_EMIT changed();
}

bool Document::isPictureMissing() const
{
    return theMedia.isPlaceholder();
}

bool Document::isModified() const
{
    return !theStack.isClean() || thePictureRelocated;
}

QString Document::displayName() const
{
    if (theProjectPath.isEmpty() && !theLiveName.isEmpty())
        return theLiveName;
    return QFileInfo(theProjectPath.isEmpty() ? theMedia.path() : theProjectPath).fileName();
}
