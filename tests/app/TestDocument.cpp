#include "BenchState.h"
#include "CmdCreateObject.h"
#include "Document.h"
#include "Drawn.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "Sentence.h"
#include "TestBench.h"
#include "TestFont.h"
#include "TestSamples.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSignalSpy>

/// Opening, saving and what counts as changed.
class TestDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theBench.reset(); }
    void savedWorkIsFoundAgain();
    void savingMakesTheWorkClean();
    void loadedProjectIsCleanAndCanNotBeUndone();
    void openedPictureReplacesObjectsAndCalibrations();
    void displayNameIsTheProjectsOrThePictures();
    void projectOfAnotherEndingOpens();
    void frameIsFoundAgain();
    void animatedObjectsStandAtTheFrameAfterLoading();
    void hiddenObjectsStayHidden();
    void refusedPictureKeepsTheOldOne();
    void loadOfManyObjectsGrowsInStep();

private:
    QString saved(const QString& aName);
    void open(const QString& aPath);

    std::unique_ptr<TestBench> theBench;
    QString theError;
};

namespace {

LmKernelObjectData* record(int aIdx)
{
    return LmKSKernelData::getInstance()->getObject(kDistanceType, aIdx);
}

LmCvObject* item(int aIdx)
{
    return LmKSKernelData::getInstance()->getCvManipulator(kDistanceType)->getCvObject(aIdx);
}

/// Index of the parameter "pos" of a distance.
constexpr int kPos = 3;

} // namespace

void TestDocument::init()
{
    theBench = std::make_unique<TestBench>();
    theBench->doWork();
    theError.clear();
}

QString TestDocument::saved(const QString& aName)
{
    const QString path = theBench->path(aName);
    if (!theBench->document().save(path, theError))
        qFatal("%s", qPrintable(theError));
    return path;
}

void TestDocument::open(const QString& aPath)
{
    QVERIFY2(theBench->document().open(aPath, theError), qPrintable(theError));
}

void TestDocument::savedWorkIsFoundAgain()
{
    const QString path = saved(QStringLiteral("a.mtp"));
    const QString records = recordsText();
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    const QMap<QString, LmCalibData> calibrations = kernel->calibrations();
    theBench->openPicture(33, 22, QStringLiteral("other.png"));
    QCOMPARE(kernel->getObjectsOfType(kDistanceType).size(), 0);
    open(path);
    QCOMPARE(theError, QString());
    QCOMPARE(recordsText(), records);
    QCOMPARE(kernel->calibrations(), calibrations);
    QString current;
    kernel->getCurrentCalibData(current);
    QCOMPARE(current, QStringLiteral("lens"));
    QCOMPARE(theBench->editor().cvItems().size(), 2);
    // 40 of 120 pixels where the picture is 12 mm wide; the label is there from the start.
    QVERIFY2(item(1)->labelText().contains(QStringLiteral("4.00mm")), qPrintable(item(1)->labelText()));
}

void TestDocument::savingMakesTheWorkClean()
{
    QVERIFY(theBench->document().isModified());
    QSignalSpy changed(&theBench->document(), &Document::changed);
    const QString path = saved(QStringLiteral("a.mtp"));
    QVERIFY(!theBench->document().isModified());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(theBench->document().projectPath(), path);
    theBench->undoStack().undo();
    QVERIFY(theBench->document().isModified());
    theBench->undoStack().redo();
    QVERIFY(!theBench->document().isModified());
}

void TestDocument::loadedProjectIsCleanAndCanNotBeUndone()
{
    const QString path = saved(QStringLiteral("a.mtp"));
    QVERIFY(addDistance(*theBench, QPoint(1, 2), QPoint(3, 4)));
    open(path);
    QVERIFY(!theBench->document().isModified());
    QCOMPARE(theBench->undoStack().count(), 0);
    QCOMPARE(LmKSKernelData::getInstance()->getObjectsOfType(kDistanceType).size(), 2);
}

void TestDocument::openedPictureReplacesObjectsAndCalibrations()
{
    saved(QStringLiteral("a.mtp"));
    theBench->openPicture(50, 40);
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QVERIFY(kernel->getObjectsOfType(kDistanceType).isEmpty());
    QVERIFY(kernel->calibrations().isEmpty());
    QVERIFY(theBench->editor().cvItems().isEmpty());
    QCOMPARE(theBench->undoStack().count(), 0);
    QCOMPARE(kernel->getCurrentImageSize(), QSize(50, 40));
    QVERIFY(theBench->document().projectPath().isEmpty());
    QVERIFY(!theBench->document().isModified());
}

void TestDocument::displayNameIsTheProjectsOrThePictures()
{
    QCOMPARE(theBench->document().displayName(), QStringLiteral("picture.png"));
    saved(QStringLiteral("my work.mtp"));
    QCOMPARE(theBench->document().displayName(), QStringLiteral("my work.mtp"));
}

