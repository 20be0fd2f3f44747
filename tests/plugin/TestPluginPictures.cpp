#include "TestFont.h"

#include <QDir>
#include <QIcon>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

int qInitResources_measureToolsImages();
int qCleanupResources_measureToolsImages();

namespace {

const QString kFolder = QStringLiteral(MEASURETOOLS_RESOURCES "/");
const QStringList kCursors = {"DimCursor.png",       "AngleCursor.png",  "CounterCursor.png",
                              "RegionCursor.png",    "PencilCursor.png", "CrossCursor.png",
                              "GroupCrossCursor.png"};
const QStringList kIcons = {"Dist.svg",       "Angle.svg",           "Dimension.svg",
                            "Counter.svg",    "Counter auto.svg",    "Region.svg",
                            "RegionPoly.svg", "RegionPoly auto.svg", "MultiRegionCreate.svg"};
const QColor kLightBar(0xf0, 0xf0, 0xf0);
const QColor kDarkBar(0x20, 0x20, 0x20);

QImage cursorImage(const QString& aName)
{
    return QImage(":/" + aName).convertToFormat(QImage::Format_ARGB32);
}

bool isBlack(QRgb aPixel)
{
    return qAlpha(aPixel) > 200 && qGray(aPixel) < 60;
}

/// Calls aVisit(x, y, pixel) for every pixel.
template <class Visit>
void forEachPixel(const QImage& aImage, Visit aVisit)
{
    for (int y = 0; y < aImage.height(); ++y)
        for (int x = 0; x < aImage.width(); ++x)
            aVisit(x, y, aImage.pixel(x, y));
}

template <class Match>
int countPixels(const QImage& aImage, Match aMatch)
{
    int count = 0;
    forEachPixel(aImage, [&](int, int, QRgb aPixel) { count += aMatch(aPixel) ? 1 : 0; });
    return count;
}

/// The relative luminance of a colour, 0 to 1, by the formula for sRGB of the guidelines on accessible
/// contrast.
double luminance(const QColor& aColor)
{
    const auto linear = [](double aValue) {
        return aValue <= 0.03928 ? aValue / 12.92 : std::pow((aValue + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(double(aColor.redF())) + 0.7152 * linear(double(aColor.greenF())) +
           0.0722 * linear(double(aColor.blueF()));
}

double contrast(const QColor& aColor, const QColor& aGround)
{
    const double one = luminance(aColor) + 0.05;
    const double other = luminance(aGround) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

} // namespace

class TestPluginPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resourceHoldsSixteenFilesAtTheRoot();
    void registeringAnswersOneAndUnregisteringTakesThePicturesAway();
    void cursorIsARgbaPngOf32Pixels_data();
    void cursorIsARgbaPngOf32Pixels();
    void cursorEndsAtItsHotSpot_data();
    void cursorEndsAtItsHotSpot();
    void counterCursorShowsWhatLiesUnderItsHotSpot();
    void cursorIsBlackWithAWhiteOutlineAllAround_data();
    void cursorIsBlackWithAWhiteOutlineAllAround();
    void cursorMatchesItsDrawing_data();
    void cursorMatchesItsDrawing();
    void iconIsReadableOnLightAndDarkToolBars_data();
    void iconIsReadableOnLightAndDarkToolBars();
    void iconsDifferFromEachOther();
    void sampleRulerHasEightPixelsToTheMillimetre();
};

void TestPluginPictures::resourceHoldsSixteenFilesAtTheRoot()
{
    QStringList expected = kCursors + kIcons;
    expected.sort();
    QStringList found = QDir(":/").entryList(QDir::Files);
    found.sort();
    QCOMPARE(found, expected);
    QCOMPARE(found.size(), 16);
}

void TestPluginPictures::registeringAnswersOneAndUnregisteringTakesThePicturesAway()
{
    QCOMPARE(qCleanupResources_measureToolsImages(), 1);
    QVERIFY(!QFile::exists(":/Counter auto.svg"));
    QCOMPARE(qInitResources_measureToolsImages(), 1);
    QVERIFY(QFile::exists(":/Counter auto.svg"));
}

void TestPluginPictures::cursorIsARgbaPngOf32Pixels_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : kCursors)
        QTest::newRow(qPrintable(name)) << name;
}

void TestPluginPictures::cursorIsARgbaPngOf32Pixels()
{
    QFETCH(QString, name);
    QFile file(":/" + name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray head = file.read(26);
    QCOMPARE(head.left(8), QByteArray("\x89PNG\r\n\x1a\n"));
    QCOMPARE(int(head.at(24)), 8); // bits per channel
    QCOMPARE(int(head.at(25)), 6); // red, green, blue, alpha
    const QPixmap pixmap(":/" + name);
    QCOMPARE(pixmap.size(), QSize(32, 32));
    QVERIFY(pixmap.hasAlphaChannel());
}

void TestPluginPictures::cursorEndsAtItsHotSpot_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QPoint>("hotSpot");
    QTest::addColumn<QPoint>("outwards"); // where the tip points; null for a crossing
    QTest::newRow("ruler") << "DimCursor.png" << QPoint(7, 24) << QPoint(0, 1);
    QTest::newRow("ruler with angle sign") << "AngleCursor.png" << QPoint(7, 24) << QPoint(0, 1);
    QTest::newRow("nib") << "RegionCursor.png" << QPoint(15, 6) << QPoint(0, -1);
    QTest::newRow("pencil") << "PencilCursor.png" << QPoint(11, 8) << QPoint(-1, -1);
    QTest::newRow("cross") << "CrossCursor.png" << QPoint(15, 15) << QPoint();
    QTest::newRow("cross with square") << "GroupCrossCursor.png" << QPoint(15, 15) << QPoint();
}

void TestPluginPictures::cursorEndsAtItsHotSpot()
{
    QFETCH(QString, name);
    QFETCH(QPoint, hotSpot);
    QFETCH(QPoint, outwards);
    const QImage image = cursorImage(name);
    QVERIFY(qAlpha(image.pixel(hotSpot)) > 200);
    forEachPixel(image, [&](int x, int y, QRgb aPixel) {
        const int beyond = QPoint::dotProduct(QPoint(x, y) - hotSpot, outwards);
        QVERIFY2(!isBlack(aPixel) || beyond <= 0, "the shape goes on beyond the hot spot");
    });
    if (outwards.isNull()) {
        QVERIFY(isBlack(image.pixel(hotSpot)));
        for (const QPoint& step : {QPoint(9, 0), QPoint(-9, 0), QPoint(0, 9), QPoint(0, -9)})
            QVERIFY(isBlack(image.pixel(hotSpot + step)));
    }
}

void TestPluginPictures::counterCursorShowsWhatLiesUnderItsHotSpot()
{
    const QImage image = cursorImage("CounterCursor.png");
    QCOMPARE(qAlpha(image.pixel(16, 16)), 0);
    for (const QPoint& step : {QPoint(3, 0), QPoint(-3, 0), QPoint(0, 3), QPoint(0, -3)})
        QVERIFY(isBlack(image.pixel(QPoint(16, 16) + step)));
}

void TestPluginPictures::cursorIsBlackWithAWhiteOutlineAllAround_data()
{
    cursorIsARgbaPngOf32Pixels_data();
}

void TestPluginPictures::cursorIsBlackWithAWhiteOutlineAllAround()
{
    QFETCH(QString, name);
    const QImage image = cursorImage(name);
    QVERIFY(countPixels(image, isBlack) > 30);
    QVERIFY(countPixels(image, [](QRgb p) { return qAlpha(p) > 200 && qGray(p) > 230; }) > 30);
    forEachPixel(image, [&](int x, int y, QRgb aPixel) {
        if (!isBlack(aPixel))
            return;
        for (const QPoint& step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
            const QPoint beside = QPoint(x, y) + step;
            if (image.rect().contains(beside))
                QVERIFY2(qAlpha(image.pixel(beside)) > 60, "black meets the ground without an outline");
        }
    });
}

void TestPluginPictures::cursorMatchesItsDrawing_data()
{
    cursorIsARgbaPngOf32Pixels_data();
}

void TestPluginPictures::cursorMatchesItsDrawing()
{
    QFETCH(QString, name);
    QSvgRenderer renderer(kFolder + "cursors/" + name.chopped(4) + ".svg");
    QVERIFY(renderer.isValid());
    QImage drawn(32, 32, QImage::Format_ARGB32);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    renderer.render(&painter);
    painter.end();
    constexpr int kRounding = 4; // of the way through premultiplied colours
    const QImage kept = cursorImage(name);
    forEachPixel(drawn, [&](int x, int y, QRgb aPixel) {
        const QRgb other = kept.pixel(x, y);
        QVERIFY(std::abs(qAlpha(aPixel) - qAlpha(other)) <= kRounding);
        if (qAlpha(aPixel) > 128)
            QVERIFY(std::abs(qGray(aPixel) - qGray(other)) <= kRounding);
    });
}

void TestPluginPictures::iconIsReadableOnLightAndDarkToolBars_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& name : kIcons)
        QTest::newRow(qPrintable(name)) << ":/" + name;
    const QDir folder(kFolder + "icons", "*.svg");
    for (const QString& name : folder.entryList())
        if (name != "measuretools.svg") // stands on a ground of its own
            QTest::newRow(qPrintable("drawing of " + name)) << folder.filePath(name);
}

