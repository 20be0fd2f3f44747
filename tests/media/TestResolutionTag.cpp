#include "ResolutionTag.h"
#include "TestFont.h"
#include "TestSamples.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>

namespace {

template <typename Number>
QByteArray number(Number aValue, bool aBig = true)
{
    const Number ordered = aBig ? qToBigEndian(aValue) : qToLittleEndian(aValue);
    return QByteArray(reinterpret_cast<const char*>(&ordered), sizeof ordered);
}

QByteArray pngChunk(const QByteArray& aName, const QByteArray& aData)
{
    return number(quint32(aData.size())) + aName + aData + QByteArray(4, '\0');
}

QByteArray png(const QByteArray& aChunks)
{
    return QByteArray("\x89PNG\r\n\x1a\n") + pngChunk("IHDR", QByteArray(13, '\1')) + aChunks +
           pngChunk("IDAT", "x") + pngChunk("IEND", "");
}

QByteArray phys(quint32 aAcross, quint32 aDown, char aUnit)
{
    return pngChunk("pHYs", number(aAcross) + number(aDown) + aUnit);
}

QByteArray segment(char aMarker, const QByteArray& aData)
{
    return QByteArray(1, '\xff') + aMarker + number(quint16(aData.size() + 2)) + aData;
}

QByteArray jfif(char aUnit, quint16 aAcross, quint16 aDown)
{
    return segment('\xe0', QByteArray("JFIF\0\1\2", 7) + aUnit + number(aAcross) + number(aDown) +
                               QByteArray(2, '\0'));
}

QByteArray jpeg(const QByteArray& aSegments)
{
    return QByteArray("\xff\xd8") + aSegments + segment('\xda', "scan") + QByteArray("\xff\xd9");
}

struct Ratio
{
    quint32 theOver;
    quint32 theUnder;
};

/// A TIFF header with the two ratios behind its list of fields; a unit of 0 is left out.
QByteArray tiff(Ratio aAcross, Ratio aDown, quint16 aUnit, bool aBig)
{
    const quint16 count = aUnit > 0 ? 3 : 2;
    const quint32 behind = 8 + 2 + 12u * count + 4;
    const auto field = [&](quint16 aTag, quint16 aType, const QByteArray& aValue) {
        return number(aTag, aBig) + number(aType, aBig) + number(quint32(1), aBig) + aValue;
    };
    QByteArray bytes = QByteArray(aBig ? "MM" : "II") + number(quint16(42), aBig) + number(quint32(8), aBig) +
                       number(count, aBig) + field(282, 5, number(behind, aBig)) +
                       field(283, 5, number(behind + 8, aBig));
    if (aUnit > 0)
        bytes += field(296, 3, number(aUnit, aBig) + QByteArray(2, '\0'));
    bytes += number(quint32(0), aBig);
    for (const Ratio& ratio : {aAcross, aDown})
        bytes += number(ratio.theOver, aBig) + number(ratio.theUnder, aBig);
    return bytes;
}

QByteArray exif(const QByteArray& aTiff)
{
    return segment('\xe1', QByteArray("Exif\0\0", 6) + aTiff);
}

ResolutionTag tagOf(QByteArray aBytes)
{
    QBuffer buffer(&aBytes);
    buffer.open(QIODevice::ReadOnly);
    return ResolutionTag::read(buffer);
}

} // namespace

/// The resolution that picture files note, also in files that are cut or wrong.
class TestResolutionTag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noteIsRead_data();
    void noteIsRead();
    void whatIsNoRealNoteIsNone_data();
    void whatIsNoRealNoteIsNone();
    void writtenPicturesAreRead_data();
    void writtenPicturesAreRead();
    void pixelsMayDifferByAThousandth();
    void cutFilesGiveTheNoteOrNone();
    void wildBytesDoNoHarm();
    void missingFileAndFolderHaveNone();
};