void TestDocument::projectOfAnotherEndingOpens()
{
    const QString path = saved(QStringLiteral("a.mtp"));
    const QString renamed = theBench->path(QStringLiteral("a.old"));
    QVERIFY(QFile::rename(path, renamed));
    theBench->openPicture(120, 80);
    open(renamed);
    QCOMPARE(LmKSKernelData::getInstance()->getObjectsOfType(kDistanceType).size(), 2);
}

void TestDocument::frameIsFoundAgain()
{
    const QString pages = theBench->path(QStringLiteral("pages.tif"));
    MadeFiles::write(pages, MadeFiles::tiff({madePicture(20, 10), madePicture(30, 15), madePicture(40, 20)}));
    open(pages);
    QVERIFY(theBench->media().showFrame(2, theError));
    const QString path = saved(QStringLiteral("a.mtp"));
    theBench->openPicture(50, 50, QStringLiteral("other.png"));
    open(path);
    QCOMPARE(theError, QString());
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QCOMPARE(kernel->theCurrentFrame, 2u);
    QCOMPARE(kernel->theFrameCount, Int64(3));
    QCOMPARE(kernel->getCurrentImageSize(), QSize(40, 20));
    // Without the picture too, since the values of animated objects hang on the frame.
    QVERIFY(QFile::remove(pages));
    open(path);
    QVERIFY(theBench->document().isPictureMissing());
    QCOMPARE(kernel->theCurrentFrame, 2u);
    QCOMPARE(kernel->theFrameCount, Int64(3));
    QVERIFY(theBench->media().showFrame(1, theError));
    QCOMPARE(kernel->theCurrentFrame, 1u);
}

void TestDocument::animatedObjectsStandAtTheFrameAfterLoading()
{
    const QString pages = theBench->path(QStringLiteral("pages.tif"));
    MadeFiles::write(pages, MadeFiles::tiff({madePicture(90, 90), madePicture(90, 90)}));
    open(pages);
    QVERIFY(addDistance(*theBench, QPoint(10, 10), QPoint(20, 10)));
    record(1)->theAnimated = true;
    record(1)->storeValue(kPos, 0, QPoint(15, 10));
    record(1)->storeValue(kPos, 1, QPoint(55, 66));
    QVERIFY(theBench->media().showFrame(1, theError));
    const QRect placeAtFrame = item(1)->boundingRect();
    const QString path = saved(QStringLiteral("a.mtp"));
    QVERIFY(theBench->media().showFrame(0, theError));
    QVERIFY(item(1)->boundingRect() != placeAtFrame);
    open(path);
    QCOMPARE(LmKSKernelData::getInstance()->theCurrentFrame, 1u);
    QCOMPARE(item(1)->boundingRect(), placeAtFrame);
}

void TestDocument::hiddenObjectsStayHidden()
{
    LmCvManipulator* tool = LmKSKernelData::getInstance()->getCvManipulator(kDistanceType);
    tool->showCvObject(item(2), false);
    const QString path = saved(QStringLiteral("a.mtp"));
    open(path);
    QVERIFY(item(1)->isVisible());
    QVERIFY(!item(2)->isVisible());
}

void TestDocument::refusedPictureKeepsTheOldOne()
{
    const QString before = benchState(*theBench);
    const LmImage* image = theBench->media().image();
    QVERIFY(!theBench->document().open(theBench->path(QStringLiteral("nowhere.png")), theError));
    QCOMPARE(benchState(*theBench), before);
    QCOMPARE(theBench->media().image(), image);
}

void TestDocument::loadOfManyObjectsGrowsInStep()
{
    const auto msToLoad = [this](int aCount) {
        theBench->openPicture(120, 80);
        for (int i = 0; i < aCount; ++i)
            addDistance(*theBench, QPoint(i % 100, i % 70), QPoint(i % 90, 79 - i % 70));
        const QString path = saved(QStringLiteral("many.mtp"));
        QElapsedTimer timer;
        timer.start();
        open(path);
        const qint64 ms = timer.elapsed();
        qInfo("%d objects in %lld ms", aCount, static_cast<long long>(ms));
        return qMax(qint64(1), ms);
    };
    msToLoad(100);
    const qint64 few = msToLoad(1000);
    const qint64 many = msToLoad(8000);
    QCOMPARE(theBench->editor().cvItems().size(), 8000);
    // Eight times as many objects; a load in the square of their number would take 64 times as long.
    QVERIFY2(many < 32 * few, qPrintable(QStringLiteral("%1 ms and %2 ms").arg(few).arg(many)));
}

MEASURE_TEST_MAIN(TestDocument)
#include "TestDocument.moc"
