#include "KernelFixture.h"
#include "TestFont.h"
#include "ValueText.h"

#include <QDomDocument>
#include <QFont>
#include <QPolygon>
#include <QProgressDialog>

#include <climits>

namespace {

using Fixture = KernelFixture;

/// A good document of one object, one element per line.
const QString kGood = QStringLiteral(R"(<objects>
<object type="9001" index="3" animated="true">
<param name="vis" type="bool"><default>true</default></param>
<param name="col" type="QColor"><default>#ff0a141e</default></param>
<param name="dispv" type="QString"><default>Distance</default></param>
<param name="pos" type="QPoint"><default>12 34</default>
<keyframe frame="5">-1 2</keyframe>
<keyframe frame="9">3 4</keyframe></param>
<param name="pts" type="QPolygon"><default>1,2 3,4</default></param>
<param name="nst" type="QByteArray"><default>YWJj</default></param>
<param name="marks" type="QPolygon"><default></default></param>
<param name="fnt" type="QFont"></param>
</object>
</objects>)");

QDomElement parsed(QDomDocument& aDocument, const QString& aText)
{
    return aDocument.setContent(aText) ? aDocument.documentElement().firstChildElement() : QDomElement();
}

} // namespace

class TestRecordXml : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theDescriptor.reset(Fixture::makeDescriptor()); }

    void elementHoldsNamesAndNeverNumbersOfTypes();
    void goodElementIsRead();
    void anyRecordComesBackExactly();
    void anyTextSurvives_data();
    void anyTextSurvives();
    void colourComesBackExactly_data();
    void colourComesBackExactly();
    void keyframesAreSortedWhateverTheirOrder();
    void emptyDescriptorReadsAnEmptyObject();
    void faultIsToldWithLineAndElement_data();
    void faultIsToldWithLineAndElement();
    void everyCutOffDocumentIsRefusedOrWhole();
    void nullElementIsRefused();
    void errorIsGoneAfterAGoodElement();
    void elementWithoutALineIsToldWithoutOne();
    void malformedValuesAreRefused_data();
    void malformedValuesAreRefused();
    void progressDialogIsLeftAloneByShortObjects();
    void longLoadingCanBeCancelled();

private:
    std::unique_ptr<LmKernelObjectData> read(const QDomElement& aElement,
                                             QProgressDialog* aProgress = nullptr)
    {
        theIndex = -7;
        return std::unique_ptr<LmKernelObjectData>(
            theDescriptor->createObjectDataFromXML(aElement, theIndex, aProgress));
    }
    /// Writes the record into a document, parses the text again and reads it.
    std::unique_ptr<LmKernelObjectData> throughText(const LmKernelObjectData& aData, int aIndent);

    std::unique_ptr<LmKernelObjectDataDescr> theDescriptor;
    int theIndex = 0;
};

std::unique_ptr<LmKernelObjectData> TestRecordXml::throughText(const LmKernelObjectData& aData, int aIndent)
{
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("objects"));
    document.appendChild(root);
    root.appendChild(theDescriptor->createXML(document, 17, aData));
    QDomDocument again;
    return read(parsed(again, QString::fromUtf8(document.toByteArray(aIndent))));
}

void TestRecordXml::elementHoldsNamesAndNeverNumbersOfTypes()
{
    const std::unique_ptr<LmKernelObjectData> data(Fixture::makeRecord());
    data->storeValue(Fixture::kPos, 5, QPoint(-1, 2));
    QDomDocument document;
    document.appendChild(theDescriptor->createXML(document, 3, *data));
    const QString text = document.toString(-1);
    QVERIFY(text.contains(QStringLiteral("<object ")));
    const QStringList parts = {"animated=\"false\"",
                               "index=\"3\"",
                               "type=\"9001\"",
                               "type=\"bool\"",
                               "type=\"QColor\"",
                               "type=\"QString\"",
                               "type=\"QPoint\"",
                               "type=\"QPolygon\"",
                               "type=\"QByteArray\"",
                               "type=\"QFont\"",
                               ">true</default>",
                               ">100 200</default>",
                               ">0,0 10,0 10,10</default>",
                               ">#ff0a141e</default>",
                               ">YWJj</default>",
                               "<keyframe frame=\"5\">-1 2</keyframe>"};
    for (const QString& part : parts)
        QVERIFY2(text.contains(part), qPrintable(part + QStringLiteral(" isn't in ") + text));
}

