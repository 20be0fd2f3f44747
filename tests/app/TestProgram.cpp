#include "Document.h"
#include "MadeFiles.h"
#include "PictureRenderer.h"
#include "Sentence.h"
#include "TestBench.h"
#include "TestFont.h"
#include "TestSamples.h"
#include "ValueReport.h"

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTextStream>

/// The real program, started without a display.
class TestProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void helpIsPrinted();
    void versionIsPrinted();
    void valuesOfAProjectArePrinted();
    void valuesNeedNoPicture();
    void valuesOfAPictureAreTheHeading();
    void renderedPictureIsWritten();
    void renderedPlainPictureIsThePicture();
    void renderNeedsThePicture();
    void otherLengthIsTold_data();
    void otherLengthIsTold();
    void leftOutPicturesAreTold();
    void fileNamesMayHoldAnyCharacters();
    void badUseGivesOneLine_data();
    void badUseGivesOneLine();
    void badPluginGivesOneLine_data();
    void badPluginGivesOneLine();
    void windowWithoutDisplayGivesOneLine();
    void outputThatCanNotBeWrittenGivesOneLine();

private:
    struct Result
    {
        int theStatus = -1;
        QByteArray theOutput;
        QByteArray theError;
    };

    Result run(const QStringList& aArguments, const QString& aPluginFolder = QString(),
               const QString& aOutputFile = QString());
    QString path(const QString& aName) const { return theFolder.filePath(aName); }

    QTemporaryDir theFolder;
    QByteArray theValues; // of the project, as this process makes them
    QImage theRendered;   // the same
};

namespace {

/// What is wrong with a refusal; empty if nothing is: status 2, nothing on standard output, one line on
/// standard error.
QString refusalFault(int aStatus, const QByteArray& aOutput, const QByteArray& aError)
{
    if (aStatus != 2)
        return QStringLiteral("status %1").arg(aStatus);
    if (!aOutput.isEmpty())
        return QStringLiteral("output: ") + QString::fromUtf8(aOutput);
    if (aError.count('\n') != 1 || !aError.endsWith(".\n") || !aError.startsWith("measuretools: "))
        return QStringLiteral("error: ") + QString::fromUtf8(aError);
    return QString();
}

/// What is wrong with the standard error of a success with something to tell: it is one line.
QString remarkFault(const QByteArray& aError)
{
    const QByteArray name("measuretools: ");
    if (!aError.startsWith(name) || !aError.endsWith('\n'))
        return QStringLiteral("error: ") + QString::fromUtf8(aError);
    return sentenceFault(QString::fromUtf8(aError.mid(name.size()).chopped(1)));
}

} // namespace

void TestProgram::initTestCase()
{
    TestBench bench;
    bench.doWork();
    QVERIFY(QFile::copy(bench.path(QStringLiteral("picture.png")), path(QStringLiteral("picture.png"))));
    QString error;
    const QString project = bench.path(QStringLiteral("work.mtp"));
    QVERIFY(bench.document().save(project, error));
    // Loaded objects carry their value on the label from the start, as they will in the program.
    QVERIFY2(bench.document().open(project, error), qPrintable(error));
    QVERIFY(QFile::copy(project, path(QStringLiteral("work.mtp"))));
    QTextStream stream(&theValues);
    ValueReport::write(bench.tools(), stream);
    stream.flush();
    theRendered = PictureRenderer::render(bench.editor());
    QVERIFY(theValues.count('\n') > 2);
    // The same project without its picture beside it or anywhere.
    QVERIFY(QDir(theFolder.path()).mkdir(QStringLiteral("alone")));
    QByteArray lost = MadeFiles::read(project);
    lost.replace("picture.png", "lost.png");
    MadeFiles::write(path(QStringLiteral("alone/lost.mtp")), lost);
}

TestProgram::Result TestProgram::run(const QStringList& aArguments, const QString& aPluginFolder,
                                     const QString& aOutputFile)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
        environment.remove(QLatin1String(name));
    // A locale that Qt remarks on, which may not be heard.
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    if (!aPluginFolder.isEmpty())
        environment.insert(QStringLiteral("MEASURETOOLS_PLUGIN_DIR"), aPluginFolder);
    QProcess process;
    process.setProcessEnvironment(environment);
    if (!aOutputFile.isEmpty())
        process.setStandardOutputFile(aOutputFile);
    process.start(QStringLiteral(MEASURETOOLS_PROGRAM), aArguments);
    if (!process.waitForFinished(60'000)) {
        process.kill();
        process.waitForFinished();
        return Result();
    }
    const int status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return {status, process.readAllStandardOutput(), process.readAllStandardError()};
}

void TestProgram::helpIsPrinted()
{
    const Result result = run({QStringLiteral("--help")});
    QCOMPARE(result.theStatus, 0);
    QVERIFY(result.theOutput.contains("--values") && result.theOutput.contains("--render"));
    QCOMPARE(result.theError, QByteArray());
}