void TestPluginPictures::iconIsReadableOnLightAndDarkToolBars()
{
    QFETCH(QString, path);
    QIcon icon;
    icon.addFile(path, QSize(-1, -1), QIcon::Normal, QIcon::Off);
    const QImage image = icon.pixmap(QSize(24, 24)).toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(image.size(), QSize(24, 24));
    QVERIFY(countPixels(image, [](QRgb p) { return qAlpha(p) == 255; }) > 20);
    // 3 to 1 is what a graphic needs to be told from its ground.
    forEachPixel(image, [](int, int, QRgb aPixel) {
        if (qAlpha(aPixel) < 255)
            return;
        QVERIFY(contrast(QColor(aPixel), kLightBar) >= 3.0);
        QVERIFY(contrast(QColor(aPixel), kDarkBar) >= 3.0);
    });
}

void TestPluginPictures::iconsDifferFromEachOther()
{
    QList<QImage> images;
    for (const QString& name : kIcons) {
        const QImage image = QIcon(":/" + name).pixmap(QSize(24, 24)).toImage();
        QVERIFY2(!images.contains(image), qPrintable(name));
        images.append(image);
    }
}

void TestPluginPictures::sampleRulerHasEightPixelsToTheMillimetre()
{
    const QImage sample(kFolder + "samples/workbench.png");
    QCOMPARE(sample.size(), QSize(1200, 900));
    constexpr int kRowOfLongTicks = 804; // below the ticks of 1 and 5 mm
    constexpr int kPixelsPerCentimetre = 80;
    QList<int> ticks;
    for (int x = 20; x < 1180; ++x)
        if (qGray(sample.pixel(x, kRowOfLongTicks)) < 128 &&
            qGray(sample.pixel(x - 1, kRowOfLongTicks)) >= 128)
            ticks.append(x);
    QCOMPARE(ticks.size(), 15);
    for (int i = 0; i < ticks.size(); ++i)
        QCOMPARE(ticks.at(i), ticks.first() + i * kPixelsPerCentimetre);
}

MEASURE_TEST_MAIN(TestPluginPictures)
#include "TestPluginPictures.moc"