void TestRecordXml::goodElementIsRead()
{
    QDomDocument document;
    const auto data = read(parsed(document, kGood));
    QVERIFY2(data, qPrintable(theDescriptor->xmlError()));
    QVERIFY(theDescriptor->xmlError().isEmpty());
    QCOMPARE(theIndex, 3);
    QVERIFY(data->theAnimated);
    QCOMPARE(data->storedValue(Fixture::kVis, -1), QVariant(true));
    QCOMPARE(data->storedValue(Fixture::kCol, -1).value<QColor>(), QColor(10, 20, 30));
    QCOMPARE(data->storedValue(Fixture::kDispv, -1), QVariant(QStringLiteral("Distance")));
    QCOMPARE(data->storedValue(Fixture::kPos, -1), QVariant(QPoint(12, 34)));
    QCOMPARE(data->storedValue(Fixture::kPos, 5), QVariant(QPoint(-1, 2)));
    QCOMPARE(data->getKeyframedFrames(), QList<long long>({5, 9}));
    QCOMPARE(data->storedValue(Fixture::kPts, -1).value<QPolygon>(), QPolygon(QList<QPoint>{{1, 2}, {3, 4}}));
    QCOMPARE(data->storedValue(Fixture::kNst, -1), QVariant(QByteArray("abc")));
    QCOMPARE(data->storedValue(Fixture::kMarks, -1).typeId(), int(QMetaType::QPolygon));
    QVERIFY(!data->storedValue(Fixture::kFont, -1).isValid());
}

void TestRecordXml::anyRecordComesBackExactly()
{
    const unsigned int seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 1000; ++round) {
        const std::unique_ptr<LmKernelObjectData> data(Fixture::randomRecord(random));
        const auto again = throughText(*data, round % 2 ? 1 : -1);
        QVERIFY2(again, qPrintable(theDescriptor->xmlError()));
        QCOMPARE(theIndex, 17);
        QCOMPARE(Fixture::dump(again.get()), Fixture::dump(data.get()));
        QCOMPARE(again->getDefaultKeyframes(), data->getDefaultKeyframes());
        for (int i = 0; i < data->count(); ++i)
            QVERIFY(std::as_const(*again).getAnimationKeyframes(i) ==
                    std::as_const(*data).getAnimationKeyframes(i));
    }
}

void TestRecordXml::anyTextSurvives_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("empty") << QString("");
    QTest::newRow("blanks only") << QString("   ");
    QTest::newRow("blanks around") << QString("  a  b ");
    QTest::newRow("lines") << QString("a\nb\r\nc\rd\te");
    QTest::newRow("control characters") << QString("a\x01\x02\x1f\x7f") + QChar(0) + QChar(0x85);
    QTest::newRow("not in XML") << QString(QChar(0xfffe)) + QChar(0xffff);
    QTest::newRow("half a pair") << QString(QChar(0xd800)) + QStringLiteral("x") + QChar(0xdc00);
    QTest::newRow("a whole pair") << QString::fromUcs4(U"\U0001F600");
    QTest::newRow("half a pair at the end") << QStringLiteral("x") + QChar(0xd83d);
    QTest::newRow("looks escaped") << QStringLiteral("\\u0020 \\\\ \\n \\");
    QTest::newRow("markup") << QStringLiteral("<a b=\"c\">&amp;]]></a>'");
    QTest::newRow("accents") << QStringLiteral("L\u00e4nge \u00b5m \u2126 \u4e2d");
    QTest::newRow("other spaces") << QStringLiteral("\u00a0\u2003\u2028\u2029");
}