void TestProgram::versionIsPrinted()
{
    const Result result = run({QStringLiteral("--version")});
    QCOMPARE(result.theStatus, 0);
    QVERIFY2(result.theOutput.startsWith("MeasureTools ") && result.theOutput.endsWith('\n') &&
                 result.theOutput.count('\n') == 1 && result.theOutput.contains('.'),
             result.theOutput.constData());
    QCOMPARE(result.theError, QByteArray());
}

void TestProgram::valuesOfAProjectArePrinted()
{
    const Result result = run({QStringLiteral("--values"), path(QStringLiteral("work.mtp"))});
    QCOMPARE(result.theError, QByteArray());
    QCOMPARE(result.theStatus, 0);
    QCOMPARE(QString::fromUtf8(result.theOutput), QString::fromUtf8(theValues));
}

void TestProgram::valuesNeedNoPicture()
{
    const Result result = run({QStringLiteral("--values"), path(QStringLiteral("alone/lost.mtp"))});
    QCOMPARE(remarkFault(result.theError), QString());
    QVERIFY2(result.theError.contains("lost.png"), result.theError.constData());
    QCOMPARE(result.theStatus, 0);
    QCOMPARE(QString::fromUtf8(result.theOutput), QString::fromUtf8(theValues));
}

void TestProgram::valuesOfAPictureAreTheHeading()
{
    const Result result = run({QStringLiteral("--values"), path(QStringLiteral("picture.png"))});
    QCOMPARE(result.theStatus, 0);
    QCOMPARE(result.theOutput, theValues.left(theValues.indexOf('\n') + 1));
}

void TestProgram::renderedPictureIsWritten()
{
    const QString out = path(QStringLiteral("out.png"));
    const Result result = run({QStringLiteral("--render"), path(QStringLiteral("work.mtp")), out});
    QCOMPARE(result.theError, QByteArray());
    QCOMPARE(result.theStatus, 0);
    QCOMPARE(result.theOutput, QByteArray());
    QCOMPARE(QImage(out).convertToFormat(QImage::Format_RGB32),
             theRendered.convertToFormat(QImage::Format_RGB32));
}

void TestProgram::renderedPlainPictureIsThePicture()
{
    const QString out = path(QStringLiteral("plain.png"));
    const Result result = run({QStringLiteral("--render"), path(QStringLiteral("picture.png")), out});
    QCOMPARE(result.theStatus, 0);
    QCOMPARE(QImage(out).convertToFormat(QImage::Format_RGB32), madePicture(120, 80));
}

void TestProgram::renderNeedsThePicture()
{
    const QString out = path(QStringLiteral("never.png"));
    const Result result = run({QStringLiteral("--render"), path(QStringLiteral("alone/lost.mtp")), out});
    QCOMPARE(refusalFault(result.theStatus, result.theOutput, result.theError), QString());
    QVERIFY2(result.theError.contains("lost.png"), result.theError.constData());
    QVERIFY(!QFile::exists(out));
}

void TestProgram::otherLengthIsTold_data()
{
    QTest::addColumn<QString>("option");
    for (const char* option : {"--values", "--values-over-time", "--export", "--render"})
        QTest::newRow(option) << QString::fromLatin1(option);
}

void TestProgram::otherLengthIsTold()
{
    QFETCH(QString, option);
    const QString pages = path(QStringLiteral("pages.tif"));
    const QString project = path(QStringLiteral("pages.mtp"));
    const QImage page = madePicture(40, 30);
    MadeFiles::write(pages, MadeFiles::tiff({page, page, page}));
    {
        TestBench bench;
        QString error;
        QVERIFY2(bench.document().open(pages, error), qPrintable(error));
        QVERIFY2(bench.document().save(project, error), qPrintable(error));
    }
    QStringList arguments{option, project};
    if (option == QLatin1String("--export") || option == QLatin1String("--render"))
        arguments << path(QStringLiteral("written.png"));
    const Result whole = run(arguments);
    QCOMPARE(whole.theError, QByteArray());
    MadeFiles::write(pages, MadeFiles::tiff({page, page}));
    const Result shorter = run(arguments);
    QCOMPARE(remarkFault(shorter.theError), QString());
    QVERIFY2(shorter.theError.contains("has 2 frames instead of 3"), shorter.theError.constData());
    QCOMPARE(shorter.theStatus, 0);
    QCOMPARE(shorter.theOutput, whole.theOutput);
}

void TestProgram::leftOutPicturesAreTold()
{
    QVERIFY(QDir(theFolder.path()).mkdir(QStringLiteral("series")));
    QVERIFY(madePicture(40, 30).save(path(QStringLiteral("series/1.png"))));
    QVERIFY(madePicture(41, 30).save(path(QStringLiteral("series/2.png"))));
    const QString out = path(QStringLiteral("first.png"));
    const Result result = run({QStringLiteral("--render"), path(QStringLiteral("series")), out});
    QCOMPARE(result.theError.count('\n'), 1);
    QVERIFY2(result.theError.startsWith("measuretools: 1 picture(s) of this folder were left out"),
             result.theError.constData());
    QCOMPARE(result.theStatus, 0);
    QCOMPARE(QImage(out).size(), QSize(40, 30));
}

