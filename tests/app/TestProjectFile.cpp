#include "BenchState.h"
#include "Document.h"
#include "Drawn.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "ProjectFile.h"
#include "Sentence.h"
#include "TestBench.h"
#include "TestFont.h"

#include <QDir>

/// Writing projects: what is in the file, the former generation, and places that can't be written.
class TestProjectFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theBench.reset(); }
    void writtenContentIsReadBack();
    void objectsAreReadInOrderOfTheirIndex();
    void calibrationKeepsEveryBit_data();
    void calibrationKeepsEveryBit();
    void namesOfAnyCharactersAreReadBack();
    void pictureIsNamedRelativeToTheFile();
    void relativePathIsTriedBeforeTheAbsoluteOne();
    void absolutePathHelpsWhereOnlyTheProjectWasMoved();
    void firstSaveLeavesNoFormerFile();
    void secondSaveKeepsTheFormerFile();
    void thirdSaveKeepsTheSecond();
    void placeThatCanNotBeWrittenIsTold_data();
    void placeThatCanNotBeWrittenIsTold();
    void failedSaveLeavesTheFileAlone();
    void projectWithoutPictureIsNotWritten();
    void projectIsKnownByItsEndingOrItsContent();
    void readingCanBeStopped();

private:
    bool write(const QString& aPath);
    QStringList filesIn(const QString& aFolder) const;

    std::unique_ptr<TestBench> theBench;
    QString theError;
};

void TestProjectFile::init()
{
    theBench = std::make_unique<TestBench>();
    theBench->doWork();
    theError.clear();
}

bool TestProjectFile::write(const QString& aPath)
{
    return ProjectFile::write(aPath, theBench->media().path(), 0, theError);
}

