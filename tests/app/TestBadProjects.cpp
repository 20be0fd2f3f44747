#include "BenchState.h"
#include "Document.h"
#include "MadeFiles.h"
#include "ProjectText.h"
#include "Sentence.h"
#include "TestBench.h"
#include "TestFont.h"
#include "TestSamples.h"

#include <QDir>

/// Projects and pictures that can't be opened while there is work that could be lost: each gives one
/// sentence, and nothing changes.
class TestBadProjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theBench.reset(); }
    void badFileIsRefused_data();
    void badFileIsRefused();
    void badContentIsRefused_data();
    void badContentIsRefused();
    void badObjectIsRefused_data();
    void badObjectIsRefused();
    void missingProjectIsRefused();
    void folderIsRefused();
    void cutProjectIsRefusedAtEveryPlace();
    void formerVersionIsNamedWhereThereIsOne();
    void badPictureIsRefused_data();
    void badPictureIsRefused();

private:
    /// Tries the bytes as a project; the message, or what is wrong with it or with the state afterwards.
    QString refusalOf(const QByteArray& aBytes, const QString& aName = QStringLiteral("bad.mtp"));
    QString refusal(const QString& aPath);

    std::unique_ptr<TestBench> theBench;
};

namespace {

QByteArray goodPicture()
{
    return ProjectText::picture(QStringLiteral("picture.png"), 120, 80);
}

QByteArray changed(QByteArray aText, const char* aOld, const char* aNew)
{
    if (!aText.contains(aOld))
        qFatal("nothing to change: %s", aOld);
    return aText.replace(aOld, aNew);
}

} // namespace

void TestBadProjects::init()
{
    theBench = std::make_unique<TestBench>();
    theBench->doWork();
}

QString TestBadProjects::refusal(const QString& aPath)
{
    const QString before = benchState(*theBench);
    QString error;
    if (theBench->document().open(aPath, error))
        return QStringLiteral("it was opened");
    if (benchState(*theBench) != before)
        return QStringLiteral("something has changed");
    const QString fault = sentenceFault(error);
    return fault.isEmpty() ? error : fault;
}

QString TestBadProjects::refusalOf(const QByteArray& aBytes, const QString& aName)
{
    MadeFiles::write(theBench->path(aName), aBytes);
    return refusal(theBench->path(aName));
}

void TestBadProjects::badFileIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("named");
    const QByteArray objects = ProjectText::distance(1);
    QTest::newRow("empty") << QByteArray() << QStringLiteral("it is empty");
    QTest::newRow("text") << QByteArray("Dear reader,\nthis is a letter.\n")
                          << QStringLiteral("line 1, column");
    QTest::newRow("binary") << QByteArray("\x89PNG\0\xff\xfe", 7) << QStringLiteral("no XML");
    QTest::newRow("not closed") << QByteArray("<measuretools version=\"1\">\n<objects>\n")
                                << QStringLiteral("line 3, column");
    QTest::newRow("another root") << QByteArray("<svg version=\"1\"/>") << QStringLiteral("is no project");
    QTest::newRow("newer version") << ProjectText::project(goodPicture(), "", objects, "2")
                                   << QStringLiteral("newer version");
    QTest::newRow("much newer version with other content")
        << QByteArray("<measuretools version=\"99\"><new/></measuretools>")
        << QStringLiteral("newer version");
    QTest::newRow("no version") << QByteArray("<measuretools/>") << QStringLiteral("version is missing");
    QTest::newRow("version zero") << ProjectText::project(goodPicture(), "", objects, "0")
                                  << QStringLiteral("version is missing or wrong");
    QTest::newRow("version in words") << ProjectText::project(goodPicture(), "", objects, "one")
                                      << QStringLiteral("version is missing or wrong");
    QByteArray bomb = "<!DOCTYPE measuretools [<!ENTITY a0 \"ha\">";
    for (int i = 1; i < 30; ++i)
        bomb += QStringLiteral("<!ENTITY a%1 \"&a%2;&a%2;\">").arg(i).arg(i - 1).toUtf8();
    QTest::newRow("entities that multiply")
        << bomb + "]><measuretools version=\"1\">&a29;</measuretools>" << QStringLiteral("document type");
    QTest::newRow("too deep") << "<measuretools version=\"1\">" + QByteArray("<a>").repeated(200'000) +
                                     QByteArray("</a>").repeated(200'000) + "</measuretools>"
                              << QStringLiteral("too deep");
}

void TestBadProjects::badFileIsRefused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, named);
    const QString error = refusalOf(bytes);
    QVERIFY2(error.contains(named), qPrintable(error));
}