void TestResolutionTag::noteIsRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<double>("across");
    QTest::addColumn<double>("down");
    QTest::addColumn<int>("unit");
    QTest::addColumn<double>("millimetres");
    const auto row = [](const char* aTitle, const QByteArray& aBytes, double aAcross, double aDown,
                        ResolutionTag::Unit aUnit, double aMillimetres) {
        QTest::newRow(aTitle) << aBytes << aAcross << aDown << int(aUnit) << aMillimetres;
    };
    const auto inch = ResolutionTag::kInch;
    const auto centimetre = ResolutionTag::kCentimetre;
    row("PNG", png(phys(4000, 4000, 1)), 4000, 4000, ResolutionTag::kMetre, 0.25);
    row("PNG with other notes before", png(pngChunk("gAMA", "1234") + phys(8000, 4000, 1)), 8000, 4000,
        ResolutionTag::kMetre, 0.125);
    row("JPEG, inch", jpeg(jfif(1, 254, 254)), 254, 254, inch, 0.1);
    row("JPEG, centimetre", jpeg(jfif(2, 100, 50)), 100, 50, centimetre, 0.1);
    row("JPEG with filling bytes", jpeg(QByteArray("\xff\xff") + jfif(1, 254, 254)), 254, 254, inch, 0.1);
    row("JPEG of a camera", jpeg(exif(tiff({3000, 10}, {300, 1}, 2, true))), 300, 300, inch, 25.4 / 300);
    row("JPEG of a camera, low byte first", jpeg(exif(tiff({50, 1}, {50, 1}, 3, false))), 50, 50, centimetre,
        0.2);
    row("the camera's note counts first", jpeg(jfif(1, 72, 72) + exif(tiff({254, 1}, {254, 1}, 2, true))),
        254, 254, inch, 0.1);
    row("the camera notes none", jpeg(jfif(1, 254, 254) + exif(tiff({1, 1}, {1, 1}, 1, true))), 254, 254,
        inch, 0.1);
    row("TIFF", tiff({254, 1}, {254, 1}, 2, false), 254, 254, inch, 0.1);
    row("TIFF, high byte first", tiff({1000, 10}, {200, 2}, 3, true), 100, 100, centimetre, 0.1);
    row("TIFF without a unit means inches", tiff({508, 2}, {254, 1}, 0, false), 254, 254, inch, 0.1);
}

void TestResolutionTag::noteIsRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(double, across);
    QFETCH(double, down);
    QFETCH(int, unit);
    QFETCH(double, millimetres);
    const ResolutionTag tag = tagOf(bytes);
    QVERIFY(tag.isNoted());
    QCOMPARE(tag.theAcross, across);
    QCOMPARE(tag.theDown, down);
    QCOMPARE(int(tag.theUnit), unit);
    QCOMPARE(tag.pixelMillimetres(), millimetres);
}

void TestResolutionTag::whatIsNoRealNoteIsNone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char* aTitle, const QByteArray& aBytes) { QTest::newRow(aTitle) << aBytes; };
    row("nothing", "");
    row("text", "Dear reader, this is a letter about MM and II.");
    row("PNG without a note", png(""));
    row("PNG that notes a shape only", png(phys(4, 3, 0)));
    row("PNG with a zero", png(phys(4000, 0, 1)));
    row("PNG with a note behind the pixels", png("") + phys(4000, 4000, 1));
    row("PNG with a note of another size", png(pngChunk("pHYs", "1234")));
    row("PNG with a chunk of endless size", png(QByteArray(4, '\xff') + "zzzz"));
    row("JPEG without a note", jpeg(""));
    row("JPEG that notes a shape only", jpeg(jfif(0, 1, 1)));
    row("JPEG with zeros", jpeg(jfif(1, 0, 0)));
    row("JPEG with a short note", jpeg(segment('\xe0', QByteArray("JFIF\0", 5))));
    row("JPEG with a segment of no size", QByteArray("\xff\xd8\xff\xe0\0\0", 6));
    row("JPEG with a note behind the scan", jpeg("") + jfif(1, 254, 254));
    row("TIFF without a unit of length", tiff({254, 1}, {254, 1}, 1, false));
    row("TIFF with an unknown unit", tiff({254, 1}, {254, 1}, 9, false));
    row("TIFF divided by zero", tiff({254, 0}, {254, 0}, 2, false));
    row("TIFF with a zero", tiff({0, 1}, {254, 1}, 2, false));
    row("TIFF whose list lies outside", QByteArray("II*\0\xff\xff\xff\x7f", 8));
    row("TIFF whose list is endless", QByteArray("II*\0\x8\0\0\0\xff\xff", 10));
    QByteArray outside = tiff({254, 1}, {254, 1}, 2, false);
    outside.replace(8 + 2 + 8, 4, QByteArray(4, '\xff'));
    row("TIFF whose number lies outside", outside);
    row("the camera's list points at itself", jpeg(exif(QByteArray("MM\0*\0\0\0\0", 8))));
}

