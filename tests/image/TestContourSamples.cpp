#include "LmImageProcessor.h"

#include "SamplePictures.h"
#include "TestFont.h"

#include <algorithm>

namespace {

constexpr int kLeastArea = 5; // pixels, as the tool asks

QLinkedList<LmCVSequence> search(const LmImage& aImage)
{
    QLinkedList<LmCVSequence> found;
    const int most = int(aImage.theImageSize * 0.8);
    if (!LmImageProcessor::getInstance(nullptr)->findContourSeq(found, &aImage, kLeastArea, most, false,
                                                                false))
        qFatal("the search refused an image");
    return found;
}

/// The best overlap that any outline has with the ellipse.
Overlap bestOverlap(const QLinkedList<LmCVSequence>& aFound, const MeasuredEllipse& aEllipse,
                    const LmImage& aImage)
{
    Overlap best{0.0, 0.0};
    for (const LmCVSequence& outline : aFound)
        if (const Overlap one = SamplePictures::overlap(outline, aEllipse, aImage);
            one.theJoint > best.theJoint)
            best = one;
    return best;
}

QRect around(const MeasuredEllipse& aEllipse, int aMargin)
{
    return QRect(QPoint(int(aEllipse.theX - aEllipse.theRadiusX), int(aEllipse.theY - aEllipse.theRadiusY)),
                 QPoint(int(aEllipse.theX + aEllipse.theRadiusX), int(aEllipse.theY + aEllipse.theRadiusY)))
        .adjusted(-aMargin, -aMargin, aMargin, aMargin);
}

} // namespace

class TestContourSamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyCoinIsFoundAndNothingElse();
    void coinsAreFoundInTheNegativeToo();
    void aRowOfCoinsIsFoundInARectangle();
    void aRectangleAroundOneCoinFindsIt();
    void theCellIsFoundWithoutItsHalo();

private:
    void checkAllCoins(const LmImage& aImage);

    std::unique_ptr<LmImage> theCoins;
};

void TestContourSamples::init()
{
    theCoins = SamplePictures::load(QStringLiteral("coins.png"), 1);
    QVERIFY(theCoins);
}

void TestContourSamples::checkAllCoins(const LmImage& aImage)
{
    const QLinkedList<LmCVSequence> found = search(aImage);
    QCOMPARE(found.size(), 24);
    QList<double> joint;
    for (const MeasuredEllipse& coin : SamplePictures::kCoins) {
        const Overlap overlap = bestOverlap(found, coin, aImage);
        QVERIFY2(overlap.theCovered >= 0.9, qPrintable(QString::number(overlap.theCovered)));
        QVERIFY2(overlap.theJoint >= 0.88, qPrintable(QString::number(overlap.theJoint)));
        joint.append(overlap.theJoint);
    }
    std::sort(joint.begin(), joint.end());
    qInfo("24 coins, overlap at least %.3f, median %.3f", joint.first(), (joint[11] + joint[12]) / 2.0);
    QVERIFY((joint[11] + joint[12]) / 2.0 > 0.94);
}

void TestContourSamples::everyCoinIsFoundAndNothingElse()
{
    checkAllCoins(*theCoins);
}

void TestContourSamples::coinsAreFoundInTheNegativeToo()
{
    for (int y = 0; y < theCoins->height(); ++y)
        for (int x = 0; x < theCoins->width(); ++x)
            theCoins->row(y)[x] = static_cast<unsigned char>(255 - theCoins->row(y)[x]);
    checkAllCoins(*theCoins);
}

void TestContourSamples::aRowOfCoinsIsFoundInARectangle()
{
    for (size_t row = 0; row < 4; ++row) {
        QRect rectangle;
        for (size_t i = 6 * row; i < 6 * row + 6; ++i)
            rectangle |= around(SamplePictures::kCoins[i], 2);
        theCoins->setQRoi(rectangle);
        const QLinkedList<LmCVSequence> found = search(*theCoins);
        QCOMPARE(found.size(), 6);
        for (size_t i = 6 * row; i < 6 * row + 6; ++i)
            QVERIFY(bestOverlap(found, SamplePictures::kCoins[i], *theCoins).theJoint > 0.85);
    }
}

void TestContourSamples::aRectangleAroundOneCoinFindsIt()
{
    for (const MeasuredEllipse& coin : SamplePictures::kCoins) {
        theCoins->setQRoi(around(coin, 4));
        const QLinkedList<LmCVSequence> found = search(*theCoins);
        QCOMPARE(found.size(), 1);
        QVERIFY(bestOverlap(found, coin, *theCoins).theJoint > 0.85);
    }
}

void TestContourSamples::theCellIsFoundWithoutItsHalo()
{
    const auto cell = SamplePictures::load(QStringLiteral("cell.png"), 1);
    QVERIFY(cell);
    const QLinkedList<LmCVSequence> found = search(*cell);
    QCOMPARE(found.size(), 1);
    const Overlap overlap = SamplePictures::overlap(found.first(), SamplePictures::kCell, *cell);
    qInfo("the cell: overlap %.3f, covered %.3f", overlap.theJoint, overlap.theCovered);
    QVERIFY(overlap.theJoint > 0.9);
}

MEASURE_TEST_MAIN(TestContourSamples)
#include "TestContourSamples.moc"
