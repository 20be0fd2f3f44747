#include "MadeFiles.h"
#include "ProjectText.h"
#include "TestFont.h"
#include "TestSamples.h"
#include "WildRegions.h"

#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>

using ProjectText::RegionText;

/// The real program without a window, on projects with regions.
class TestProgramRegions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void valuesOfAClosedAndAnOpenRegionArePrinted();
    void regionIsRendered();
    void wildRegionIsPrintedAndRendered_data() { WildRegions::addRows(); }
    void wildRegionIsPrintedAndRendered();
    void badRegionGivesOneLine();

private:
    /// Writes the objects into a project.
    QString project(const QByteArray& aObjects);
    /// Ends with exit code 0 and prints nothing but its result.
    bool run(const QStringList& aArguments, QByteArray& aOutput);

    QTemporaryDir theFolder;
    QByteArray theErrors;
};

static QByteArrayList regionLines(const QByteArray& aOutput)
{
    QByteArrayList lines = aOutput.split('\n');
    lines.removeIf([](const QByteArray& aLine) { return !aLine.startsWith("Region\t"); });
    return lines;
}

void TestProgramRegions::initTestCase()
{
    QVERIFY(madePicture(400, 300).save(theFolder.filePath(QStringLiteral("picture.png"))));
}

QString TestProgramRegions::project(const QByteArray& aObjects)
{
    const QByteArray picture = ProjectText::picture(QStringLiteral("picture.png"), 400, 300);
    return MadeFiles::writeIn(theFolder, QStringLiteral("regions.mtp"),
                              ProjectText::project(picture, "", aObjects));
}

bool TestProgramRegions::run(const QStringList& aArguments, QByteArray& aOutput)
{
    QProcess process;
    process.start(QStringLiteral(MEASURETOOLS_PROGRAM), aArguments);
    const bool finished = process.waitForFinished(60'000);
    if (!finished) {
        process.kill();
        process.waitForFinished();
    }
    aOutput = process.readAllStandardOutput();
    theErrors = process.readAllStandardError();
    return finished && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
           theErrors.isEmpty();
}

void TestProgramRegions::valuesOfAClosedAndAnOpenRegionArePrinted()
{
    RegionText open;
    open.theClosed = "false";
    QByteArray output;
    QVERIFY2(run({QStringLiteral("--values"), project(ProjectText::region(1) + ProjectText::region(2, open))},
                 output),
             theErrors.constData());
    const QByteArrayList lines = regionLines(output);
    for (const char* line :
         {"Region\t1\tWidth\t41\t", "Region\t1\tHeight\t41\t", "Region\t1\tLength/Perim.\t160\t",
          "Region\t1\tArea\t1600\t", "Region\t2\tWidth\t0\t", "Region\t2\tLength/Perim.\t120\t"}) {
        const auto isLine = [line](const QByteArray& aLine) { return aLine.startsWith(line); };
        QCOMPARE(std::count_if(lines.cbegin(), lines.cend(), isLine), 1);
    }
    QCOMPARE(regionLines(output).size(), 12);
}

void TestProgramRegions::regionIsRendered()
{
    const QString file = theFolder.filePath(QStringLiteral("regions.png"));
    QByteArray output;
    QVERIFY2(run({QStringLiteral("--render"), project(ProjectText::region(1)), file}, output),
             theErrors.constData());
    const QImage picture(file);
    QCOMPARE(picture.size(), QSize(400, 300));
    // On the middle of its right side, and beside it.
    QCOMPARE(picture.pixel(120, 90), qRgb(255, 0, 0));
    QCOMPARE(picture.pixel(125, 90), madePicture(400, 300).pixel(125, 90));
}

void TestProgramRegions::wildRegionIsPrintedAndRendered()
{
    QFETCH(RegionText, region);
    const QString path = project(ProjectText::region(1, region));
    QByteArray output;
    QVERIFY2(run({QStringLiteral("--values"), path}, output), theErrors.constData());
    const QByteArrayList lines = regionLines(output);
    QCOMPARE(lines.size(), 6);
    for (const QByteArray& line : lines) {
        bool isNumber = false;
        const double value = line.split('\t').value(3).toDouble(&isNumber);
        QVERIFY2(isNumber && std::isfinite(value) && value >= 0.0, line.constData());
    }
    const QString file = theFolder.filePath(QStringLiteral("wild.png"));
    QFile::remove(file);
    QVERIFY2(run({QStringLiteral("--render"), path, file}, output), theErrors.constData());
    QCOMPARE(QImage(file).size(), QSize(400, 300));
}

void TestProgramRegions::badRegionGivesOneLine()
{
    RegionText bad;
    bad.thePoints = "left,top";
    QByteArray output;
    QVERIFY(!run({QStringLiteral("--values"), project(ProjectText::region(1, bad))}, output));
    QVERIFY(output.isEmpty());
    QVERIFY2(theErrors.startsWith("measuretools: ") && theErrors.contains("left,top"), theErrors.constData());
    QCOMPARE(theErrors.count('\n'), 1);
}

MEASURE_TEST_MAIN(TestProgramRegions)
#include "TestProgramRegions.moc"