QStringList TestProjectFile::filesIn(const QString& aFolder) const
{
    return QDir(aFolder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

void TestProjectFile::writtenContentIsReadBack()
{
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    QVERIFY2(write(path), qPrintable(theError));
    ProjectContent content;
    QVERIFY2(ProjectFile::read(path, content, theError), qPrintable(theError));
    QCOMPARE(content.thePicture, theBench->path(QStringLiteral("picture.png")));
    QCOMPARE(content.thePictureSize, QSize(120, 80));
    QCOMPARE(content.theFrame, 0);
    QCOMPARE(content.theFrameCount, 1);
    QCOMPARE(content.theCalibrations, LmKSKernelData::getInstance()->calibrations());
    QCOMPARE(content.theCurrentCalibration, QStringLiteral("lens"));
    QCOMPARE(content.theObjects.size(), 2);
    for (const QDomElement& element : content.theObjects)
        QCOMPARE(ProjectFile::objectType(element), kDistanceType);
}

void TestProjectFile::objectsAreReadInOrderOfTheirIndex()
{
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    for (int i = 0; i < 12; ++i)
        QVERIFY(addDistance(*theBench, QPoint(i, 0), QPoint(i, 9)));
    QVERIFY(write(path));
    // The elements the other way round: the file's order doesn't count.
    QDomDocument document;
    QVERIFY(document.setContent(MadeFiles::read(path)));
    QDomElement objects = document.documentElement().firstChildElement(QStringLiteral("objects"));
    for (QDomNode node = objects.firstChild(), next; !node.isNull(); node = next) {
        next = node.nextSibling();
        objects.insertBefore(node, objects.firstChild());
    }
    MadeFiles::write(path, document.toByteArray());
    ProjectContent content;
    QVERIFY2(ProjectFile::read(path, content, theError), qPrintable(theError));
    QCOMPARE(content.theObjects.size(), 14);
    for (int i = 0; i < 14; ++i)
        QCOMPARE(content.theObjects[i].attribute(QStringLiteral("index")), QString::number(i + 1));
}

void TestProjectFile::calibrationKeepsEveryBit_data()
{
    QTest::addColumn<double>("value");
    for (double value : {0.1, 1.0 / 3.0, 12345.678901234567, 1e-300, 1.7976931348623157e308, 0.0})
        QTest::addRow("%.17g", value) << value;
}

void TestProjectFile::calibrationKeepsEveryBit()
{
    QFETCH(double, value);
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    kernel->setCalibration(QStringLiteral("exact"), LmCalibData{value, QStringLiteral("mm")});
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    QVERIFY(write(path));
    ProjectContent content;
    QVERIFY2(ProjectFile::read(path, content, theError), qPrintable(theError));
    const double readBack = content.theCalibrations.value(QStringLiteral("exact")).theValue;
    QVERIFY(readBack == value);
}

void TestProjectFile::namesOfAnyCharactersAreReadBack()
{
    const QString name = QStringLiteral("<a & \"b\"> \u00b5m \U0001F52C\n2");
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    kernel->setCalibration(name, LmCalibData{1.0, QStringLiteral("'\u00b5m'")});
    // A control character can't stand in the file and must not make it unreadable.
    kernel->setCalibration(QStringLiteral("bell\a"), LmCalibData{2.0, QStringLiteral("mm")});
    kernel->setCurrentCalibration(name);
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    QVERIFY(write(path));
    ProjectContent content;
    QVERIFY2(ProjectFile::read(path, content, theError), qPrintable(theError));
    QCOMPARE(content.theCurrentCalibration, name);
    QCOMPARE(content.theCalibrations.value(name), (LmCalibData{1.0, QStringLiteral("'\u00b5m'")}));
    QCOMPARE(content.theCalibrations.value(QStringLiteral("bell")).theValue, 2.0);
}

void TestProjectFile::pictureIsNamedRelativeToTheFile()
{
    QVERIFY(QDir(theBench->path(QString())).mkdir(QStringLiteral("sub")));
    const QString path = theBench->path(QStringLiteral("sub/a.mtp"));
    QVERIFY(write(path));
    QVERIFY(MadeFiles::read(path).contains("path=\"../picture.png\""));
}

void TestProjectFile::relativePathIsTriedBeforeTheAbsoluteOne()
{
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    QVERIFY(write(path));
    // Project and picture copied together to another place: the copy belongs to the copy.
    QVERIFY(QDir(theBench->path(QString())).mkdir(QStringLiteral("copy")));
    const QString copy = theBench->path(QStringLiteral("copy/a.mtp"));
    QVERIFY(QFile::copy(path, copy));
    QVERIFY(QFile::copy(theBench->media().path(), theBench->path(QStringLiteral("copy/picture.png"))));
    ProjectContent content;
    QVERIFY2(ProjectFile::read(copy, content, theError), qPrintable(theError));
    QCOMPARE(content.thePicture, theBench->path(QStringLiteral("copy/picture.png")));
}

void TestProjectFile::absolutePathHelpsWhereOnlyTheProjectWasMoved()
{
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    QVERIFY(write(path));
    QVERIFY(QDir(theBench->path(QString())).mkdir(QStringLiteral("moved")));
    const QString moved = theBench->path(QStringLiteral("moved/a.mtp"));
    QVERIFY(QFile::rename(path, moved));
    ProjectContent content;
    QVERIFY2(ProjectFile::read(moved, content, theError), qPrintable(theError));
    QCOMPARE(content.thePicture, theBench->path(QStringLiteral("picture.png")));
}

void TestProjectFile::firstSaveLeavesNoFormerFile()
{
    QVERIFY(write(theBench->path(QStringLiteral("a.mtp"))));
    QCOMPARE(filesIn(theBench->path(QString())),
             (QStringList{QStringLiteral("a.mtp"), QStringLiteral("picture.png")}));
}

void TestProjectFile::secondSaveKeepsTheFormerFile()
{
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    QVERIFY(write(path));
    const QByteArray first = MadeFiles::read(path);
    QVERIFY(addDistance(*theBench, QPoint(1, 1), QPoint(9, 9)));
    QVERIFY(write(path));
    QVERIFY(MadeFiles::read(path) != first);
    QCOMPARE(MadeFiles::read(path + QLatin1Char('~')), first);
    QCOMPARE(filesIn(theBench->path(QString())).size(), 3);
}

void TestProjectFile::thirdSaveKeepsTheSecond()
{
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    QByteArray second;
    for (int save = 1; save <= 3; ++save) {
        QVERIFY(addDistance(*theBench, QPoint(save, 1), QPoint(9, 9)));
        QVERIFY2(write(path), qPrintable(theError));
        if (save == 2)
            second = MadeFiles::read(path);
    }
    QCOMPARE(MadeFiles::read(path + QLatin1Char('~')), second);
    QCOMPARE(filesIn(theBench->path(QString())).size(), 3);
}

void TestProjectFile::placeThatCanNotBeWrittenIsTold_data()
{
    QTest::addColumn<QString>("place");
    QTest::newRow("no such folder") << QStringLiteral("%1/nowhere/a.mtp");
    QTest::newRow("a file in the place of the folder") << QStringLiteral("%1/picture.png/a.mtp");
    QTest::newRow("a folder of the system") << QStringLiteral("/proc/a.mtp");
    QTest::newRow("a folder of the same name") << QStringLiteral("%1/folder.mtp");
}

void TestProjectFile::placeThatCanNotBeWrittenIsTold()
{
    QFETCH(QString, place);
    const QString folder = theBench->path(QString());
    QVERIFY(QDir(folder).mkdir(QStringLiteral("folder.mtp")));
    const QString path = place.contains(QLatin1Char('%')) ? place.arg(folder) : place;
    const QStringList filesBefore = filesIn(folder);
    const QString before = benchState(*theBench);
    QVERIFY(!theBench->document().save(path, theError));
    QCOMPARE(sentenceFault(theError), QString());
    QVERIFY2(theError.contains(QStringLiteral("can't be written")), qPrintable(theError));
    QCOMPARE(benchState(*theBench), before);
    QCOMPARE(filesIn(folder), filesBefore);
}

void TestProjectFile::failedSaveLeavesTheFileAlone()
{
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    QVERIFY(write(path));
    const QByteArray good = MadeFiles::read(path);
    // A folder in the place of the former generation: the file can't be put aside, so it isn't replaced
    // either.
    QVERIFY(QDir(theBench->path(QString())).mkpath(QStringLiteral("a.mtp~/inside")));
    QVERIFY(addDistance(*theBench, QPoint(1, 1), QPoint(9, 9)));
    QVERIFY(!write(path));
    QCOMPARE(sentenceFault(theError), QString());
    QCOMPARE(MadeFiles::read(path), good);
    QCOMPARE(filesIn(theBench->path(QString())),
             (QStringList{QStringLiteral("a.mtp"), QStringLiteral("picture.png")}));
}

void TestProjectFile::projectWithoutPictureIsNotWritten()
{
    theBench.reset();
    const Workbench empty;
    QTemporaryDir folder;
    QVERIFY(!ProjectFile::write(folder.filePath(QStringLiteral("a.mtp")), QString(), 0, theError));
    QCOMPARE(sentenceFault(theError), QString());
    QVERIFY(filesIn(folder.path()).isEmpty());
}

void TestProjectFile::projectIsKnownByItsEndingOrItsContent()
{
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    QVERIFY(write(path));
    const QString renamed = theBench->path(QStringLiteral("a.backup"));
    QVERIFY(QFile::copy(path, renamed));
    QVERIFY(ProjectFile::isProject(path));
    QVERIFY(ProjectFile::isProject(renamed));
    QVERIFY(ProjectFile::isProject(theBench->path(QStringLiteral("nowhere.MTP"))));
    QVERIFY(ProjectFile::isProject(theBench->path(QStringLiteral("nowhere.mtp~"))));
    QVERIFY(!ProjectFile::isProject(theBench->media().path()));
    QVERIFY(!ProjectFile::isProject(theBench->path(QStringLiteral("nowhere.png"))));
    QVERIFY(!ProjectFile::isProject(theBench->path(QString())));
}

void TestProjectFile::readingCanBeStopped()
{
    for (int i = 0; i < 300; ++i)
        QVERIFY(addDistance(*theBench, QPoint(i % 50, 0), QPoint(i % 50, 9)));
    const QString path = theBench->path(QStringLiteral("a.mtp"));
    QVERIFY(write(path));
    ProjectContent content;
    int reports = 0;
    const auto stop = [&](int aDone, int aCount) {
        ++reports;
        return aDone < 200 && aCount == 302;
    };
    QVERIFY(!ProjectFile::read(path, content, theError, stop));
    QCOMPARE(reports, 2);
    QCOMPARE(sentenceFault(theError), QString());
}

MEASURE_TEST_MAIN(TestProjectFile)
#include "TestProjectFile.moc"