void TestProgram::fileNamesMayHoldAnyCharacters()
{
    const QString odd = path(QStringLiteral("a b \u00e4\u00b5 '\"\n2.mtp"));
    QVERIFY(QFile::copy(path(QStringLiteral("work.mtp")), odd));
    const Result good = run({QStringLiteral("--values"), odd});
    QCOMPARE(good.theStatus, 0);
    QCOMPARE(good.theOutput, theValues);
    QVERIFY(QFile::remove(odd));
    const Result bad = run({QStringLiteral("--values"), odd});
    QCOMPARE(refusalFault(bad.theStatus, bad.theOutput, bad.theError), QString());
}

void TestProgram::badUseGivesOneLine_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("named");
    const QByteArray jpeg = MadeFiles::encoded(madePicture(60, 60), "jpeg");
    const QByteArray png = MadeFiles::encoded(madePicture(60, 60), "png");
    const QByteArray tiff = MadeFiles::tiff({madePicture(60, 60)});
    const auto row = [](const char* aTitle, const char* aOption, const QByteArray& aBytes,
                        const char* aNamed) {
        QTest::newRow(aTitle) << QString::fromLatin1(aOption) << aBytes << QString::fromLatin1(aNamed);
    };
    row("unknown option", "--print", png, "--print");
    row("empty picture", "--values", QByteArray(), "is empty");
    row("cut jpeg", "--values", jpeg.left(jpeg.size() / 2), "is cut off");
    row("cut png", "--values", png.left(png.size() / 2), "damaged");
    row("cut tiff", "--values", tiff.left(tiff.size() / 2), "The picture");
    row("tiff of floating point numbers", "--values", MadeFiles::floatTiff(9, 9), "can't be shown");
    row("unknown kind", "--values", "some text", "unknown kind");
    row("absurdly large", "--values", MadeFiles::pngHeader(99999, 99999), "too large");
    row("damaged project", "--values", "<measuretools version=\"1\"><picture/></measuretools>", "<picture>");
    row("newer project", "--values", "<measuretools version=\"7\"/>", "newer version");
}

void TestProgram::badUseGivesOneLine()
{
    QFETCH(QString, option);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, named);
    const QString file = path(QStringLiteral("bad"));
    MadeFiles::write(file, bytes);
    const Result result = run({option, file});
    QCOMPARE(refusalFault(result.theStatus, result.theOutput, result.theError), QString());
    QVERIFY2(result.theError.contains(named.toUtf8()), result.theError.constData());
}

void TestProgram::badPluginGivesOneLine_data()
{
    QTest::addColumn<QByteArray>("plugin");
    QTest::addColumn<QByteArray>("named");
    const QString bad = QStringLiteral(MEASURETOOLS_BAD_PLUGINS "/lib%1.so");
    QTest::newRow("text") << QByteArray("no plug-in") << QByteArray("can't be used");
    QTest::newRow("another record") << MadeFiles::read(bad.arg(QStringLiteral("BadRecordPlugin")))
                                    << QByteArray("3.3.8");
    QTest::newRow("another interface")
        << MadeFiles::read(bad.arg(QStringLiteral("BadInterfacePlugin"))) << QByteArray("OtherInterface");
}

void TestProgram::badPluginGivesOneLine()
{
    QFETCH(QByteArray, plugin);
    QFETCH(QByteArray, named);
    const QString file = path(QStringLiteral("libMeasureToolsPlugin.so"));
    MadeFiles::write(file, plugin);
    const Result result =
        run({QStringLiteral("--values"), path(QStringLiteral("work.mtp"))}, theFolder.path());
    QCOMPARE(refusalFault(result.theStatus, result.theOutput, result.theError), QString());
    QVERIFY2(result.theError.contains(named), result.theError.constData());
    QVERIFY(QFile::remove(file));
}

void TestProgram::windowWithoutDisplayGivesOneLine()
{
    const Result result = run({path(QStringLiteral("picture.png"))});
    QCOMPARE(refusalFault(result.theStatus, result.theOutput, result.theError), QString());
    QVERIFY2(result.theError.contains("--values") && result.theError.contains("--render"),
             result.theError.constData());
}

void TestProgram::outputThatCanNotBeWrittenGivesOneLine()
{
    const Result values = run({QStringLiteral("--values"), path(QStringLiteral("work.mtp"))}, QString(),
                              QStringLiteral("/dev/full"));
    QCOMPARE(refusalFault(values.theStatus, values.theOutput, values.theError), QString());
    const Result picture = run({QStringLiteral("--render"), path(QStringLiteral("work.mtp")),
                                path(QStringLiteral("nowhere/out.png"))});
    QCOMPARE(refusalFault(picture.theStatus, picture.theOutput, picture.theError), QString());
}

MEASURE_TEST_MAIN(TestProgram)
#include "TestProgram.moc"
