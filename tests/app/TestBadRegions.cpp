#include "BenchState.h"
#include "Document.h"
#include "MadeFiles.h"
#include "ProjectText.h"
#include "Sentence.h"
#include "TestBench.h"
#include "TestFont.h"

using ProjectText::RegionText;

/// Projects with a region that can't be one: each gives one sentence, and nothing changes.
class TestBadRegions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goodRegionOpens();
    void badRegionIsRefused_data();
    void badRegionIsRefused();
    void absurdNumberOfPointsIsRefused();

private:
    /// Opens a project with a good distance and this object behind it.
    bool opens(TestBench& aBench, const QByteArray& aObject, QString& aError) const;
};

bool TestBadRegions::opens(TestBench& aBench, const QByteArray& aObject, QString& aError) const
{
    const QString path = aBench.path(QStringLiteral("regions.mtp"));
    const QByteArray picture = ProjectText::picture(QStringLiteral("picture.png"), 120, 80);
    MadeFiles::write(path, ProjectText::project(picture, "", ProjectText::distance(1) + aObject));
    return aBench.document().open(path, aError);
}

void TestBadRegions::goodRegionOpens()
{
    TestBench bench;
    bench.doWork();
    QString error;
    QVERIFY2(opens(bench, ProjectText::region(1), error), qPrintable(error));
    QVERIFY(recordsText().contains(QStringLiteral("-20,-20 -20,-20 -20,-20 20,-20")));
}

void TestBadRegions::badRegionIsRefused_data()
{
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<QString>("named");
    const auto row = [](const char* aTitle, const char* aOld, const char* aNew, const char* aNamed) {
        QByteArray object = ProjectText::region(1);
        if (!object.contains(aOld))
            qFatal("nothing to change: %s", aOld);
        QTest::newRow(aTitle) << object.replace(aOld, aNew) << QString::fromLatin1(aNamed);
    };
    row("points as a point", "name=\"pts\" type=\"QPolygon\"", "name=\"pts\" type=\"QPoint\"", "QPoint");
    row("points as text", "name=\"pts\" type=\"QPolygon\"", "name=\"pts\" type=\"QString\"", "QString");
    row("points of another program", "name=\"pts\" type=\"QPolygon\"", "name=\"pts\" type=\"QPolygonF\"",
        "QPolygonF");
    row("half a point", "<default>-20,-20 ", "<default>-20,-20 5 ", "pts");
    row("point in words", "<default>-20,-20 ", "<default>left,top ", "left,top");
    row("fraction of a pixel", "<default>-20,-20 ", "<default>-20.5,-20 ", "-20.5");
    row("coordinate beyond all numbers", "<default>-20,-20 ", "<default>2147483648,0 ", "2147483648");
    row("states as text", "type=\"QByteArray\"", "type=\"QString\"", "QString");
    row("states that are no bytes", "/wAB", "*?*?", "nst");
    row("states that are cut", "/wAB/wAB/wAB/wAB", "/wAB/wAB/wAB/wA", "nst");
    row("closed in words", "name=\"cl\" type=\"bool\"><default>true",
        "name=\"cl\" type=\"bool\"><default>yes", "yes");
    row("closed as a number", "name=\"cl\" type=\"bool\"", "name=\"cl\" type=\"int\"", "int");
    row("position as a list", "name=\"pos\" type=\"QPoint\"", "name=\"pos\" type=\"QPolygon\"", "QPolygon");
    row("position of one number", "100 80", "100", "pos");
    row("colour of a number", "#ffff0000", "16711680", "16711680");
    row("no points", "<param name=\"pts\"", "<param name=\"points\"", "points");
    row("points twice", "name=\"nst\" type=\"QByteArray\"", "name=\"pts\" type=\"QPolygon\"", "twice");
    row("closed by frames", "name=\"cl\" type=\"bool\"><default>true</default>",
        "name=\"cl\" type=\"bool\"><default>true</default><keyframe frame=\"1\">false</keyframe>",
        "can't have keyframes");
    row("elements within the points", "<default>-20,-20 ", "<default><p>1</p>-20,-20 ",
        "instead of elements");
    QByteArray object = ProjectText::region(1);
    object.replace("<param name=\"nst\" type=\"QByteArray\"><default>" + RegionText::states(4) +
                       "</default></param>\n",
                   "");
    QTest::newRow("no states") << object << QStringLiteral("\"nst\" is missing");
    QTest::newRow("region twice") << ProjectText::region(1) + ProjectText::region(1)
                                  << QStringLiteral("stands here twice");
}

void TestBadRegions::badRegionIsRefused()
{
    QFETCH(QByteArray, object);
    QFETCH(QString, named);
    TestBench bench;
    bench.doWork();
    const QString before = benchState(bench);
    QString error;
    QVERIFY(!opens(bench, object, error));
    QCOMPARE(benchState(bench), before);
    QCOMPARE(sentenceFault(error), QString());
    QVERIFY2(error.contains(named) && error.contains(QStringLiteral("line ")), qPrintable(error));
}

void TestBadRegions::absurdNumberOfPointsIsRefused()
{
    TestBench bench;
    bench.doWork();
    const QString before = benchState(bench);
    RegionText text;
    text.thePoints = QByteArray("0,0 ").repeated(10'000'001);
    QString error;
    QVERIFY(!opens(bench, ProjectText::region(1, text), error));
    QCOMPARE(benchState(bench), before);
    QCOMPARE(sentenceFault(error), QString());
    QVERIFY2(error.contains(QStringLiteral("\"pts\"")), qPrintable(error));
    QVERIFY(error.size() < 1000); // only the beginning of the list is shown
}

MEASURE_TEST_MAIN(TestBadRegions)
#include "TestBadRegions.moc"
