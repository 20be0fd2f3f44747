#include "CameraPixels.h"

#include "DefinedColor.h"
#include "LmImage.h"
#include "PictureChecks.h"
#include "TestFont.h"

#include <QBuffer>
#include <QImage>
#include <QTransform>
#include <QVideoFrame>
#include <QtTest>

#include <algorithm>
#include <cmath>

namespace {

using Format = QVideoFrameFormat;
using DefinedColor::Yuv;

constexpr QSize kSize(64, 48);

/// The bytes of one plane, which is filled with a repeated sequence.
using Pattern = QByteArray;

/// A frame whose planes are filled with these patterns.
QVideoFrame frameOf(const Format& aFormat, const QList<Pattern>& aPlanes)
{
    QVideoFrame frame(aFormat);
    if (!frame.map(QVideoFrame::WriteOnly))
        return {};
    for (int plane = 0; plane < frame.planeCount(); ++plane)
        for (int at = 0; at < frame.mappedBytes(plane); ++at)
            frame.bits(plane)[at] = uchar(aPlanes[plane][at % aPlanes[plane].size()]);
    frame.unmap();
    return frame;
}

Pattern bytes(std::initializer_list<int> aValues)
{
    Pattern pattern;
    for (const int value : aValues)
        pattern.append(char(value));
    return pattern;
}

/// The planes of a flat picture.
QList<Pattern> planesOf(Format::PixelFormat aFormat, const Yuv& aYuv)
{
    const auto [y, u, v] = aYuv;
    switch (aFormat) {
    case Format::Format_YV12:
        return {bytes({y}), bytes({v}), bytes({u})};
    case Format::Format_UYVY:
        return {bytes({u, y, v, y})};
    case Format::Format_YUYV:
        return {bytes({y, u, y, v})};
    case Format::Format_NV12:
        return {bytes({y}), bytes({u, v})};
    case Format::Format_NV21:
        return {bytes({y}), bytes({v, u})};
    case Format::Format_P010: // the upper 10 of 16 bits, the lower byte first
        return {bytes({0, y}), bytes({0, u, 0, v})};
    default:
        return {bytes({y}), bytes({u}), bytes({v})};
    }
}

/// No two of its corners are alike.
QImage picture()
{
    QImage picture(kSize, QImage::Format_RGB32);
    for (int y = 0; y < kSize.height(); ++y)
        for (int x = 0; x < kSize.width(); ++x)
            picture.setPixelColor(x, y, QColor(3 * x, 5 * y, x > y ? 200 : 20));
    return picture;
}

QVideoFrame sent(const QImage& aPicture, Format aFormat)
{
    QVideoFrame frame(aFormat);
    if (!frame.map(QVideoFrame::WriteOnly))
        return {};
    for (int y = 0; y < aPicture.height(); ++y)
        std::copy_n(aPicture.constScanLine(y), aPicture.bytesPerLine(),
                    frame.bits(0) + ptrdiff_t(y) * frame.bytesPerLine(0));
    frame.unmap();
    return frame;
}

} // namespace

/// The colours and the way up of what cameras send.
class TestCameraPixels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coloursFollowTheirMatrix_data();
    void coloursFollowTheirMatrix();
    void grayFramesHaveOneChannel_data();
    void grayFramesHaveOneChannel();
    void plainColoursStay();
    void compressedFrameIsUnpacked();
    void brokenFramesGiveNothing();
    void heldCameraIsShownUpright_data();
    void heldCameraIsShownUpright();
    void twoMirrorsAreNone();
};

void TestCameraPixels::coloursFollowTheirMatrix_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("matrix");
    QTest::addColumn<bool>("fullRange");
    const std::pair<const char*, Format::PixelFormat> formats[] = {
        {"YUV420P", Format::Format_YUV420P}, {"YV12", Format::Format_YV12}, {"UYVY", Format::Format_UYVY},
        {"YUYV", Format::Format_YUYV},       {"NV12", Format::Format_NV12}, {"NV21", Format::Format_NV21},
        {"P010", Format::Format_P010}};
    for (const auto& [name, format] : formats)
        for (const auto matrix : {Format::ColorSpace_Undefined, Format::ColorSpace_BT709})
            for (const bool isFull : {false, true})
                QTest::addRow("%s matrix %d %s", name, int(matrix), isFull ? "full" : "limited")
                    << int(format) << int(matrix) << isFull;
}

void TestCameraPixels::coloursFollowTheirMatrix()
{
    QFETCH(int, format);
    QFETCH(int, matrix);
    QFETCH(bool, fullRange);
    constexpr double kAllowed = 2.0;
    Format described(kSize, Format::PixelFormat(format));
    described.setColorSpace(Format::ColorSpace(matrix));
    described.setColorRange(fullRange ? Format::ColorRange_Full : Format::ColorRange_Video);
    const bool is709 = matrix == Format::ColorSpace_BT709;
    CameraPixels pixels;
    for (const Yuv& yuv : {Yuv{120, 100, 160}, Yuv{60, 140, 120}, Yuv{180, 120, 110}}) {
        const auto image = pixels.convert(frameOf(described, planesOf(Format::PixelFormat(format), yuv)));
        QVERIFY(image);
        QCOMPARE(image->size(), kSize);
        QCOMPARE(image->channels(), 3);
        const auto wanted = DefinedColor::of(yuv, is709 ? 0.2126 : 0.299, is709 ? 0.0722 : 0.114, fullRange);
        for (const int y : {0, 23, 47})
            for (int at = 0; at < 3 * kSize.width(); ++at)
                QVERIFY2(std::abs(image->row(y)[at] - wanted[size_t(at % 3)]) <= kAllowed,
                         qPrintable(QStringLiteral("channel %1: %2 instead of %3")
                                        .arg(at % 3)
                                        .arg(image->row(y)[at])
                                        .arg(wanted[size_t(at % 3)])));
    }
}

