#include "LmCvCanvas.h"
#include "LmCvEditor.h"
#include "LmImage.h"
#include "TestFont.h"

#include <QPainter>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

/// An image in which every channel of every pixel follows from its place.
std::unique_ptr<LmImage> madeImage(int aWidth, int aHeight, int aChannels)
{
    auto image = std::make_unique<LmImage>(aWidth, aHeight, aChannels, nullptr, 4);
    for (int y = 0; y < aHeight; ++y)
        for (int x = 0; x < aWidth; ++x)
            for (int channel = 0; channel < aChannels; ++channel)
                image->row(y)[x * aChannels + channel] =
                    channel == 3 ? 255 : uchar((37 * x + 101 * y + 59 * channel + x * y) & 0xff);
    return image;
}

QColor pixelOf(const LmImage& aImage, int aX, int aY)
{
    uchar red = 0;
    uchar green = 0;
    uchar blue = 0;
    aImage.getDataAt(aX, aY, red, green, blue, 0);
    return QColor(red, green, blue);
}

/// The canvas rectangle painted at a zoom onto pink, whose upper left corner is the upper left corner of the
/// result.
QImage painted(LmCvCanvas& aCanvas, const QRect& aRect, double aZoom)
{
    QImage image(int(aRect.width() * aZoom), int(aRect.height() * aZoom), QImage::Format_RGB32);
    image.fill(QColor(255, 0, 255));
    QPainter painter(&image);
    painter.scale(aZoom, aZoom);
    painter.translate(-aRect.topLeft());
    aCanvas.drawArea(aRect, painter);
    return image;
}

/// Over all channels of all pixels.
int greatestDifference(const QImage& aFirst, const QImage& aSecond)
{
    int greatest = 0;
    for (int y = 0; y < aFirst.height(); ++y) {
        const uchar* first = aFirst.constScanLine(y);
        const uchar* second = aSecond.constScanLine(y);
        for (int i = 0; i < 4 * aFirst.width(); ++i)
            greatest = std::max(greatest, std::abs(first[i] - second[i]));
    }
    return greatest;
}

} // namespace

class TestCvCanvas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyCanvasPaintsItsBackground();
    void canvasTakesTheSizeOfTheRegionOfInterest();
    void pixelsAreExactAtZoomOne_data();
    void pixelsAreExactAtZoomOne();
    void eachPixelIsASharpSquareAtZoomFour();
    void halfSizeIsTheMeanOfFourPixels();
    void oddSizesKeepTheirLastRowAndColumn();
    void smallZoomsNeverSkipPixels();
    void partPaintsTheSameAsTheWhole_data();
    void partPaintsTheSameAsTheWhole();
    void onlyTheAskedRectangleIsPainted();
    void transparentPartsShowACheckerboard();
    void nullTakesThePictureAway();
    void newPictureOfTheSameSizeIsShown();
};

void TestCvCanvas::emptyCanvasPaintsItsBackground()
{
    LmCvCanvas canvas;
    canvas.resize(10, 10);
    canvas.setBackgroundColor(Qt::darkCyan);
    QCOMPARE(painted(canvas, QRect(0, 0, 10, 10), 1.0).pixelColor(5, 5), QColor(Qt::darkCyan));
    QVERIFY(canvas.picture().isNull());
}

void TestCvCanvas::canvasTakesTheSizeOfTheRegionOfInterest()
{
    const auto image = madeImage(40, 30, 3);
    LmCvCanvas canvas;
    canvas.showImage(image.get());
    QCOMPARE(canvas.size(), QSize(40, 30));
    image->setQRoi(QRect(7, 5, 20, 11));
    canvas.showImage(image.get());
    QCOMPARE(canvas.size(), QSize(20, 11));
    QCOMPARE(canvas.picture().size(), QSize(20, 11));
    QCOMPARE(canvas.picture().pixelColor(0, 0), pixelOf(*image, 7, 5));
    QCOMPARE(canvas.picture().pixelColor(19, 10), pixelOf(*image, 26, 15));
}

void TestCvCanvas::pixelsAreExactAtZoomOne_data()
{
    QTest::addColumn<int>("channels");
    QTest::newRow("gray") << 1;
    QTest::newRow("colour") << 3;
    QTest::newRow("colour and alpha") << 4;
}

