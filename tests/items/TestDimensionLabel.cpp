#include "LmCvDimension.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QFontMetrics>

/// The label of a dimension: which segment it lies along, and where.
class TestDimensionLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { delete theItem; }

    void secondCharacterOfTheValueNamesTheSegment_data();
    void secondCharacterOfTheValueNamesTheSegment();
    void segmentThatIsNotThereGivesTheFirst();
    void labelStandsOnTheLineAfterAMove();
    void labelStandsTwoPixelsHigherAfterATextChange();
    void labelSitsAtTheRoundedMiddle_data();
    void labelSitsAtTheRoundedMiddle();
    void labelBoxFitsItsText();
    void labelWithoutSegmentsHarmsNobody();

private:
    /// The segment above whose middle the label stands.
    int labelledSegment() const;

    Q3Canvas theCanvas{1000, 1000};
    LmCvDimension* theItem = nullptr;
};

// Four level lines with their middles at (200, 100), (400, 200), (600, 300) and (800, 400).
void TestDimensionLabel::init()
{
    theItem = new LmCvDimension(nullptr, &theCanvas, QStringLiteral("3"), nullptr);
    Q3PointArray points;
    for (int i = 1; i <= 4; ++i)
        points << QPoint(200 * i - 50, 100 * i) << QPoint(200 * i + 50, 100 * i);
    theItem->setPoints(points);
    theItem->updateLabel();
}

int TestDimensionLabel::labelledSegment() const
{
    const int x = theItem->theLabelRect.center().x();
    for (int i = 1; i <= 4; ++i)
        if (x == 200 * i)
            return i - 1;
    return -1;
}

void TestDimensionLabel::secondCharacterOfTheValueNamesTheSegment_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("segment");
    QTest::newRow("none") << QString() << 0;
    QTest::newRow("height") << QStringLiteral("H: 3.00mm") << 0;
    QTest::newRow("width 1") << QStringLiteral("W1: 12.50mm") << 1;
    QTest::newRow("width 2") << QStringLiteral("W2: 12.50mm") << 2;
    QTest::newRow("width 3") << QStringLiteral("W3: 12.50mm") << 3;
    // The average has no letter, and the second digit of its number is read.
    QTest::newRow("average 12.50") << QStringLiteral("12.50mm") << 2;
    QTest::newRow("average 30.00") << QStringLiteral("30.00mm") << 0;
    QTest::newRow("average 3.10") << QStringLiteral("3.10mm") << 0;
    QTest::newRow("average 19.99") << QStringLiteral("19.99mm") << 0; // there is no segment 9
    QTest::newRow("one character") << QStringLiteral("2") << 0;
    QTest::newRow("sign") << QStringLiteral("W-1") << 0;
}

void TestDimensionLabel::secondCharacterOfTheValueNamesTheSegment()
{
    QFETCH(QString, value);
    QFETCH(int, segment);
    theItem->setDisplayValue(value);
    QCOMPARE(labelledSegment(), segment);
    // The same rule when the points are set.
    theItem->theLabelRect.moveCenter(QPoint(0, 0));
    theItem->setPoints(Q3PointArray(theItem->thePoints));
    QCOMPARE(labelledSegment(), segment);
    QCOMPARE(theItem->theLabelRect.bottom(), 100 * (segment + 1));
}

void TestDimensionLabel::segmentThatIsNotThereGivesTheFirst()
{
    theItem->setDisplayValue(QStringLiteral("W2: 1.00"));
    QCOMPARE(labelledSegment(), 2);
    theItem->setPoints(Q3PointArray(theItem->thePoints.mid(0, 5))); // the third segment lacks its end
    QCOMPARE(labelledSegment(), 0);
    theItem->updateLabel();
    QCOMPARE(labelledSegment(), 0);
}

void TestDimensionLabel::labelStandsOnTheLineAfterAMove()
{
    theItem->moveDimBy(0, QPoint(20, 33));
    QCOMPARE(theItem->theLabelRect.center().x(), 220);
    QCOMPARE(theItem->theLabelRect.bottom(), 133);
}

void TestDimensionLabel::labelStandsTwoPixelsHigherAfterATextChange()
{
    theItem->setDisplayValue(QStringLiteral("W1: 5.00"));
    QCOMPARE(theItem->theLabelRect.bottom(), 198);
    theItem->moveObjectBy(QPoint(0, 0));
    QCOMPARE(theItem->theLabelRect.bottom(), 200);
    theItem->updateLabel();
    QCOMPARE(theItem->theLabelRect.bottom(), 198);
}

void TestDimensionLabel::labelSitsAtTheRoundedMiddle_data()
{
    QTest::addColumn<int>("sum");
    QTest::addColumn<int>("middle");
    QTest::newRow("even") << 100 << 50;
    QTest::newRow("odd") << 101 << 51;
    QTest::newRow("negative even") << -100 << -50;
    QTest::newRow("negative odd") << -101 << -51; // halves go away from zero
}

void TestDimensionLabel::labelSitsAtTheRoundedMiddle()
{
    QFETCH(int, sum);
    QFETCH(int, middle);
    theItem->setPoints(Q3PointArray() << QPoint(-300, -300) << QPoint(sum + 300, sum + 300));
    QCOMPARE(theItem->theLabelRect.bottom(), middle);
    QCOMPARE(theItem->theLabelRect.center().x(), middle);
}

void TestDimensionLabel::labelBoxFitsItsText()
{
    const QFontMetrics metrics(theItem->theFont);
    theItem->setDisplayValue(QStringLiteral("W1: 7.00cm"));
    QCOMPARE(theItem->theLabelRect.size(), metrics.boundingRect(QStringLiteral(" 3 <W1: 7.00cm> ")).size());
    theItem->setDisplayValue(QString());
    QCOMPARE(theItem->theLabelRect.size(), metrics.boundingRect(QStringLiteral(" 3 ")).size());
}

void TestDimensionLabel::labelWithoutSegmentsHarmsNobody()
{
    theItem->setPoints(Q3PointArray());
    theItem->setDisplayValue(QStringLiteral("W2: 1.00"));
    QCOMPARE(theItem->theLabelRect.bottom(), -2);
    QCOMPARE(theItem->theLabelRect.center().x(), 0);
}

MEASURE_TEST_MAIN(TestDimensionLabel)
#include "TestDimensionLabel.moc"
