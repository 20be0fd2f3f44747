#include "Document.h"
#include "Drawn.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "MeasureWindow.h"
#include "ModalAnswer.h"
#include "TestFont.h"

#include <QLocale>
#include <QProcess>
#include <QProcessEnvironment>

#include <clocale>
#include <cstdio>

/// The export is the same text wherever the user lives: digits, points and tabs as in the C locale, other
/// letters in UTF-8.
class TestMeasureLocales : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void localeOfTheProgramChangesNothing_data() { addLocales(); }
    void localeOfTheProgramChangesNothing();
    void localeOfTheSystemChangesNothing_data() { addLocales(); }
    void localeOfTheSystemChangesNothing();
    void localeOfTheCLibraryChangesNothing_data() { addLocales(); }
    void localeOfTheCLibraryChangesNothing();

private:
    static void addLocales();
    static void measure(MeasureWindow& aFixture);
    static QByteArray exported(MeasureWindow& aFixture);
    static QByteArray expected(MeasureWindow& aFixture);
};

void TestMeasureLocales::addLocales()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("written"); // 1.5 as people there write it
    QTest::newRow("C") << QStringLiteral("C") << QStringLiteral("1.5");
    QTest::newRow("English") << QStringLiteral("en_US") << QStringLiteral("1.5");
    QTest::newRow("German, with a comma") << QStringLiteral("de_DE") << QStringLiteral("1,5");
    QTest::newRow("Russian, in Cyrillic") << QStringLiteral("ru_RU") << QStringLiteral("1,5");
    QTest::newRow("Arabic, with digits of its own")
        << QStringLiteral("ar_EG") << QStringLiteral("\u0661\u066b\u0665");
    QTest::newRow("Hindi in Devanagari") << QStringLiteral("hi_IN") << QStringLiteral("1.5");
}

void TestMeasureLocales::cleanup()
{
    QLocale::setDefault(QLocale::c());
    qunsetenv("LOCPATH");
    std::setlocale(LC_ALL, "C.UTF-8");
}

void TestMeasureLocales::measure(MeasureWindow& aFixture)
{
    aFixture.kernel().setCalibration(QStringLiteral("ruler"), LmCalibData{0.4, QStringLiteral("\u00b5m")});
    addDistance(aFixture.bench(), QPoint(40, 40), QPoint(164, 40));
    aFixture.kernel().setCalibration(QStringLiteral("ruler"), LmCalibData{40e6, QStringLiteral("\u00b5m")});
    addDistance(aFixture.bench(), QPoint(40, 60), QPoint(70, 100));
}

// Great numbers too, which some write in groups of three.
QByteArray TestMeasureLocales::expected(MeasureWindow& aFixture)
{
    return aFixture.exportHead("\xc2\xb5m") + "Object name\tDistance\tDX\tDY\tAngle\t \t\n" +
           "Distance 1\t12400000\t12400000\t0\t0\t\t\n" +
           "Distance 2\t5000000\t3000000\t4000000\t-53.2\t\t\n";
}

QByteArray TestMeasureLocales::exported(MeasureWindow& aFixture)
{
    const QString path = aFixture.path(QStringLiteral("table.txt"));
    const ModalAnswer answer(ModalAnswer::chooseFile(path));
    aFixture.clickExport();
    return answer.isDone() ? MadeFiles::read(path) : QByteArray("the dialog didn't come");
}

void TestMeasureLocales::localeOfTheProgramChangesNothing()
{
    QFETCH(QString, name);
    QFETCH(QString, written);
    QLocale::setDefault(QLocale(name));
    QCOMPARE(QLocale().toString(1.5), written);
    MeasureWindow fixture;
    measure(fixture);
    QCOMPARE(exported(fixture), expected(fixture));
}

void TestMeasureLocales::localeOfTheSystemChangesNothing()
{
    QFETCH(QString, name);
    MeasureWindow fixture;
    measure(fixture);
    const QString project = fixture.path(QStringLiteral("work.mtp"));
    const QString out = fixture.path(QStringLiteral("out.txt"));
    QString error;
    QVERIFY2(fixture.bench().document().save(project, error), qPrintable(error));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"),
                       name == QLatin1String("C") ? name : name + QStringLiteral(".UTF-8"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(MEASURETOOLS_PROGRAM), {QStringLiteral("--export"), project, out});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(MadeFiles::read(out), expected(fixture));
}

void TestMeasureLocales::localeOfTheCLibraryChangesNothing()
{
    QFETCH(QString, name);
    QFETCH(QString, written);
    const QByteArray system =
        (name == QLatin1String("C") ? name : name + QStringLiteral(".UTF-8")).toLatin1();
    const QTemporaryDir folder;
    if (!std::setlocale(LC_ALL, system.constData())) {
        // It can be made where its source is installed.
        QProcess::execute(QStringLiteral("localedef"),
                          {QStringLiteral("-i"), name, QStringLiteral("-f"), QStringLiteral("UTF-8"),
                           folder.filePath(QString::fromLatin1(system))});
        qputenv("LOCPATH", folder.path().toLocal8Bit());
    }
    if (!std::setlocale(LC_ALL, system.constData()))
        QSKIP(QByteArray("this machine has no locale " + system).constData());
    char text[16] = "";
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    QCOMPARE(text[1], written.contains(QLatin1Char(',')) ? ',' : '.');
    MeasureWindow fixture;
    measure(fixture);
    QCOMPARE(exported(fixture), expected(fixture));
}

MEASURE_TEST_MAIN(TestMeasureLocales)
#include "TestMeasureLocales.moc"