void TestBadProjects::badContentIsRefused_data()
{
    QTest::addColumn<QByteArray>("picture");
    QTest::addColumn<QByteArray>("calibrations");
    QTest::addColumn<QString>("named");
    const QByteArray picture = goodPicture();
    const auto pictureRow = [&](const char* aTitle, const char* aOld, const char* aNew, const char* aNamed) {
        QTest::newRow(aTitle) << changed(picture, aOld, aNew) << QByteArray() << QString::fromLatin1(aNamed);
    };
    QTest::newRow("no picture") << QByteArray() << QByteArray() << QStringLiteral("the picture is missing");
    QTest::newRow("two pictures") << picture + picture << QByteArray() << QStringLiteral("stands here twice");
    pictureRow("no path", "path=\"picture.png\"", "", "the path is missing");
    pictureRow("no width", "width=\"120\"", "", "the size is missing or impossible");
    pictureRow("width zero", "120", "0", "the size is missing or impossible");
    pictureRow("height below zero", "80", "-80", "the size is missing or impossible");
    pictureRow("absurd size", "width=\"120\" height=\"80\"", "width=\"100000\" height=\"100000\"",
               "the size is missing or impossible");
    pictureRow("width beyond all numbers", "120", "99999999999", "the size is missing or impossible");
    pictureRow("frame outside", "frame=\"0\"", "frame=\"1\"", "the frame is missing or impossible");
    pictureRow("frame below zero", "frame=\"0\"", "frame=\"-1\"", "the frame is missing or impossible");
    pictureRow("no frames", "frames=\"1\"", "frames=\"0\"", "the number of frames is missing or impossible");
    QTest::newRow("unknown element") << picture + "<sound/>" << QByteArray() << QStringLiteral("<sound>");
    const auto calibrationRow = [&](const char* aTitle, const char* aContent, const char* aNamed) {
        QTest::newRow(aTitle) << picture << QByteArray(aContent) << QString::fromLatin1(aNamed);
    };
    calibrationRow("calibration without name",
                   "<calibrations><calibration value=\"1\" unit=\"mm\"/></calibrations>",
                   "the name is missing");
    calibrationRow("calibration twice",
                   "<calibrations><calibration name=\"a\" value=\"1\"/><calibration name=\"a\" value=\"2\"/>"
                   "</calibrations>",
                   "stands here twice");
    calibrationRow("calibration in words",
                   "<calibrations><calibration name=\"a\" value=\"wide\"/></calibrations>", "the value");
    calibrationRow("calibration that is no number",
                   "<calibrations><calibration name=\"a\" value=\"nan\"/></calibrations>", "the value");
    calibrationRow("calibration without end",
                   "<calibrations><calibration name=\"a\" value=\"inf\"/></calibrations>", "the value");
    calibrationRow("calibration below zero",
                   "<calibrations><calibration name=\"a\" value=\"-1\"/></calibrations>", "the value");
    calibrationRow("unknown current calibration", "<calibrations current=\"b\"/>", "the current calibration");
    calibrationRow("foreign element", "<calibrations><lens/></calibrations>", "<lens>");
}

void TestBadProjects::badContentIsRefused()
{
    QFETCH(QByteArray, picture);
    QFETCH(QByteArray, calibrations);
    QFETCH(QString, named);
    const QString error = refusalOf(ProjectText::project(picture, calibrations, ProjectText::distance(1)));
    QVERIFY2(error.contains(named) && error.contains(QStringLiteral("line ")), qPrintable(error));
}

