#include "FigureSession.h"
#include "TestFont.h"

/// After whatever happens, every figure on the screen is what records and calibration say.
class TestCalibrationProperty : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noFigureIsStale_data();
    void noFigureIsStale();
};

void TestCalibrationProperty::noFigureIsStale_data()
{
    QTest::addColumn<quint32>("seed");
    // The first one is always the same; the others are new at each run.
    QTest::newRow("known") << quint32(1);
    for (int i = 0; i < 5; ++i) {
        const quint32 seed = QRandomGenerator::global()->generate();
        QTest::newRow(qPrintable(QString::number(seed))) << seed;
    }
    for (const QString& seed :
         qEnvironmentVariable("MEASURETOOLS_SEEDS").split(QLatin1Char(' '), Qt::SkipEmptyParts))
        QTest::newRow(qPrintable(seed)) << seed.toUInt();
}

void TestCalibrationProperty::noFigureIsStale()
{
    QFETCH(quint32, seed);
    FigureSession session(seed);
    constexpr int kSteps = 120;
    QStringList done;
    for (int i = 0; i < kSteps; ++i) {
        done << session.step();
        const QString fault = session.fault();
        QVERIFY2(fault.isEmpty(), qPrintable(QStringLiteral("seed %1, step %2 (%3): %4")
                                                 .arg(seed)
                                                 .arg(i)
                                                 .arg(done.mid(i - 3).join(QStringLiteral(", ")), fault)));
    }
}

MEASURE_TEST_MAIN(TestCalibrationProperty)
#include "TestCalibrationProperty.moc"