void TestCvCanvas::pixelsAreExactAtZoomOne()
{
    QFETCH(int, channels);
    const auto image = madeImage(33, 21, channels);
    image->setQRoi(QRect(3, 2, 29, 17));
    LmCvCanvas canvas;
    canvas.showImage(image.get());
    const QImage shown = painted(canvas, canvas.rect(), 1.0);
    for (int y = 0; y < 17; ++y)
        for (int x = 0; x < 29; ++x)
            QCOMPARE(shown.pixelColor(x, y), pixelOf(*image, x + 3, y + 2));
}

void TestCvCanvas::eachPixelIsASharpSquareAtZoomFour()
{
    const auto image = madeImage(9, 7, 3);
    LmCvCanvas canvas;
    canvas.showImage(image.get());
    const QImage shown = painted(canvas, canvas.rect(), 4.0);
    for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < shown.width(); ++x)
            QCOMPARE(shown.pixelColor(x, y), pixelOf(*image, x / 4, y / 4));
}

void TestCvCanvas::halfSizeIsTheMeanOfFourPixels()
{
    const auto image = madeImage(16, 12, 3);
    LmCvCanvas canvas;
    canvas.showImage(image.get());
    const QImage shown = painted(canvas, canvas.rect(), 0.5);
    const auto mean = [&](int aX, int aY, int (QColor::*aChannel)() const) {
        int sum = 0;
        for (const QPoint& offset : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)})
            sum += (pixelOf(*image, 2 * aX + offset.x(), 2 * aY + offset.y()).*aChannel)();
        return (sum + 2) / 4;
    };
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 8; ++x)
            QCOMPARE(shown.pixelColor(x, y),
                     QColor(mean(x, y, &QColor::red), mean(x, y, &QColor::green), mean(x, y, &QColor::blue)));
}

void TestCvCanvas::oddSizesKeepTheirLastRowAndColumn()
{
    LmImage image(5, 3, 1, nullptr, 1);
    for (int x = 0; x < 5; ++x)
        image.row(2)[x] = 200;
    for (int y = 0; y < 3; ++y)
        image.row(y)[4] = 200;
    LmCvCanvas canvas;
    canvas.showImage(&image);
    QImage shown(3, 2, QImage::Format_RGB32);
    shown.fill(Qt::white);
    QPainter painter(&shown);
    painter.scale(0.5, 0.5);
    canvas.drawArea(canvas.rect(), painter);
    painter.end();
    QCOMPARE(shown.pixelColor(0, 0), QColor(0, 0, 0));
    QCOMPARE(shown.pixelColor(1, 0), QColor(0, 0, 0));
    QCOMPARE(shown.pixelColor(2, 0), QColor(200, 200, 200));
    QCOMPARE(shown.pixelColor(0, 1), QColor(200, 200, 200));
}

/// One white pixel in 64 has to make the small picture a 64th as bright, wherever it stands.
void TestCvCanvas::smallZoomsNeverSkipPixels()
{
    for (const QPoint& place : {QPoint(0, 0), QPoint(3, 5), QPoint(7, 7), QPoint(4, 3)}) {
        LmImage image(64, 64, 1, nullptr, 1);
        for (int y = place.y(); y < 64; y += 8)
            for (int x = place.x(); x < 64; x += 8)
                image.row(y)[x] = 255;
        LmCvCanvas canvas;
        canvas.showImage(&image);
        const QImage shown = painted(canvas, canvas.rect(), 0.125);
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x)
                QVERIFY2(std::abs(shown.pixelColor(x, y).red() - 255 / 64) <= 2, // a rounding in each halving
                         qPrintable(QString::number(shown.pixelColor(x, y).red())));
    }
}

void TestCvCanvas::partPaintsTheSameAsTheWhole_data()
{
    QTest::addColumn<double>("zoom");
    for (const double zoom : {0.1, 0.25, 0.5, 0.7, 1.0, 1.5, 4.0})
        QTest::newRow(qPrintable(QString::number(zoom))) << zoom;
}

