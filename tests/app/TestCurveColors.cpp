#include "CurveColors.h"
#include "TestFont.h"

#include <QSet>

/// Colors of curves can be read and told apart.
class TestCurveColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contrastIsThatOfTheEye();
    void readableColorStays();
    void everyColorBecomesReadable_data();
    void everyColorBecomesReadable();
    void firstOfEqualOnesKeepsItsColor();
    void ownColorGoesBeforeATurnedOne();
    void manyEqualOnesAllDiffer();
};

void TestCurveColors::contrastIsThatOfTheEye()
{
    QCOMPARE(CurveColors::contrast(Qt::black, Qt::white), 21.0);
    QCOMPARE(CurveColors::contrast(Qt::white, Qt::black), 21.0);
    QCOMPARE(CurveColors::contrast(Qt::red, Qt::red), 1.0);
}

void TestCurveColors::readableColorStays()
{
    const QColor blue(16, 96, 208);
    QCOMPARE(CurveColors::readable(blue, Qt::white), blue);
}

void TestCurveColors::everyColorBecomesReadable_data()
{
    QTest::addColumn<QColor>("ground");
    QTest::newRow("light") << QColor(Qt::white);
    QTest::newRow("dark") << QColor(27, 30, 32);
    QTest::newRow("black") << QColor(Qt::black);
}

void TestCurveColors::everyColorBecomesReadable()
{
    QFETCH(QColor, ground);
    for (int red = 0; red < 256; red += 51)
        for (int green = 0; green < 256; green += 51)
            for (int blue = 0; blue < 256; blue += 51) {
                const QColor color = CurveColors::readable(QColor(red, green, blue), ground);
                QVERIFY2(CurveColors::contrast(color, ground) >= 2.9, qPrintable(color.name()));
            }
}

void TestCurveColors::firstOfEqualOnesKeepsItsColor()
{
    const QColor pink(208, 16, 76);
    const QList<QColor> colors = CurveColors::distinct({pink, pink}, Qt::white);
    QCOMPARE(colors[0], pink);
    QVERIFY(colors[1] != pink);
}

void TestCurveColors::ownColorGoesBeforeATurnedOne()
{
    const QColor blue(16, 96, 208);
    const QColor turned = CurveColors::distinct({blue, blue}, Qt::white)[1];
    // The third wants the very color that the second would get.
    QCOMPARE(CurveColors::distinct({blue, blue, turned}, Qt::white)[2], turned);
}

void TestCurveColors::manyEqualOnesAllDiffer()
{
    const QList<QColor> colors = CurveColors::distinct(QList<QColor>(60, QColor(Qt::red)), Qt::white);
    QSet<QRgb> numbers;
    for (const QColor& color : colors)
        numbers.insert(color.rgb());
    QCOMPARE(numbers.size(), 60);
}

MEASURE_TEST_MAIN(TestCurveColors)
#include "TestCurveColors.moc"
