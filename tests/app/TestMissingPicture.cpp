#include "BenchState.h"
#include "Document.h"
#include "Drawn.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "Sentence.h"
#include "TestBench.h"
#include "TestFont.h"
#include "TestSamples.h"

/// Projects whose picture is gone, unreadable or another one.
class TestMissingPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theBench.reset(); }
    void missingPictureLeavesTheObjectsOpen();
    void unreadablePictureLeavesTheObjectsOpen();
    void missingPictureCanBeLocated();
    void pictureOfAnotherSizeIsNotTakenForTheMissingOne();
    void nothingIsLocatedWhereNothingIsMissing();
    void projectWithMissingPictureCanBeSaved();
    void pictureOfAnotherSizeIsTold();

private:
    QString saved(const QString& aName);
    void open(const QString& aPath);

    std::unique_ptr<TestBench> theBench;
    QString theError;
};

namespace {

QString labelOfFirst()
{
    return LmKSKernelData::getInstance()->getCvManipulator(kDistanceType)->getCvObject(1)->labelText();
}

} // namespace

void TestMissingPicture::init()
{
    theBench = std::make_unique<TestBench>();
    theBench->doWork();
    theError.clear();
}

QString TestMissingPicture::saved(const QString& aName)
{
    const QString path = theBench->path(aName);
    if (!theBench->document().save(path, theError))
        qFatal("%s", qPrintable(theError));
    return path;
}

void TestMissingPicture::open(const QString& aPath)
{
    QVERIFY2(theBench->document().open(aPath, theError), qPrintable(theError));
}

void TestMissingPicture::missingPictureLeavesTheObjectsOpen()
{
    const QString path = saved(QStringLiteral("a.mtp"));
    const QString records = recordsText();
    QVERIFY(QFile::remove(theBench->media().path()));
    open(path);
    QCOMPARE(sentenceFault(theError), QString());
    QVERIFY2(theError.contains(QStringLiteral("is not there")), qPrintable(theError));
    QVERIFY(theBench->document().isPictureMissing());
    QVERIFY(!theBench->document().isModified());
    QCOMPARE(recordsText(), records);
    QCOMPARE(LmKSKernelData::getInstance()->getCurrentImageSize(), QSize(120, 80));
    QVERIFY(labelOfFirst().contains(QStringLiteral("4.00mm")));
}

void TestMissingPicture::unreadablePictureLeavesTheObjectsOpen()
{
    const QString path = saved(QStringLiteral("a.mtp"));
    MadeFiles::write(theBench->media().path(), "no picture any more");
    open(path);
    QVERIFY2(theError.contains(QStringLiteral("of an unknown kind")), qPrintable(theError));
    QVERIFY(theBench->document().isPictureMissing());
    QCOMPARE(theBench->editor().cvItems().size(), 2);
}

void TestMissingPicture::missingPictureCanBeLocated()
{
    const QString path = saved(QStringLiteral("a.mtp"));
    const QString moved = theBench->path(QStringLiteral("moved.png"));
    QVERIFY(QFile::rename(theBench->media().path(), moved));
    open(path);
    const QString records = recordsText();
    QVERIFY2(theBench->document().locatePicture(moved, theError), qPrintable(theError));
    QVERIFY(!theBench->document().isPictureMissing());
    QVERIFY(theBench->document().isModified());
    QCOMPARE(recordsText(), records);
    QCOMPARE(theBench->media().path(), moved);
    saved(QStringLiteral("a.mtp"));
    QVERIFY(!theBench->document().isModified());
    open(path);
    QVERIFY(!theBench->document().isPictureMissing());
    QCOMPARE(theBench->media().path(), moved);
}

void TestMissingPicture::pictureOfAnotherSizeIsNotTakenForTheMissingOne()
{
    const QString path = saved(QStringLiteral("a.mtp"));
    QVERIFY(QFile::remove(theBench->media().path()));
    open(path);
    const QString other = theBench->path(QStringLiteral("other.png"));
    MadeFiles::write(other, MadeFiles::encoded(madePicture(121, 80), "png"));
    const QString before = benchState(*theBench);
    for (const QString& file : {other, theBench->path(QStringLiteral("nowhere.png")), path}) {
        QVERIFY(!theBench->document().locatePicture(file, theError));
        QCOMPARE(sentenceFault(theError), QString());
        QCOMPARE(benchState(*theBench), before);
    }
}

void TestMissingPicture::nothingIsLocatedWhereNothingIsMissing()
{
    const QString before = benchState(*theBench);
    QVERIFY(!theBench->document().locatePicture(theBench->media().path(), theError));
    QCOMPARE(sentenceFault(theError), QString());
    QCOMPARE(benchState(*theBench), before);
}

void TestMissingPicture::projectWithMissingPictureCanBeSaved()
{
    const QString path = saved(QStringLiteral("a.mtp"));
    const QString picture = theBench->media().path();
    const QByteArray bytes = MadeFiles::read(picture);
    QVERIFY(QFile::remove(picture));
    open(path);
    QVERIFY(addDistance(*theBench, QPoint(1, 2), QPoint(3, 4)));
    saved(QStringLiteral("a.mtp"));
    // The picture comes back: the project knows it still.
    MadeFiles::write(picture, bytes);
    open(path);
    QCOMPARE(theError, QString());
    QVERIFY(!theBench->document().isPictureMissing());
    QCOMPARE(theBench->editor().cvItems().size(), 3);
}

void TestMissingPicture::pictureOfAnotherSizeIsTold()
{
    const QString path = saved(QStringLiteral("a.mtp"));
    MadeFiles::write(theBench->media().path(), MadeFiles::encoded(madePicture(240, 160), "png"));
    open(path);
    QCOMPARE(sentenceFault(theError), QString());
    QVERIFY2(theError.contains(QStringLiteral("another size")), qPrintable(theError));
    QVERIFY(!theBench->document().isPictureMissing());
}

MEASURE_TEST_MAIN(TestMissingPicture)
#include "TestMissingPicture.moc"
