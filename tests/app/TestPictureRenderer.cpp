#include "BenchState.h"
#include "Document.h"
#include "Drawn.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmCvSelection.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "PictureRenderer.h"
#include "ResolutionTag.h"
#include "Sentence.h"
#include "TestBench.h"
#include "TestFont.h"
#include "TestSamples.h"

#include <QDir>

#include <cmath>

/// The picture with its objects burned in.
class TestPictureRenderer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theBench.reset(); }
    void withoutObjectsThePictureIsUnchanged();
    void objectsAreDrawnInTheirColour();
    void zoomHasNoInfluence_data();
    void zoomHasNoInfluence();
    void selectionIsNotDrawnAndStays();
    void hiddenObjectsAreNotDrawn();
    void fileHoldsTheRenderedPicture();
    void noResolutionIsMadeUp_data();
    void noResolutionIsMadeUp();
    void formatFollowsTheEnding_data();
    void formatFollowsTheEnding();
    void unknownEndingIsTold();
    void placeThatCanNotBeWrittenIsTold();
    void withoutPictureThereIsNothingToWrite();

private:
    QImage render() { return PictureRenderer::render(theBench->editor()); }

    std::unique_ptr<TestBench> theBench;
    QString theError;
};

namespace {

LmCvObject* item(int aIdx)
{
    return LmKSKernelData::getInstance()->getCvManipulator(kDistanceType)->getCvObject(aIdx);
}

int redPixels(const QImage& aPicture)
{
    int count = 0;
    for (int y = 0; y < aPicture.height(); ++y)
        for (int x = 0; x < aPicture.width(); ++x)
            count += aPicture.pixel(x, y) == qRgb(255, 0, 0) ? 1 : 0;
    return count;
}

} // namespace

void TestPictureRenderer::init()
{
    theBench = std::make_unique<TestBench>();
    theBench->openPicture(300, 200);
    theError.clear();
}

void TestPictureRenderer::withoutObjectsThePictureIsUnchanged()
{
    QCOMPARE(render().convertToFormat(QImage::Format_RGB32), madePicture(300, 200));
}

void TestPictureRenderer::objectsAreDrawnInTheirColour()
{
    QVERIFY(addDistance(*theBench, QPoint(20, 150), QPoint(280, 150)));
    QCOMPARE(redPixels(madePicture(300, 200)), 0);
    const QImage picture = render();
    QCOMPARE(picture.size(), QSize(300, 200));
    // The line is 260 pixels long; label and heads cover a part of it.
    QVERIFY2(redPixels(picture) > 100, qPrintable(QString::number(redPixels(picture))));
    QCOMPARE(picture.pixel(10, 10), madePicture(300, 200).pixel(10, 10));
}

void TestPictureRenderer::zoomHasNoInfluence_data()
{
    QTest::addColumn<double>("zoom");
    for (double zoom : {0.1, 0.5, 3.0, 10.0})
        QTest::addRow("%g", zoom) << zoom;
}

void TestPictureRenderer::zoomHasNoInfluence()
{
    QFETCH(double, zoom);
    QVERIFY(addDistance(*theBench, QPoint(30, 30), QPoint(250, 170)));
    const QImage plain = render();
    theBench->editor().setZoom(zoom);
    QCOMPARE(theBench->editor().zoom(), zoom);
    const QRect place = item(1)->boundingRect();
    QCOMPARE(render(), plain);
    // Behind it the item fits the zoom again.
    QCOMPARE(item(1)->boundingRect(), place);
}

void TestPictureRenderer::selectionIsNotDrawnAndStays()
{
    QVERIFY(addDistance(*theBench, QPoint(30, 30), QPoint(250, 170)));
    QVERIFY(addDistance(*theBench, QPoint(30, 170), QPoint(250, 30)));
    const QImage plain = render();
    theBench->editor().selection().selectAll();
    theBench->editor().activateItem(item(2));
    QVERIFY(item(1)->isSelected() && item(2)->isActive());
    QCOMPARE(render(), plain);
    QVERIFY(item(1)->isSelected() && item(2)->isActive() && !item(1)->isActive());
    QVERIFY(theBench->editor().selection().contains(item(1)));
}