void TestCameraPixels::grayFramesHaveOneChannel_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QByteArray>("pattern");
    QTest::newRow("8 bits") << int(Format::Format_Y8) << bytes({77});
    QTest::newRow("16 bits") << int(Format::Format_Y16) << bytes({0, 77});
}

void TestCameraPixels::grayFramesHaveOneChannel()
{
    QFETCH(int, format);
    QFETCH(QByteArray, pattern);
    const auto image = CameraPixels().convert(frameOf(Format(kSize, Format::PixelFormat(format)), {pattern}));
    QVERIFY(image);
    QCOMPARE(image->channels(), 1);
    for (int x = 0; x < kSize.width(); ++x)
        QCOMPARE(int(image->row(20)[x]), 77);
}

void TestCameraPixels::plainColoursStay()
{
    const auto image = CameraPixels().convert(sent(picture(), Format(kSize, Format::Format_BGRX8888)));
    QVERIFY(image);
    QCOMPARE(image->channels(), 3);
    QCOMPARE(difference(*image, picture()), QString());
}

/// As cheap cameras send them, longer than the picture needs.
void TestCameraPixels::compressedFrameIsUnpacked()
{
    QByteArray packed;
    QBuffer buffer(&packed);
    QVERIFY(picture().save(&buffer, "JPEG", 95));
    QImage unpacked;
    QVERIFY(unpacked.loadFromData(packed, "JPEG"));
    QVideoFrame frame(Format(kSize, Format::Format_Jpeg));
    QVERIFY(frame.map(QVideoFrame::WriteOnly));
    QVERIFY(frame.mappedBytes(0) >= packed.size());
    std::copy(packed.begin(), packed.end(), frame.bits(0));
    frame.unmap();
    const auto image = CameraPixels().convert(frame);
    QVERIFY(image);
    QCOMPARE(difference(*image, unpacked), QString());
}

void TestCameraPixels::brokenFramesGiveNothing()
{
    CameraPixels pixels;
    QVERIFY(!pixels.convert(QVideoFrame()));
    QVERIFY(!pixels.convert(frameOf(Format(kSize, Format::Format_Jpeg), {bytes({1, 2, 3})})));
    // Qt itself describes the rows of such frames as half as long as they are, up to some version.
    QVideoFrame shortRows(Format(kSize, Format::Format_YUV422P));
    QVERIFY(shortRows.map(QVideoFrame::WriteOnly));
    const bool isTooShort = shortRows.bytesPerLine(1) < kSize.width() / 2;
    shortRows.unmap();
    QCOMPARE(pixels.convert(shortRows) == nullptr, isTooShort);
}

void TestCameraPixels::heldCameraIsShownUpright_data()
{
    QTest::addColumn<int>("degrees");
    QTest::addColumn<bool>("mirrored");
    QTest::addColumn<bool>("fromBottom");
    for (const int degrees : {0, 90, 180, 270})
        for (const bool isMirrored : {false, true})
            for (const bool isFromBottom : {false, true})
                QTest::addRow("%d%s%s", degrees, isMirrored ? " mirrored" : "",
                              isFromBottom ? " from the bottom" : "")
                    << degrees << isMirrored << isFromBottom;
}

void TestCameraPixels::heldCameraIsShownUpright()
{
    QFETCH(int, degrees);
    QFETCH(bool, mirrored);
    QFETCH(bool, fromBottom);
    Format format(kSize, Format::Format_BGRX8888);
    format.setScanLineDirection(fromBottom ? Format::BottomToTop : Format::TopToBottom);
    QVideoFrame frame = sent(picture(), format);
    frame.setRotationAngle(QVideoFrame::RotationAngle(degrees));
    frame.setMirrored(mirrored);
    const auto image = CameraPixels().convert(frame);
    QVERIFY(image);
    QCOMPARE(image->size(), degrees % 180 == 0 ? kSize : kSize.transposed());
    const QImage wanted = picture();
    // Where each pixel of the sent picture comes to lie, step by step.
    const int width = image->width();
    const int height = image->height();
    for (int y = 0; y < kSize.height(); ++y)
        for (int x = 0; x < kSize.width(); ++x) {
            const int down = fromBottom ? kSize.height() - 1 - y : y;
            const QPoint turned = degrees == 0     ? QPoint(x, down)
                                  : degrees == 90  ? QPoint(width - 1 - down, x)
                                  : degrees == 180 ? QPoint(width - 1 - x, height - 1 - down)
                                                   : QPoint(down, height - 1 - x);
            const int across = mirrored ? width - 1 - turned.x() : turned.x();
            QCOMPARE(pixel(*image, across, turned.y()), wanted.pixelColor(x, y));
        }
}

void TestCameraPixels::twoMirrorsAreNone()
{
    Format format(kSize, Format::Format_BGRX8888);
    format.setMirrored(true);
    QVideoFrame frame = sent(picture(), format);
    frame.setMirrored(true);
    QCOMPARE(difference(*CameraPixels().convert(frame), picture()), QString());
    frame.setMirrored(false);
    QCOMPARE(difference(*CameraPixels().convert(frame), picture().mirrored(true, false)), QString());
}

MEASURE_TEST_MAIN(TestCameraPixels)
#include "TestCameraPixels.moc"
