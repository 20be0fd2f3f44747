#include "VideoFile.h"

#include "ClipNumber.h"
#include "ClipWriter.h"
#include "DefinedColor.h"
#include "LmImage.h"
#include "TestFont.h"

#include <QImage>
#include <QTemporaryDir>
#include <QTransform>
#include <QtTest>

#include <cmath>

namespace {

using DefinedColor::Yuv;

/// Lossless, so that only the conversion of colours can change anything.
ClipOptions losslessClip()
{
    ClipOptions options;
    options.codec = QStringLiteral("ffv1");
    options.size = QSize(70, 46); // no round number of bytes a row
    options.count = 2;
    return options;
}

QImage toQImage(const LmImage& aImage)
{
    return QImage(aImage.row(0), aImage.width(), aImage.height(), aImage.bytesPerLine(),
                  QImage::Format_RGB888)
        .copy();
}

} // namespace

class TestVideoColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flatColoursFollowTheirMatrix_data();
    void flatColoursFollowTheirMatrix();
    void withoutAMatrixTheHeightDecides_data();
    void withoutAMatrixTheHeightDecides();
    void grayVideoHasOneChannel();
    void quickColoursAreNear();
    void turnedVideoIsShownUpright_data();
    void turnedVideoIsShownUpright();

private:
    std::unique_ptr<VideoFile> make(const ClipOptions& aOptions);
    std::unique_ptr<LmImage> firstFrame(const ClipOptions& aOptions, bool aQuick = false);
    void compareFlat(const LmImage& aImage, const std::array<double, 3>& aColor);

    QTemporaryDir theFolder;
    int theFiles = 0;
};

std::unique_ptr<VideoFile> TestVideoColors::make(const ClipOptions& aOptions)
{
    const QString path = theFolder.filePath(
        QStringLiteral("%1.%2")
            .arg(++theFiles)
            .arg(aOptions.codec == QLatin1String("ffv1") ? QLatin1String("mkv") : QLatin1String("mp4")));
    QString error;
    auto video = ClipWriter::write(path, aOptions) ? VideoFile::open(path, error) : nullptr;
    if (!video)
        qWarning("%s", qUtf8Printable(error));
    return video;
}

std::unique_ptr<LmImage> TestVideoColors::firstFrame(const ClipOptions& aOptions, bool aQuick)
{
    const auto video = make(aOptions);
    QString error;
    if (!video)
        return nullptr;
    return aQuick ? video->readQuickFrame(0, error) : video->readFrame(0, error);
}

void TestVideoColors::compareFlat(const LmImage& aImage, const std::array<double, 3>& aColor)
{
    constexpr double kAllowed = 2.0;
    QCOMPARE(aImage.channels(), 3);
    for (int y = 0; y < aImage.height(); ++y)
        for (int x = 0; x < aImage.width(); ++x)
            for (int channel = 0; channel < 3; ++channel) {
                const double value = aImage.row(y)[3 * x + channel];
                const double wanted = qBound(0.0, aColor[size_t(channel)], 255.0);
                QVERIFY2(std::abs(value - wanted) <= kAllowed,
                         qPrintable(QStringLiteral("(%1, %2) channel %3: %4 instead of %5")
                                        .arg(x)
                                        .arg(y)
                                        .arg(channel)
                                        .arg(value)
                                        .arg(wanted)));
            }
}

void TestVideoColors::flatColoursFollowTheirMatrix_data()
{
    QTest::addColumn<QString>("matrix");
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("fullRange");
    for (const char* matrix : {"bt709", "smpte170m"})
        for (const char* format : {"yuv420p", "yuv444p", "yuv422p", "yuv420p10le"})
            for (const bool fullRange : {false, true})
                QTest::addRow("%s %s %s", matrix, format, fullRange ? "full" : "limited")
                    << QString(QLatin1String(matrix)) << QString(QLatin1String(format)) << fullRange;
}

