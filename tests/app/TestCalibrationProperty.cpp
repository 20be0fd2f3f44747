#include "FigureSession.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "Q3Table.h"
#include "TestFont.h"

#include <QAction>

/// After whatever happens, every figure on the screen is what records and calibration say.
class TestCalibrationProperty : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noFigureIsStale_data();
    void noFigureIsStale();
    void staleFiguresWouldBeFound();
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

void TestCalibrationProperty::staleFiguresWouldBeFound()
{
    FigureSession session(1);
    InterestWindow& w = session.window();
    const auto finds = [&](const char* aPlace) {
        const QString fault = session.fault();
        return QTest::qVerify(fault.contains(QLatin1String(aPlace)), aPlace, qPrintable(fault), __FILE__,
                              __LINE__);
    };
    QCOMPARE(session.fault(), QString());
    w.actions().theScaleBar->setChecked(false);
    QVERIFY(finds("scale bar"));
    w.actions().theScaleBar->setChecked(true);
    // Nobody hears of this calibration.
    w.kernel().blockSignals(true);
    w.kernel().setCalibration(QStringLiteral("c"), LmCalibData{40.0, QStringLiteral("mm")});
    w.kernel().setCurrentCalibration(QStringLiteral("c"));
    w.kernel().blockSignals(false);
    QVERIFY(finds("status bar"));
    w.kernel().setCalibration(QStringLiteral("c"), LmCalibData{80.0, QStringLiteral("mm")});
    QCOMPARE(session.fault(), QString());
    QCOMPARE(w.draw(QPoint(20, 20), QPoint(120, 20)), 1);
    QCOMPARE(session.fault(), QString());
    session.table().setText(0, 0, QStringLiteral("19.99 mm"));
    QVERIFY(finds("of Distance 1"));
    w.distanceTool()->getCvObject(1)->setDisplayValue(QStringLiteral("19.99mm"));
    QVERIFY(finds("label of"));
}

MEASURE_TEST_MAIN(TestCalibrationProperty)
#include "TestCalibrationProperty.moc"