void TestRecordXml::anyTextSurvives()
{
    QFETCH(QString, value);
    const std::unique_ptr<LmKernelObjectData> data(Fixture::makeRecord());
    data->storeValue(Fixture::kDispv, kDefaultFrame, value);
    const auto again = throughText(*data, 1);
    QVERIFY2(again, qPrintable(theDescriptor->xmlError()));
    QCOMPARE(again->storedValue(Fixture::kDispv, -1).toString(), value);
}

void TestRecordXml::colourComesBackExactly_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QColor(255, 0, 16) << "#ffff0010";
    QTest::newRow("half seen") << QColor(1, 2, 3, 4) << "#04010203";
    QTest::newRow("invalid") << QColor() << "invalid";
    QTest::newRow("fine") << QColor::fromRgba64(0x1234, 0x5678, 0x9abc, 0xdef0) << "#def0123456789abc";
}

void TestRecordXml::colourComesBackExactly()
{
    QFETCH(QColor, color);
    QTEST(ValueText::write(color), "text");
    QCOMPARE(ValueText::read(QMetaType::QColor, ValueText::write(color)).value<QColor>(), color);
}

void TestRecordXml::keyframesAreSortedWhateverTheirOrder()
{
    QDomDocument document;
    QString text = kGood;
    text.replace(QStringLiteral("frame=\"5\""), QStringLiteral("frame=\"90\""));
    const auto data = read(parsed(document, text));
    QVERIFY(data);
    QCOMPARE(data->getAnimationKeyframes(Fixture::kPos).first().getFrame(), 9LL);
    QCOMPARE(data->getAnimationKeyframes(Fixture::kPos).last().getFrame(), 90LL);
}

void TestRecordXml::emptyDescriptorReadsAnEmptyObject()
{
    const LmKernelObjectDataDescr empty(5, 0);
    QDomDocument document;
    const QDomElement element =
        parsed(document, QStringLiteral("<x><object type=\"5\" index=\"1\" animated=\"false\"/></x>"));
    int index = 0;
    const std::unique_ptr<LmKernelObjectData> data(empty.createObjectDataFromXML(element, index, nullptr));
    QVERIFY(data);
    QCOMPARE(data->count(), 0);
}