void TestBadProjects::badObjectIsRefused_data()
{
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<QString>("named");
    const QByteArray good = ProjectText::distance(2);
    const auto row = [&](const char* aTitle, const char* aOld, const char* aNew, const char* aNamed) {
        QTest::newRow(aTitle) << changed(good, aOld, aNew) << QString::fromLatin1(aNamed);
    };
    QTest::newRow("duplicate") << ProjectText::distance(1) << QStringLiteral("stands here twice");
    QTest::newRow("foreign element") << QByteArray("<thing type=\"1102\"/>") << QStringLiteral("<thing>");
    row("unknown type", "1102", "9999", "9999");
    row("no type", "type=\"1102\"", "", "unknown");
    row("type in words", "1102", "Distance", "unknown");
    row("index zero", "index=\"2\"", "index=\"0\"", "index");
    row("no index", "index=\"2\"", "", "index");
    row("animated in words", "animated=\"false\"", "animated=\"maybe\"", "maybe");
    row("missing parameter", "<param name=\"pos\" type=\"QPoint\"><default>20 30</default></param>", "",
        "pos");
    row("unknown parameter", "name=\"pos\"", "name=\"place\"", "place");
    row("parameter twice", "name=\"pos\"", "name=\"ep\"", "ep");
    row("wrong type", "name=\"pos\" type=\"QPoint\"", "name=\"pos\" type=\"QString\"", "QString");
    row("wrong value", "20 30", "twenty", "twenty");
    row("value beyond all numbers", "20 30", "99999999999 30", "99999999999");
    row("duplicate frames", "<default>20 30</default>",
        "<default>20 30</default><keyframe frame=\"3\">1 2</keyframe><keyframe frame=\"3\">3 4</keyframe>",
        "two keyframes at frame 3");
    row("frame below zero", "<default>20 30</default>",
        "<default>20 30</default><keyframe frame=\"-3\">1 2</keyframe>", "-3");
}

void TestBadProjects::badObjectIsRefused()
{
    QFETCH(QByteArray, object);
    QFETCH(QString, named);
    // Behind a good object, so that a loader that builds as it reads would leave half a document.
    const QString error =
        refusalOf(ProjectText::project(goodPicture(), "", ProjectText::distance(1) + object));
    QVERIFY2(error.contains(named) && error.contains(QStringLiteral("line ")), qPrintable(error));
    // The counter-case: the good object alone opens.
    QString none;
    MadeFiles::write(theBench->path(QStringLiteral("good.mtp")),
                     ProjectText::project(goodPicture(), "", ProjectText::distance(1)));
    QVERIFY2(theBench->document().open(theBench->path(QStringLiteral("good.mtp")), none), qPrintable(none));
}

void TestBadProjects::missingProjectIsRefused()
{
    const QString error = refusal(theBench->path(QStringLiteral("nowhere.mtp")));
    QVERIFY2(error.contains(QStringLiteral("is not there")), qPrintable(error));
}

void TestBadProjects::folderIsRefused()
{
    QVERIFY(QDir(theBench->path(QString())).mkdir(QStringLiteral("folder.mtp")));
    const QString error = refusal(theBench->path(QStringLiteral("folder.mtp")));
    QVERIFY2(error.contains(QStringLiteral("is a folder")), qPrintable(error));
}

void TestBadProjects::cutProjectIsRefusedAtEveryPlace()
{
    const QByteArray whole = ProjectText::project(goodPicture(), "", ProjectText::distance(1));
    for (qsizetype size = whole.size() - 2; size >= 0; size -= 7) {
        const QString error = refusalOf(whole.left(size));
        QVERIFY2(error.startsWith(QStringLiteral("The project ")), qPrintable(error));
    }
}

void TestBadProjects::formerVersionIsNamedWhereThereIsOne()
{
    const QString former = theBench->path(QStringLiteral("bad.mtp~"));
    QVERIFY(!refusalOf("damaged").contains(former));
    MadeFiles::write(former, ProjectText::project(goodPicture(), "", ""));
    QVERIFY(refusalOf("damaged").contains(former));
    QString error;
    QVERIFY2(theBench->document().open(former, error), qPrintable(error));
}

void TestBadProjects::badPictureIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("named");
    const QByteArray jpeg = MadeFiles::encoded(madePicture(50, 50), "jpeg");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("is empty");
    QTest::newRow("truncated") << jpeg.left(jpeg.size() / 2) << QStringLiteral("is cut off");
    QTest::newRow("unknown kind") << QByteArray("no picture at all") << QStringLiteral("of an unknown kind");
    QTest::newRow("absurdly large") << MadeFiles::pngHeader(90000, 90000) << QStringLiteral("too large");
}

void TestBadProjects::badPictureIsRefused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, named);
    const QString error = refusalOf(bytes, QStringLiteral("bad.jpg"));
    QVERIFY2(error.contains(named), qPrintable(error));
    QVERIFY(refusal(theBench->path(QStringLiteral("nowhere.jpg"))).contains(QStringLiteral("is not there")));
}

MEASURE_TEST_MAIN(TestBadProjects)
#include "TestBadProjects.moc"