void TestPictureRenderer::hiddenObjectsAreNotDrawn()
{
    QVERIFY(addDistance(*theBench, QPoint(20, 150), QPoint(280, 150)));
    item(1)->theManipulator->showCvObject(item(1), false);
    QCOMPARE(redPixels(render()), 0);
}

void TestPictureRenderer::fileHoldsTheRenderedPicture()
{
    QVERIFY(addDistance(*theBench, QPoint(20, 150), QPoint(280, 150)));
    const QString path = theBench->path(QStringLiteral("out.png"));
    const QString before = benchState(*theBench);
    QVERIFY2(PictureRenderer::renderTo(theBench->editor(), path, theError), qPrintable(theError));
    QCOMPARE(QImage(path).convertToFormat(QImage::Format_RGB32),
             render().convertToFormat(QImage::Format_RGB32));
    QCOMPARE(benchState(*theBench), before);
}

void TestPictureRenderer::noResolutionIsMadeUp_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"a.png", "a.jpg", "a.tif"})
        QTest::newRow(name) << QString(QLatin1String(name));
}

/// 72 pixels per inch are doubted when a calibration is made from them.
void TestPictureRenderer::noResolutionIsMadeUp()
{
    QFETCH(QString, name);
    const QString path = theBench->path(name);
    QVERIFY2(PictureRenderer::renderTo(theBench->editor(), path, theError), qPrintable(theError));
    const ResolutionTag tag = ResolutionTag::read(path);
    QVERIFY(!tag.isNoted() ||
            std::abs(25.4 / tag.pixelMillimetres() - 72.0) < 1.0); // rounded to whole pixels per centimetre
}

void TestPictureRenderer::formatFollowsTheEnding_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("png") << QStringLiteral("a.png") << QByteArray("\x89PNG");
    QTest::newRow("large letters") << QStringLiteral("a.PNG") << QByteArray("\x89PNG");
    QTest::newRow("none") << QStringLiteral("a") << QByteArray("\x89PNG");
    QTest::newRow("jpeg") << QStringLiteral("a.jpg") << QByteArray("\xff\xd8\xff");
    QTest::newRow("bmp") << QStringLiteral("a.bmp") << QByteArray("BM");
    QTest::newRow("tiff") << QStringLiteral("a.tif") << QByteArray("II*");
}

void TestPictureRenderer::formatFollowsTheEnding()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, start);
    const QString path = theBench->path(name);
    QVERIFY2(PictureRenderer::renderTo(theBench->editor(), path, theError), qPrintable(theError));
    QVERIFY(MadeFiles::read(path).startsWith(start));
}

void TestPictureRenderer::unknownEndingIsTold()
{
    const QString path = theBench->path(QStringLiteral("a.doc"));
    QVERIFY(!PictureRenderer::renderTo(theBench->editor(), path, theError));
    QCOMPARE(sentenceFault(theError), QString());
    QVERIFY(!QFile::exists(path));
}

void TestPictureRenderer::placeThatCanNotBeWrittenIsTold()
{
    const QString picture = theBench->media().path();
    const QByteArray bytes = MadeFiles::read(picture);
    for (const QString& path : {theBench->path(QStringLiteral("nowhere/a.png")),
                                picture + QStringLiteral("/a.png"), QStringLiteral("/proc/a.png")}) {
        QVERIFY(!PictureRenderer::renderTo(theBench->editor(), path, theError));
        QCOMPARE(sentenceFault(theError), QString());
        QVERIFY2(theError.contains(path), qPrintable(theError));
    }
    QCOMPARE(MadeFiles::read(picture), bytes);
}

void TestPictureRenderer::withoutPictureThereIsNothingToWrite()
{
    theBench.reset();
    TestBench bench;
    QVERIFY(PictureRenderer::render(bench.editor()).isNull());
    QVERIFY(!PictureRenderer::renderTo(bench.editor(), bench.path(QStringLiteral("a.png")), theError));
    QCOMPARE(sentenceFault(theError), QString());
}

MEASURE_TEST_MAIN(TestPictureRenderer)
#include "TestPictureRenderer.moc"
