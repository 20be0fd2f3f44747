#include "AnimatedObjects.h"
#include "AnimatedValues.h"
#include "BenchState.h"
#include "Document.h"
#include "Drawn.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "Sentence.h"
#include "TestBench.h"
#include "TestFont.h"
#include "ValueExport.h"
#include "ValuesCsv.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTextStream>

#include <cmath>

/// Values over time as a file.
class TestValuesExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileIsExact();
    void calibratedValuesHaveTheirUnit();
    void angleIsExact();
    void dimensionIsExact();
    void picturesAreMeasuredOnEachPage();
    void knownValuesAreTakenAsTheyAre();
    void gapsHaveNoLine();
    void cellsAreQuotedWhereTheyHaveTo_data();
    void cellsAreQuotedWhereTheyHaveTo();
    void withoutAnimatedObjectsThereIsTheHeading();
    void earlierFileIsReplacedWhenAllIsThere();
    void cancelledExportLeavesNoFile();
    void badPlacesAreTold_data();
    void badPlacesAreTold();
    void programPrintsTheSame();
    void missingPictureIsToldAndLeavesTheOtherValues();

private:
    static void open(TestBench& aBench)
    {
        AnimatedObjects::openGrays(aBench, aBench.path(QStringLiteral("grays.tif")), QSize(120, 80),
                                   {51, 102, 204});
    }
    static int addDistance(TestBench& aBench)
    {
        return AnimatedObjects::addDistance(
            aBench, {{0, QPoint(10, 10), QPoint(30, 10)}, {2, QPoint(10, 10), QPoint(40, 50)}});
    }
    static QList<ValueKey> allKeys() { return AnimatedValues::keys(AnimatedValues::objects()); }
    static QByteArray written(TestBench& aBench, const QList<ValueKey>& aKeys);
};

static const QByteArray kHeading = "object,name,frame,time,value,unit,keyframe\n";
static const auto kGoOn = [](qint64, qint64) { return true; };

QByteArray TestValuesExport::written(TestBench& aBench, const QList<ValueKey>& aKeys)
{
    const QString path = aBench.path(QStringLiteral("values.csv"));
    QString error;
    if (ValueExport::write(path, aBench.media(), aKeys, {}, kGoOn, error) != ValueExport::kWritten)
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return MadeFiles::read(path);
}

void TestValuesExport::fileIsExact()
{
    TestBench bench;
    open(bench);
    const int idx = addDistance(bench);
    const QString before = benchState(bench);
    // The extent goes from (20, 0) over (26, 20), twice the rounded half of (13, 10), to (30, 40).
    QCOMPARE(written(bench, {{kDistanceType, idx, QStringLiteral("Distance")},
                             {kDistanceType, idx, QStringLiteral("DX")}}),
             kHeading +
                 "Distance 1,Distance,1,,20,,1\n"
                 "Distance 1,Distance,2,," +
                 QByteArray::number(std::hypot(26.0, 20.0), 'g', 15) +
                 ",,0\n"
                 "Distance 1,Distance,3,,50,,1\n"
                 "Distance 1,DX,1,,20,,1\n"
                 "Distance 1,DX,2,,26,,0\n"
                 "Distance 1,DX,3,,30,,1\n");
    QCOMPARE(benchState(bench), before);
}

void TestValuesExport::calibratedValuesHaveTheirUnit()
{
    TestBench bench;
    open(bench);
    const int idx = addDistance(bench);
    LmKSKernelData::getInstance()->setCalibration(QStringLiteral("lens"),
                                                  LmCalibData{360.0, QStringLiteral("\u00b5m, \"lens\"")});
    LmKSKernelData::getInstance()->setCurrentCalibration(QStringLiteral("lens"));
    QCOMPARE(written(bench, {{kDistanceType, idx, QStringLiteral("DX")}}),
             kHeading + "Distance 1,DX,1,,60,\"\xc2\xb5m, \"\"lens\"\"\",1\n"
                        "Distance 1,DX,2,,78,\"\xc2\xb5m, \"\"lens\"\"\",0\n"
                        "Distance 1,DX,3,,90,\"\xc2\xb5m, \"\"lens\"\"\",1\n");
}

void TestValuesExport::angleIsExact()
{
    TestBench bench;
    open(bench);
    LmKSKernelData::getInstance()->setCalibration(QStringLiteral("lens"),
                                                  LmCalibData{360.0, QStringLiteral("mm")});
    LmKSKernelData::getInstance()->setCurrentCalibration(QStringLiteral("lens"));
    // Counter-clockwise from the second arm, which points up: the first one turns from the right over the
    // lower right, halfway between both keyframes, to the bottom.
    const QPoint start(40, 40);
    const QPoint stop(60, 30);
    QCOMPARE(AnimatedObjects::addAngle(bench, {{0, start, start + QPoint(20, 0), start - QPoint(0, 20)},
                                               {2, stop, stop + QPoint(0, 20), stop - QPoint(0, 20)}}),
             1);
    QCOMPARE(written(bench, allKeys()), kHeading + "Angle 1,Angle,1,,270,\xc2\xb0,1\n"
                                                   "Angle 1,Angle,2,,225,\xc2\xb0,0\n"
                                                   "Angle 1,Angle,3,,180,\xc2\xb0,1\n");
}