void TestResolutionTag::whatIsNoRealNoteIsNone()
{
    QFETCH(QByteArray, bytes);
    const ResolutionTag tag = tagOf(bytes);
    QVERIFY(!tag.isNoted());
    QCOMPARE(tag.pixelMillimetres(), 0.0);
}

void TestResolutionTag::writtenPicturesAreRead_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char* format : {"png", "jpg", "tif"})
        QTest::newRow(format) << QByteArray(format);
}

void TestResolutionTag::writtenPicturesAreRead()
{
    QFETCH(QByteArray, format);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.") + QLatin1String(format));
    QImage picture = madePicture(20, 10);
    picture.setDotsPerMeterX(10000); // 254 to the inch
    picture.setDotsPerMeterY(10000);
    QVERIFY(picture.save(path));
    const ResolutionTag tag = ResolutionTag::read(path);
    QVERIFY(tag.isNoted() && tag.isSquare());
    QVERIFY2(std::abs(tag.pixelMillimetres() - 0.1) < 1e-6,
             qPrintable(QString::number(tag.pixelMillimetres())));
}

void TestResolutionTag::pixelsMayDifferByAThousandth()
{
    QVERIFY(tagOf(png(phys(10000, 10010, 1))).isSquare());
    QVERIFY(!tagOf(png(phys(10000, 10011, 1))).isSquare());
    QVERIFY(tagOf(png(phys(10010, 10000, 1))).isSquare());
    QVERIFY(!tagOf(png(phys(10011, 10000, 1))).isSquare());
    QVERIFY(!tagOf(jpeg(jfif(1, 300, 150))).isSquare());
}

void TestResolutionTag::cutFilesGiveTheNoteOrNone()
{
    const QList<QByteArray> files{png(phys(4000, 4000, 1)), jpeg(jfif(1, 254, 254)),
                                  jpeg(exif(tiff({254, 1}, {254, 1}, 2, true))),
                                  tiff({254, 1}, {254, 1}, 2, false)};
    for (const QByteArray& file : files) {
        const ResolutionTag whole = tagOf(file);
        QVERIFY(whole.isNoted());
        QVERIFY(!tagOf(QByteArray()).isNoted());
        for (qsizetype size = 1; size < file.size(); ++size) {
            const ResolutionTag tag = tagOf(file.first(size));
            if (tag.isNoted())
                QCOMPARE(tag.pixelMillimetres(), whole.pixelMillimetres());
        }
    }
}

void TestResolutionTag::wildBytesDoNoHarm()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const QList<QByteArray> files{png(phys(4000, 4000, 1)), jpeg(jfif(1, 254, 254)),
                                  jpeg(exif(tiff({254, 1}, {254, 1}, 2, true))),
                                  tiff({254, 1}, {254, 1}, 2, false)};
    for (int round = 0; round < 20000; ++round) {
        QByteArray file = files[random.bounded(int(files.size()))];
        for (int change = random.bounded(1, 6); change > 0; --change)
            file[random.bounded(int(file.size()))] = char(random.bounded(256));
        const ResolutionTag tag = tagOf(file);
        QVERIFY(tag.theAcross >= 0.0 && tag.theDown >= 0.0);
        QCOMPARE(tag.isNoted(), tag.pixelMillimetres() > 0.0);
        QVERIFY(std::isfinite(tag.pixelMillimetres()));
    }
}

void TestResolutionTag::missingFileAndFolderHaveNone()
{
    const QTemporaryDir folder;
    QVERIFY(!ResolutionTag::read(folder.filePath(QStringLiteral("none.png"))).isNoted());
    QVERIFY(!ResolutionTag::read(folder.path()).isNoted());
    QVERIFY(!ResolutionTag::read(QString()).isNoted());
}

MEASURE_TEST_MAIN(TestResolutionTag)
#include "TestResolutionTag.moc"