void TestRecordXml::faultIsToldWithLineAndElement_data()
{
    QTest::addColumn<QString>("good");
    QTest::addColumn<QString>("bad");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("word");
    const auto row = [](const char* aName, const char* aGood, const char* aBad, int aLine,
                        const char* aElement, const char* aWord) {
        QTest::newRow(aName) << QString(aGood) << QString(aBad) << aLine << QString(aElement)
                             << QString(aWord);
    };
    row("wrong tag", "object ", "subject ", 2, "subject", "object");
    row("wrong object type", "type=\"9001\"", "type=\"1102\"", 2, "object", "1102");
    row("no object type", "type=\"9001\"", "", 2, "object", "type");
    row("index no number", "index=\"3\"", "index=\"three\"", 2, "object", "three");
    row("index 0", "index=\"3\"", "index=\"0\"", 2, "object", "index");
    row("index too great", "index=\"3\"", "index=\"2147483648\"", 2, "object", "2147483648");
    row("no index", "index=\"3\"", "", 2, "object", "index");
    row("wrong flag", "animated=\"true\"", "animated=\"1\"", 2, "object", "animated");
    row("missing parameter", "<param name=\"fnt\" type=\"QFont\"></param>", "", 2, "object", "fnt");
    row("unknown parameter", "name=\"vis\"", "name=\"viz\"", 3, "param", "viz");
    row("duplicate parameter", "name=\"col\"", "name=\"vis\"", 4, "param", "twice");
    row("another element", "<param name=\"vis\"", "<extra/><param name=\"vis\"", 3, "extra", "parameter");
    row("wrong type name", "type=\"QPoint\"", "type=\"QPointF\"", 6, "param", "QPointF");
    row("type number", "type=\"QPoint\"", "type=\"25\"", 6, "param", "25");
    row("no type name", "type=\"QPoint\"", "", 6, "param", "QPoint");
    row("malformed bool", ">true<", ">yes<", 3, "default", "yes");
    row("malformed point", ">12 34<", ">12;34<", 6, "default", "12;34");
    row("malformed keyframe", ">3 4<", ">3 4 5<", 8, "keyframe", "3 4 5");
    row("malformed colour", "#ff0a141e", "red", 4, "default", "red");
    row("malformed points", ">1,2 3,4<", ">1,2 3<", 9, "default", "1,2 3");
    row("malformed bytes", ">YWJj<", ">YW!j<", 10, "default", "YW!j");
    row("malformed text", ">Distance<", ">\\x<", 5, "default", "dispv");
    row("element in a value", ">12 34<", "><b>1 2</b><", 6, "default", "value");
    row("two defaults", "<keyframe frame=\"5\">-1 2</keyframe>", "<default>1 2</default>", 7, "default",
        "two");
    row("neither default nor keyframe", "<keyframe frame=\"5\">-1 2</keyframe>", "<value>1 2</value>", 7,
        "value", "pos");
    row("negative frame", "frame=\"5\"", "frame=\"-1\"", 7, "keyframe", "-1");
    row("frame no number", "frame=\"5\"", "frame=\"5.5\"", 7, "keyframe", "5.5");
    row("no frame", "frame=\"5\"", "", 7, "keyframe", "frame");
    row("frame too great", "frame=\"5\"", "frame=\"99999999999999999999\"", 7, "keyframe",
        "99999999999999999999");
    row("duplicate frame", "frame=\"9\"", "frame=\"5\"", 8, "keyframe", "5");
    row("keyframe of the whole object", "<default>true</default>", "<keyframe frame=\"1\">true</keyframe>", 3,
        "keyframe", "vis");
}

void TestRecordXml::faultIsToldWithLineAndElement()
{
    QFETCH(QString, good);
    QFETCH(QString, bad);
    QFETCH(int, line);
    QFETCH(QString, element);
    QFETCH(QString, word);
    QString text = kGood;
    const qsizetype at = text.indexOf(good);
    QVERIFY(at >= 0);
    text.replace(at, good.size(), bad);
    // The end tag goes with its start tag.
    if (bad.startsWith(QStringLiteral("subject")))
        text.replace(QStringLiteral("</object>"), QStringLiteral("</subject>"));
    QDomDocument document;
    const QDomElement read = parsed(document, text);
    QVERIFY(!read.isNull());
    int index = -7;
    QVERIFY(!theDescriptor->createObjectDataFromXML(read, index, nullptr));
    QCOMPARE(index, -7);
    const QString error = theDescriptor->xmlError();
    QVERIFY2(error.startsWith(QStringLiteral("Line %1, element <%2>: ").arg(line).arg(element)),
             qPrintable(error));
    QVERIFY2(error.mid(error.indexOf(u':')).contains(word), qPrintable(error));
    QVERIFY(error.endsWith(u'.'));
    QVERIFY(!error.contains(u'\n'));
}

void TestRecordXml::everyCutOffDocumentIsRefusedOrWhole()
{
    for (qsizetype length = 0; length < kGood.size(); ++length) {
        QDomDocument document;
        const QDomElement element = parsed(document, kGood.left(length));
        QVERIFY(!read(element));
        QVERIFY(!theDescriptor->xmlError().isEmpty());
    }
    // Without any one of its lines the object is either refused or has one keyframe less.
    const QStringList lines = kGood.split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        QStringList fewer = lines;
        fewer.removeAt(i);
        QDomDocument document;
        const auto data = read(parsed(document, fewer.join(u'\n')));
        QCOMPARE(bool(data), theDescriptor->xmlError().isEmpty());
        if (data)
            QCOMPARE(data->getKeyframedFrames().size(), 1);
    }
}

