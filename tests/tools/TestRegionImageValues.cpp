#include "RegionValuesFixture.h"
#include "TestFont.h"

#include <memory>

using RegionShapes::rectangle;

namespace {

const QString kWidth = QStringLiteral("Width");
const QString kLightness = QStringLiteral("Avg. lightness");
const QString kSaturation = QStringLiteral("Avg. saturation");
const QString kPercent = QStringLiteral("%");

} // namespace

/// Lightness and saturation of regions on the image on screen.
class TestRegionImageValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<RegionValuesFixture>(); }
    void cleanup() { theFixture.reset(); }

    void whiteRegionOnAGrayImageGives100ForBothImageValues();
    void grayImageGivesItsLightnessAsSaturation();
    void imageValuesAreThoseInTheOutline();
    void imageValuesOfARegionPartlyOutsideAreThoseOfItsInnerPart();
    void imageValuesFollowTheImageOnScreen();
    void withoutAnImageTheImageValuesAreZero();
    void theImageKeepsItsRegionOfInterest();

private:
    std::unique_ptr<RegionValuesFixture> theFixture;
};

void TestRegionImageValues::whiteRegionOnAGrayImageGives100ForBothImageValues()
{
    LmImage gray(400, 300, 1, nullptr, 4);
    theFixture->paint(gray, QRect(110, 120, 30, 20), 255, 0, 0);
    theFixture->theKernel.theCurrentImage = &gray;
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 30, 20)), true, QPoint(110, 120));
    QCOMPARE(theFixture->number(kLightness, record), 100.0);
    QCOMPARE(theFixture->theUnit, kPercent);
    QCOMPARE(theFixture->number(kSaturation, record), 100.0);
    QCOMPARE(theFixture->theUnit, kPercent);
    theFixture->theKernel.theCurrentImage = &theFixture->theImage;
}

void TestRegionImageValues::grayImageGivesItsLightnessAsSaturation()
{
    LmImage gray(400, 300, 1, nullptr, 4);
    theFixture->paint(gray, QRect(110, 120, 30, 5), 204, 0, 0); // a quarter of the region; the rest is black
    theFixture->theKernel.theCurrentImage = &gray;
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 30, 20)), true, QPoint(110, 120));
    QCOMPARE(theFixture->number(kLightness, record), 20.0);
    QCOMPARE(theFixture->number(kSaturation, record), 20.0);
    theFixture->theKernel.theCurrentImage = &theFixture->theImage;
}

void TestRegionImageValues::imageValuesAreThoseInTheOutline()
{
    // Lightness (160 + 40) / 2 of 255 and saturation 120 / 200, in white.
    theFixture->paint(theFixture->theImage, QRect(0, 0, 400, 300), 255, 255, 255);
    theFixture->paint(theFixture->theImage, QRect(200, 100, 80, 60), 160, 40, 40);
    const LmKernelObjectData* inside =
        theFixture->insert(1, rectangle(QRect(0, 0, 80, 60)), true, QPoint(200, 100));
    QCOMPARE(theFixture->number(kLightness, inside), 100.0 / 2.55);
    QCOMPARE(theFixture->number(kSaturation, inside), 60.0);
    const LmKernelObjectData* half =
        theFixture->insert(2, rectangle(QRect(-80, 0, 160, 60)), true, QPoint(200, 100));
    QCOMPARE(theFixture->number(kLightness, half), (100.0 + 255.0) / 2.0 / 2.55);
    QCOMPARE(theFixture->number(kSaturation, half), 30.0);
    const LmKernelObjectData* outside =
        theFixture->insert(3, rectangle(QRect(0, 0, 80, 60)), true, QPoint(300, 100));
    QCOMPARE(theFixture->number(kLightness, outside), 100.0);
    QCOMPARE(theFixture->number(kSaturation, outside), 0.0);
}

void TestRegionImageValues::imageValuesOfARegionPartlyOutsideAreThoseOfItsInnerPart()
{
    theFixture->paint(theFixture->theImage, QRect(0, 0, 400, 300), 51, 51, 51);
    const QPolygon shape = rectangle(QRect(0, 0, 200, 200));
    QCOMPARE(theFixture->number(kLightness, theFixture->insert(1, shape, true, QPoint(-100, -100))), 20.0);
    QCOMPARE(theFixture->number(kLightness, theFixture->insert(2, shape, true, QPoint(390, 290))), 20.0);
    QCOMPARE(theFixture->number(kLightness, theFixture->insert(3, shape, true, QPoint(400, 0))), 0.0);
    const QPolygon larger = rectangle(QRect(-5000, -5000, 10000, 10000));
    QCOMPARE(theFixture->number(kLightness, theFixture->insert(4, larger, true, QPoint(0, 0))), 20.0);
}

void TestRegionImageValues::imageValuesFollowTheImageOnScreen()
{
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 30, 20)), true, QPoint(110, 120));
    QCOMPARE(theFixture->number(kLightness, record), 0.0);
    theFixture->paint(theFixture->theImage, QRect(0, 0, 400, 300), 102, 102, 102);
    QCOMPARE(theFixture->number(kLightness, record), 40.0);
}

void TestRegionImageValues::withoutAnImageTheImageValuesAreZero()
{
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 100, 50)), true, QPoint(100, 100));
    theFixture->paint(theFixture->theImage, QRect(0, 0, 400, 300), 102, 102, 102);
    LmImage empty(0, 0, 3, nullptr, 4);
    for (LmImage* image : {static_cast<LmImage*>(nullptr), &empty}) {
        theFixture->theKernel.theCurrentImage = image;
        QCOMPARE(theFixture->number(kLightness, record), 0.0);
        QCOMPARE(theFixture->number(kSaturation, record), 0.0);
        QCOMPARE(theFixture->number(kWidth, record), 100.0);
    }
    theFixture->theKernel.theCurrentImage = &theFixture->theImage;
}

void TestRegionImageValues::theImageKeepsItsRegionOfInterest()
{
    const QRect region = theFixture->theImage.qRoi();
    QVERIFY(region != QRect(0, 0, 400, 300));
    theFixture->paint(theFixture->theImage, QRect(0, 0, 40, 30), 255, 255,
                      255); // left and above of that region
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 30, 20)), true, QPoint(5, 5));
    QCOMPARE(theFixture->number(kLightness, record), 100.0);
    QCOMPARE(theFixture->theImage.qRoi(), region);
}

MEASURE_TEST_MAIN(TestRegionImageValues)
#include "TestRegionImageValues.moc"