void TestVideoColors::flatColoursFollowTheirMatrix()
{
    QFETCH(QString, matrix);
    QFETCH(QString, format);
    QFETCH(bool, fullRange);
    const bool isHigh = matrix == QLatin1String("bt709");
    for (const Yuv& yuv : {Yuv{128, 128, 128}, Yuv{90, 110, 150}, Yuv{150, 90, 140}, Yuv{60, 150, 120},
                           Yuv{235, 128, 128}, Yuv{16, 128, 128}}) {
        ClipOptions options = losslessClip();
        options.matrix = matrix;
        options.pixelFormat = format;
        options.fullRange = fullRange;
        options.flat = yuv;
        const auto image = firstFrame(options);
        QVERIFY(image);
        QCOMPARE(image->size(), options.size);
        compareFlat(*image,
                    DefinedColor::of(yuv, isHigh ? 0.2126 : 0.299, isHigh ? 0.0722 : 0.114, fullRange));
    }
}

void TestVideoColors::withoutAMatrixTheHeightDecides_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("isHigh");
    QTest::newRow("standard") << 718 << false;
    QTest::newRow("high") << 720 << true;
}

void TestVideoColors::withoutAMatrixTheHeightDecides()
{
    QFETCH(int, height);
    QFETCH(bool, isHigh);
    const Yuv yuv{90, 110, 170};
    ClipOptions options = losslessClip();
    options.size = QSize(32, height);
    options.flat = yuv;
    const auto image = firstFrame(options);
    QVERIFY(image);
    compareFlat(*image, DefinedColor::of(yuv, isHigh ? 0.2126 : 0.299, isHigh ? 0.0722 : 0.114, false));
}

void TestVideoColors::grayVideoHasOneChannel()
{
    ClipOptions options = losslessClip();
    options.pixelFormat = QStringLiteral("gray");
    options.fullRange = true;
    options.flat = Yuv{77, 0, 0};
    const auto image = firstFrame(options);
    QVERIFY(image);
    QCOMPARE(image->channels(), 1);
    QCOMPARE(image->size(), options.size);
    for (int y = 0; y < image->height(); ++y)
        for (int x = 0; x < image->width(); ++x)
            QCOMPARE(int(image->row(y)[x]), 77);
}

void TestVideoColors::quickColoursAreNear()
{
    constexpr double kAShade = 4.0;
    const Yuv yuv{90, 110, 150};
    ClipOptions options = losslessClip();
    options.matrix = QStringLiteral("bt709");
    options.flat = yuv;
    const auto image = firstFrame(options, true);
    QVERIFY(image);
    const std::array<double, 3> wanted = DefinedColor::of(yuv, 0.2126, 0.0722, false);
    for (int channel = 0; channel < 3; ++channel)
        QVERIFY(std::abs(image->row(20)[3 * 30 + channel] - wanted[size_t(channel)]) <= kAShade);
}

void TestVideoColors::turnedVideoIsShownUpright_data()
{
    QTest::addColumn<int>("degrees");
    for (const int degrees : {90, 180, -90})
        QTest::addRow("%d degrees", degrees) << degrees;
}

void TestVideoColors::turnedVideoIsShownUpright()
{
    QFETCH(int, degrees);
    ClipOptions options;
    options.size = QSize(96, 64);
    options.count = 30;
    const auto upright = make(options);
    options.rotation = degrees;
    const auto turned = make(options);
    QVERIFY(upright && turned);
    QString error;
    for (const int frame : {0, 29, 7}) {
        const auto before = upright->readFrame(frame, error);
        const auto after = turned->readFrame(frame, error);
        QVERIFY(before && after);
        QCOMPARE(ClipNumber::read(*before), frame);
        QCOMPARE(toQImage(*after), toQImage(*before).transformed(QTransform().rotate(degrees)));
    }
}

MEASURE_TEST_MAIN(TestVideoColors)
#include "TestVideoColors.moc"