void TestValuesExport::dimensionIsExact()
{
    TestBench bench;
    open(bench);
    LmKSKernelData::getInstance()->setCalibration(QStringLiteral("lens"),
                                                  LmCalibData{360.0, QStringLiteral("mm")});
    LmKSKernelData::getInstance()->setCurrentCalibration(QStringLiteral("lens"));
    // A height along (3, 4), one width to the right and one to the bottom, at one, two and three times their
    // size. The mean of the widths' ends lies along (4, 3).
    const QPoint foot(60, 10);
    const QPoint left(20, 20);
    const auto segments = [&](int aFrame, int aTimes) {
        const QPolygon points({foot, foot + aTimes * QPoint(9, 12), left, left + aTimes * QPoint(16, 0), left,
                               left + aTimes * QPoint(0, 12)});
        return AnimatedObjects::Segments(aFrame, points);
    };
    QCOMPARE(AnimatedObjects::addDimension(bench, {segments(0, 1), segments(2, 3)}), 1);
    // The picture of 120 pixels is 360 mm wide.
    QByteArray expected = kHeading;
    const QList<QPair<const char*, int>> pixels{
        {"Height", 15}, {"Width1", 16}, {"Width2", 12}, {"Width3", 0}, {"Avg. Width", 10}};
    for (const auto& [name, length] : pixels)
        for (const int page : {1, 2, 3})
            expected += QByteArray("Dimension 1,") + name + ',' + QByteArray::number(page) + ",," +
                        QByteArray::number(3 * length * page) + ",mm," + (page == 2 ? '0' : '1') + '\n';
    QCOMPARE(written(bench, allKeys()), expected);
}

void TestValuesExport::picturesAreMeasuredOnEachPage()
{
    TestBench bench;
    open(bench);
    const int idx = AnimatedObjects::addSquare(bench, 10, {{0, {40, 30}}, {2, {43, 34}}});
    const QByteArray text = written(bench, allKeys());
    QVERIFY(text.contains("Region 1,Avg. lightness,1,,20,%,1\nRegion 1,Avg. lightness,2,,40,%,0\n"
                          "Region 1,Avg. lightness,3,,80,%,1\n"));
    QVERIFY(text.contains("Region 1,Area,1,,81,\xc2\xb2,1\n"));
    QVERIFY(text.endsWith("Region 1,Way dist.,1,,0,,1\nRegion 1,Way dist.,3,,5,,1\n"));
    // Six values on three pages and two at the keyframes.
    QCOMPARE(text.count('\n'), 1 + 6 * 3 + 2 * 2);
    QCOMPARE(idx, 1);
}

void TestValuesExport::knownValuesAreTakenAsTheyAre()
{
    TestBench bench;
    open(bench);
    const ValueKey key{AnimatedObjects::kRegionType, AnimatedObjects::addSquare(bench, 10, {{0, {40, 30}}}),
                       QStringLiteral("Avg. lightness")};
    ValueSeries series;
    series.theUnit = QStringLiteral("%");
    series.theSamples.push_back({1.0 / 3.0, 2, false, false});
    QString text;
    QTextStream out(&text);
    QVERIFY(ValuesCsv::write(bench.media(), {key}, {{key, std::make_shared<const ValueSeries>(series)}},
                             kGoOn, out));
    QCOMPARE(text.toUtf8(), kHeading + "Region 1,Avg. lightness,3,,0.333333333333333,%,0\n");
}

void TestValuesExport::gapsHaveNoLine()
{
    TestBench bench;
    open(bench);
    const int idx = AnimatedObjects::addDistance(
        bench, {{0, QPoint(10, 10), QPoint(10, 10)}, {2, QPoint(10, 10), QPoint(30, 10)}});
    QCOMPARE(written(bench, {{kDistanceType, idx, QStringLiteral("Angle")}}),
             kHeading + "Distance 1,Angle,2,,0,\xc2\xb0,0\nDistance 1,Angle,3,,0,\xc2\xb0,1\n");
}

void TestValuesExport::cellsAreQuotedWhereTheyHaveTo_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("cell");
    QTest::newRow("plain") << QStringLiteral("Avg. lightness") << QStringLiteral("Avg. lightness");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("comma") << QStringLiteral("a,b") << QStringLiteral("\"a,b\"");
    QTest::newRow("quote") << QStringLiteral("1\" x") << QStringLiteral("\"1\"\" x\"");
    QTest::newRow("line") << QStringLiteral("a\nb") << QStringLiteral("\"a\nb\"");
    QTest::newRow("return") << QStringLiteral("a\rb") << QStringLiteral("\"a\rb\"");
}

void TestValuesExport::cellsAreQuotedWhereTheyHaveTo()
{
    QFETCH(QString, text);
    QFETCH(QString, cell);
    QCOMPARE(ValuesCsv::cell(text), cell);
}