void TestRecordXml::nullElementIsRefused()
{
    QVERIFY(!read(QDomElement()));
    QVERIFY(!theDescriptor->xmlError().isEmpty());
}

void TestRecordXml::errorIsGoneAfterAGoodElement()
{
    QVERIFY(!read(QDomElement()));
    QDomDocument document;
    QVERIFY(read(parsed(document, kGood)));
    QVERIFY(theDescriptor->xmlError().isEmpty());
}

void TestRecordXml::elementWithoutALineIsToldWithoutOne()
{
    QDomDocument document;
    QVERIFY(!read(document.createElement(QStringLiteral("other"))));
    QVERIFY2(theDescriptor->xmlError().startsWith(QStringLiteral("Element <other>: ")),
             qPrintable(theDescriptor->xmlError()));
}

void TestRecordXml::malformedValuesAreRefused_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("bool in capitals") << int(QMetaType::Bool) << "TRUE";
    QTest::newRow("bool empty") << int(QMetaType::Bool) << "";
    QTest::newRow("point of one number") << int(QMetaType::QPoint) << "5";
    QTest::newRow("point empty") << int(QMetaType::QPoint) << "";
    QTest::newRow("point of real numbers") << int(QMetaType::QPoint) << "1.5 2";
    QTest::newRow("point beyond int") << int(QMetaType::QPoint) << "2147483648 0";
    QTest::newRow("polygon with a hole") << int(QMetaType::QPolygon) << "1,2 ,4";
    QTest::newRow("polygon of triples") << int(QMetaType::QPolygon) << "1,2,3";
    QTest::newRow("colour with 7 digits") << int(QMetaType::QColor) << "#1234567";
    QTest::newRow("colour with a sign") << int(QMetaType::QColor) << "#+1234567";
    QTest::newRow("colour empty") << int(QMetaType::QColor) << "";
    QTest::newRow("text with half an escape") << int(QMetaType::QString) << "\\u12";
    QTest::newRow("text with a wrong escape") << int(QMetaType::QString) << "\\u12g4";
    QTest::newRow("text with a lone backslash") << int(QMetaType::QString) << "abc\\";
    QTest::newRow("font empty") << int(QMetaType::QFont) << "";
    QTest::newRow("font of one name") << int(QMetaType::QFont) << "DejaVu Sans";
    QTest::newRow("bytes of 5 digits") << int(QMetaType::QByteArray) << "YWJjZ";
    QTest::newRow("a type that isn't saved") << int(QMetaType::QSize) << "1 2";
}

void TestRecordXml::malformedValuesAreRefused()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QVERIFY(!ValueText::read(QMetaType::Type(type), text).isValid());
}

void TestRecordXml::progressDialogIsLeftAloneByShortObjects()
{
    QProgressDialog progress;
    progress.setValue(33);
    QDomDocument document;
    QVERIFY(read(parsed(document, kGood), &progress));
    QCOMPARE(progress.value(), 33);
    QVERIFY(!progress.wasCanceled());
}

void TestRecordXml::longLoadingCanBeCancelled()
{
    const std::unique_ptr<LmKernelObjectData> data(Fixture::makeRecord());
    for (int i = 0; i < 50000; ++i)
        data->storeValue(Fixture::kPos, i, QPoint(i, i));
    QDomDocument document;
    const QDomElement element = theDescriptor->createXML(document, 1, *data);
    QProgressDialog progress;
    progress.setModal(true);
    const auto whole = read(element, &progress);
    QVERIFY(whole);
    QCOMPARE(Fixture::dump(whole.get()), Fixture::dump(data.get()));
    progress.cancel();
    QVERIFY(!read(element, &progress));
    QCOMPARE(theDescriptor->xmlError(), QStringLiteral("The loading was cancelled."));
}

MEASURE_TEST_MAIN(TestRecordXml)
#include "TestRecordXml.moc"
