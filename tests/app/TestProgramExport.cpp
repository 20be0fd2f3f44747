#include "Document.h"
#include "Drawn.h"
#include "MadeFiles.h"
#include "MeasureWindow.h"
#include "ModalAnswer.h"
#include "TestFont.h"

#include <QProcess>
#include <QProcessEnvironment>

/// The table of a project, exported by the program without a window.
class TestProgramExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileIsThatOfTheButton();
    void pictureWithoutObjectsGivesTheHead();
    void projectWithoutItsPictureIsExported();
    void earlierFileIsReplaced();
    void projectIsNotOverwritten();
    void badUseGivesOneLine_data();
    void badUseGivesOneLine();

private:
    struct Result
    {
        int theStatus = -1;
        QByteArray theOutput;
        QByteArray theError;
    };

    static Result run(const QString& aProject, const QString& aOut);
    // A project of three distances.
    static QString save(MeasureWindow& aFixture);
};

TestProgramExport::Result TestProgramExport::run(const QString& aProject, const QString& aOut)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
        environment.remove(QLatin1String(name));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(MEASURETOOLS_PROGRAM), {QStringLiteral("--export"), aProject, aOut});
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit)
        return Result();
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QString TestProgramExport::save(MeasureWindow& aFixture)
{
    aFixture.addThree();
    const QString project = aFixture.path(QStringLiteral("work.mtp"));
    QString error;
    if (!aFixture.bench().document().save(project, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return project;
}

void TestProgramExport::fileIsThatOfTheButton()
{
    MeasureWindow fixture;
    const QString project = save(fixture);
    const QString ofButton = fixture.path(QStringLiteral("button.txt"));
    const ModalAnswer answer(ModalAnswer::chooseFile(ofButton));
    fixture.clickExport();
    QVERIFY(answer.isDone());
    const QString ofProgram = fixture.path(QStringLiteral("program.1.csv")); // taken as it is
    const Result result = run(project, ofProgram);
    QCOMPARE(result.theError, QByteArray());
    QCOMPARE(result.theOutput, QByteArray());
    QCOMPARE(result.theStatus, 0);
    QCOMPARE(MadeFiles::read(ofButton).count('\n'), 7);
    QCOMPARE(MadeFiles::read(ofProgram), MadeFiles::read(ofButton));
}

void TestProgramExport::pictureWithoutObjectsGivesTheHead()
{
    MeasureWindow fixture;
    const QString out = fixture.path(QStringLiteral("out.txt"));
    const Result result = run(fixture.picturePath(), out);
    QCOMPARE(result.theStatus, 0);
    QCOMPARE(MadeFiles::read(out), fixture.exportHead(QByteArray()) + "Object name\t\n");
}

void TestProgramExport::projectWithoutItsPictureIsExported()
{
    MeasureWindow fixture;
    const QString project = save(fixture);
    QVERIFY(QFile::remove(fixture.picturePath()));
    const QString out = fixture.path(QStringLiteral("out.txt"));
    const Result result = run(project, out);
    QVERIFY2(result.theError.count('\n') == 1 && result.theError.contains("picture.png is not there"),
             result.theError.constData());
    QCOMPARE(result.theStatus, 0);
    QVERIFY2(MadeFiles::read(out).contains("\nDistance 2\t10\t10\t0\t0\t\t\n"),
             MadeFiles::read(out).constData());
}

void TestProgramExport::earlierFileIsReplaced()
{
    MeasureWindow fixture;
    const QString project = save(fixture);
    const QString out = fixture.path(QStringLiteral("out.txt"));
    MadeFiles::write(out, QByteArray(5000, 'x'));
    QCOMPARE(run(project, out).theStatus, 0);
    QVERIFY(MadeFiles::read(out).startsWith(fixture.exportHead()));
    QVERIFY(!MadeFiles::read(out).contains("xx"));
}

void TestProgramExport::projectIsNotOverwritten()
{
    MeasureWindow fixture;
    const QString project = save(fixture);
    const QByteArray before = MadeFiles::read(project);
    const Result result = run(project, fixture.path(QStringLiteral("./work.mtp")));
    QCOMPARE(result.theStatus, 2);
    QVERIFY2(result.theError.count('\n') == 1 && result.theError.contains("overwrite"),
             result.theError.constData());
    QCOMPARE(MadeFiles::read(project), before);
}

void TestProgramExport::badUseGivesOneLine_data()
{
    QTest::addColumn<QString>("project");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QByteArray>("named");
    const QString good = QStringLiteral("work.mtp");
    QTest::newRow("no such project") << QStringLiteral("lost.mtp") << QStringLiteral("out.txt")
                                     << QByteArray("lost.mtp");
    QTest::newRow("no such folder") << good << QStringLiteral("nowhere/out.txt")
                                    << QByteArray("nowhere/out.txt");
    QTest::newRow("a folder") << good << QStringLiteral(".") << QByteArray("can't be written");
    if (QFile::exists(QStringLiteral("/dev/full")))
        QTest::newRow("full disk") << good << QStringLiteral("/dev/full") << QByteArray("/dev/full");
}

void TestProgramExport::badUseGivesOneLine()
{
    QFETCH(QString, project);
    QFETCH(QString, out);
    QFETCH(QByteArray, named);
    MeasureWindow fixture;
    save(fixture);
    const Result result =
        run(fixture.path(project), out.startsWith(QLatin1Char('/')) ? out : fixture.path(out));
    QCOMPARE(result.theStatus, 2);
    QCOMPARE(result.theOutput, QByteArray());
    QVERIFY2(result.theError.startsWith("measuretools: ") && result.theError.endsWith(".\n") &&
                 result.theError.count('\n') == 1 && result.theError.contains(named),
             result.theError.constData());
}

MEASURE_TEST_MAIN(TestProgramExport)
#include "TestProgramExport.moc"