void TestCvCanvas::partPaintsTheSameAsTheWhole()
{
    QFETCH(double, zoom);
    const auto image = madeImage(160, 120, 3);
    LmCvCanvas canvas;
    canvas.showImage(image.get());
    const QImage whole = painted(canvas, canvas.rect(), zoom);
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 50; ++round) {
        // As a view does it: the stale pixels of the screen, and the whole canvas pixels under them.
        const QRect stale = QRect(random.bounded(whole.width()), random.bounded(whole.height()),
                                  1 + random.bounded(60), 1 + random.bounded(60)) &
                            whole.rect();
        const QRect part =
            QTransform::fromScale(1.0 / zoom, 1.0 / zoom).mapRect(QRectF(stale)).toAlignedRect();
        QImage patched = whole;
        QPainter painter(&patched);
        painter.setClipRect(stale);
        painter.fillRect(stale, Qt::magenta);
        painter.scale(zoom, zoom);
        canvas.drawArea(part, painter);
        painter.end();
        // Rounding of the sampling position may shift a smoothed colour by a little, never a seam.
        QVERIFY2(greatestDifference(whole, patched) <= 3,
                 qPrintable(QString::number(greatestDifference(whole, patched))));
    }
}

void TestCvCanvas::onlyTheAskedRectangleIsPainted()
{
    const auto image = madeImage(64, 48, 3);
    LmCvCanvas canvas;
    canvas.showImage(image.get());
    for (const double zoom : {0.5, 1.0, 2.0}) {
        QImage shown(int(64 * zoom), int(48 * zoom), QImage::Format_RGB32);
        const QColor untouched(1, 2, 3);
        shown.fill(untouched);
        QPainter painter(&shown);
        painter.scale(zoom, zoom);
        const QRect part(16, 8, 20, 12);
        canvas.drawArea(part, painter);
        painter.end();
        const QRect drawn(part.topLeft() * zoom, part.size() * zoom);
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                QCOMPARE(shown.pixelColor(x, y) == untouched, !drawn.contains(x, y));
    }
}

void TestCvCanvas::transparentPartsShowACheckerboard()
{
    LmImage image(64, 64, 4, nullptr, 4); // all channels 0: transparent
    image.row(0)[0] = 255;
    image.row(0)[3] = 255; // one red pixel
    LmCvCanvas canvas;
    canvas.showImage(&image);
    for (const double zoom : {1.0, 4.0}) {
        const QImage shown = painted(canvas, canvas.rect(), zoom);
        QCOMPARE(shown.pixelColor(0, 0), QColor(255, 0, 0));
        // Squares of 8 pixels on the screen at every zoom.
        for (const QPoint& gray : {QPoint(4, 4), QPoint(20, 4), QPoint(12, 12), QPoint(28, 12)})
            QCOMPARE(shown.pixelColor(gray), QColor(Qt::lightGray));
        for (const QPoint& white : {QPoint(12, 4), QPoint(28, 4), QPoint(4, 12), QPoint(20, 12)})
            QCOMPARE(shown.pixelColor(white), QColor(Qt::white));
    }
}

void TestCvCanvas::nullTakesThePictureAway()
{
    const auto image = madeImage(16, 12, 3);
    LmCvCanvas canvas;
    canvas.showImage(image.get());
    canvas.showImage(nullptr);
    QVERIFY(canvas.picture().isNull());
    QCOMPARE(canvas.size(), QSize(0, 0));
}

void TestCvCanvas::newPictureOfTheSameSizeIsShown()
{
    LmCvEditor editor;
    editor.setFrameShape(QFrame::NoFrame);
    editor.resize(40, 30);
    auto image = madeImage(40, 30, 3);
    editor.imageCanvas()->showImage(image.get());
    QCOMPARE(editor.grab().toImage().pixelColor(11, 12), pixelOf(*image, 11, 12));
    image->row(12)[11 * 3] ^= 0x80;
    QVERIFY(editor.imageCanvas()->picture().pixelColor(11, 12) != pixelOf(*image, 11, 12));
    editor.imageCanvas()->showImage(image.get());
    QCOMPARE(editor.grab().toImage().pixelColor(11, 12), pixelOf(*image, 11, 12));
}

MEASURE_TEST_MAIN(TestCvCanvas)
#include "TestCvCanvas.moc"