void TestValuesExport::withoutAnimatedObjectsThereIsTheHeading()
{
    TestBench bench;
    open(bench);
    ::addDistance(bench, QPoint(0, 0), QPoint(20, 0));
    QCOMPARE(written(bench, allKeys()), kHeading);
}

void TestValuesExport::earlierFileIsReplacedWhenAllIsThere()
{
    TestBench bench;
    open(bench);
    addDistance(bench);
    const QString path = bench.path(QStringLiteral("values.csv"));
    MadeFiles::write(path, "earlier");
    QString error;
    const auto stop = [](qint64, qint64) { return false; };
    QCOMPARE(ValueExport::write(path, bench.media(), allKeys(), {}, stop, error), ValueExport::kCancelled);
    QCOMPARE(MadeFiles::read(path), QByteArray("earlier"));
    QCOMPARE(error, QString());
    QVERIFY(written(bench, allKeys()).startsWith(kHeading));
}

void TestValuesExport::cancelledExportLeavesNoFile()
{
    TestBench bench;
    open(bench);
    addDistance(bench);
    AnimatedObjects::addSquare(bench, 10, {{0, {40, 30}}});
    const QString path = bench.path(QStringLiteral("values.csv"));
    const QStringList before = QFileInfo(path).dir().entryList(QDir::Files | QDir::Hidden);
    const QString state = benchState(bench);
    int looks = 0;
    QString error;
    const auto count = [&looks](qint64, qint64) { return ++looks, true; };
    QCOMPARE(ValueExport::write(path, bench.media(), allKeys(), {}, count, error), ValueExport::kWritten);
    QVERIFY(QFile::remove(path));
    // Each look may be the one that cancels.
    QVERIFY(looks > 5);
    for (int last = 0; last < looks; ++last) {
        int left = last;
        const auto goOn = [&left](qint64, qint64) { return left-- > 0; };
        QCOMPARE(ValueExport::write(path, bench.media(), allKeys(), {}, goOn, error),
                 ValueExport::kCancelled);
        QCOMPARE(QFileInfo(path).dir().entryList(QDir::Files | QDir::Hidden), before);
    }
    QCOMPARE(benchState(bench), state);
}

void TestValuesExport::badPlacesAreTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no such folder") << QStringLiteral("none/values.csv");
    QTest::newRow("a folder") << QStringLiteral("folder");
}

void TestValuesExport::badPlacesAreTold()
{
    QFETCH(QString, name);
    TestBench bench;
    open(bench);
    addDistance(bench);
    QVERIFY(QDir().mkdir(bench.path(QStringLiteral("folder"))));
    QString error;
    QCOMPARE(ValueExport::write(bench.path(name), bench.media(), allKeys(), {}, kGoOn, error),
             ValueExport::kFailed);
    QCOMPARE(sentenceFault(error), QString());
}

static QByteArray printed(const QString& aProject, int& aStatus, QByteArray& aErrors)
{
    QProcess process;
    process.start(QStringLiteral(MEASURETOOLS_PROGRAM), {QStringLiteral("--values-over-time"), aProject});
    aStatus = process.waitForFinished(60'000) ? process.exitCode() : -1;
    aErrors = process.readAllStandardError();
    return process.readAllStandardOutput();
}

void TestValuesExport::programPrintsTheSame()
{
    TestBench bench;
    open(bench);
    addDistance(bench);
    AnimatedObjects::addSquare(bench, 10, {{0, {40, 30}}, {2, {43, 34}}});
    const QString project = bench.path(QStringLiteral("work.mtp"));
    QString error;
    QVERIFY2(bench.document().save(project, error), qPrintable(error));
    int status = -1;
    QByteArray errors;
    QCOMPARE(printed(project, status, errors), written(bench, allKeys()));
    QCOMPARE(status, 0);
    QCOMPARE(errors, QByteArray());
    QCOMPARE(printed(bench.path(QStringLiteral("none.mtp")), status, errors), QByteArray());
    QCOMPARE(status, 2);
}

void TestValuesExport::missingPictureIsToldAndLeavesTheOtherValues()
{
    TestBench bench;
    open(bench);
    AnimatedObjects::addSquare(bench, 10, {{0, {40, 30}}, {2, {43, 34}}});
    const QString project = bench.path(QStringLiteral("work.mtp"));
    QString error;
    QVERIFY2(bench.document().save(project, error), qPrintable(error));
    QVERIFY(QFile::remove(bench.path(QStringLiteral("grays.tif"))));
    int status = -1;
    QByteArray errors;
    const QByteArray text = printed(project, status, errors);
    QCOMPARE(status, 0);
    QVERIFY2(errors.count('\n') == 1 && errors.contains("grays.tif is not there"), errors.constData());
    QCOMPARE(text.count('\n'), 1 + 4 * 3 + 2 * 2);
    QVERIFY(!text.contains("lightness"));
}

MEASURE_TEST_MAIN(TestValuesExport)
#include "TestValuesExport.moc"
