#include "TestFont.h"
#include "TurnedGlyphs.h"

#include <QPainter>
#include <QPicture>

#include <algorithm>
#include <cmath>

namespace {

// Wider than the texts, since plain text is cut off at the box, and inside the picture at all zooms.
const QRectF kBox(-64.0, -15.0, 128.0, 30.0);

QFont labelFont(double aPoints = 12.0)
{
    QFont font(QStringLiteral("Lucida Grande"));
    font.setPointSizeF(aPoints);
    return font;
}

// 200 x 200 logical pixels.
QImage emptyPicture(double aPixelRatio = 1.0)
{
    const int side = qRound(200 * aPixelRatio);
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(aPixelRatio);
    picture.fill(Qt::transparent);
    return picture;
}

bool isEmpty(const QImage& aPicture)
{
    return aPicture == emptyPicture(aPicture.devicePixelRatio());
}

QTransform aboutTheMiddle(double aDegrees)
{
    return QTransform::fromTranslate(100.3, 99.6).rotate(aDegrees);
}

bool draw(QPainter& aPainter, const QTransform& aView, const QString& aText, const QFont& aFont = labelFont())
{
    aPainter.setWorldTransform(aView);
    return TurnedGlyphs::getInstance().drawCentred(aPainter, kBox, aText, aFont, Qt::black);
}

// How much is covered, and about which point, in device pixels.
struct Ink
{
    explicit Ink(const QImage& aPicture)
    {
        for (int y = 0; y < aPicture.height(); ++y) {
            for (int x = 0; x < aPicture.width(); ++x) {
                const double alpha = qAlpha(aPicture.pixel(x, y)) / 255.0;
                theAmount += alpha;
                theCentre += QPointF(x, y) * alpha;
            }
        }
        if (theAmount > 0.0)
            theCentre /= theAmount;
    }

    double theAmount = 0.0;
    QPointF theCentre;
};

// The ink of one picture that has none of the other's within a pixel of it, as a share of its own.
double strayInk(const QImage& aPicture, const QImage& aOther)
{
    double stray = 0.0;
    for (int y = 1; y < aPicture.height() - 1; ++y) {
        for (int x = 1; x < aPicture.width() - 1; ++x) {
            int nearby = 0;
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx)
                    nearby = std::max(nearby, qAlpha(aOther.pixel(x + dx, y + dy)));
            stray += std::max(0, qAlpha(aPicture.pixel(x, y)) - nearby) / 255.0;
        }
    }
    return stray / Ink(aPicture).theAmount;
}

} // namespace

class TestTurnedGlyphs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TurnedGlyphs::getInstance().clear(); }

    void leavesTransformsToPlainText_data();
    void leavesTransformsToPlainText();
    void leavesTextsToPlainText_data();
    void leavesTextsToPlainText();
    void leavesDevicesWithoutPixelsToPlainText();
    void coversWhatPlainTextCovers_data();
    void coversWhatPlainTextCovers();
    void usesTheColourThatIsAsked();
    void sameTextIsStoredOnce();
    void clearEmptiesTheStore();
    void storeIsBounded();

private:
    qsizetype bytes() const { return TurnedGlyphs::getInstance().storedBytes(); }
};

void TestTurnedGlyphs::leavesTransformsToPlainText_data()
{
    QTest::addColumn<QTransform>("view");
    QTest::addColumn<bool>("drawn");
    const QTransform turned = aboutTheMiddle(30.0);
    QTest::newRow("upright") << aboutTheMiddle(0.0) << false;
    QTest::newRow("upright, scaled") << aboutTheMiddle(0.0).scale(1.5, 1.5) << false;
    QTest::newRow("sheared") << QTransform(turned).shear(0.3, 0.0) << false;
    QTest::newRow("stretched") << QTransform(turned).scale(1.0, 1.5) << false;
    QTest::newRow("mirrored") << QTransform(turned).scale(-1.0, 1.0) << false;
    QTest::newRow("in perspective") << turned * QTransform(1, 0, 0.001, 0, 1, 0, 0, 0, 1) << false;
    QTest::newRow("turned") << turned << true;
    QTest::newRow("turned and scaled") << QTransform(turned).scale(1.5, 1.5) << true;
    QTest::newRow("on its head") << aboutTheMiddle(180.0) << true;
}

void TestTurnedGlyphs::leavesTransformsToPlainText()
{
    QFETCH(QTransform, view);
    QFETCH(bool, drawn);
    QImage picture = emptyPicture();
    QPainter painter(&picture);
    QCOMPARE(draw(painter, view, QStringLiteral("12.34")), drawn);
    QCOMPARE(isEmpty(picture), !drawn);
    if (!drawn)
        QCOMPARE(painter.worldTransform(), view); // plain text goes on with it
}

void TestTurnedGlyphs::leavesTextsToPlainText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("Cyrillic") << QStringLiteral("12 \u043c\u043c") << false;
    QTest::newRow("combining accent") << QStringLiteral("e\u0301") << false;
    QTest::newRow("beyond 16 bits") << QStringLiteral("\U0001D54F") << false;
    QTest::newRow("Arabic") << QStringLiteral("\u0645\u0645") << false;
    QTest::newRow("digits and unit") << QStringLiteral("<12.34 mm>") << true;
    QTest::newRow("Latin with marks") << QStringLiteral("\u00c5\u00b5\u00b0\u0151") << true;
}

void TestTurnedGlyphs::leavesTextsToPlainText()
{
    QFETCH(QString, text);
    QFETCH(bool, drawn);
    QImage picture = emptyPicture();
    QPainter painter(&picture);
    QCOMPARE(draw(painter, aboutTheMiddle(30.0), text), drawn);
    QCOMPARE(isEmpty(picture), !drawn);
}

void TestTurnedGlyphs::leavesDevicesWithoutPixelsToPlainText()
{
    QPicture record;
    QPainter painter(&record);
    QVERIFY(!draw(painter, aboutTheMiddle(30.0), QStringLiteral("12.34")));
    painter.end();
    QCOMPARE(bytes(), qsizetype(0));
}

void TestTurnedGlyphs::coversWhatPlainTextCovers_data()
{
    QTest::addColumn<double>("degrees");
    QTest::addColumn<double>("zoom");
    QTest::addColumn<double>("pixelRatio");
    for (const double ratio : {1.0, 2.0})
        for (const double zoom : {1.0, 1.5})
            for (const double degrees : {-90.0, -61.25, -30.0, -0.5, 7.0, 45.0, 89.75, 90.0, 135.0, 180.0})
                QTest::addRow("%g degrees, zoom %g, ratio %g", degrees, zoom, ratio)
                    << degrees << zoom << ratio;
}

void TestTurnedGlyphs::coversWhatPlainTextCovers()
{
    QFETCH(double, degrees);
    QFETCH(double, zoom);
    QFETCH(double, pixelRatio);
    const QString text = QStringLiteral("12: <3.4 mm>");
    const QTransform view = aboutTheMiddle(degrees).scale(zoom, zoom);
    QImage ours = emptyPicture(pixelRatio);
    {
        QPainter painter(&ours);
        QVERIFY(draw(painter, view, text));
    }
    QImage plain = emptyPicture(pixelRatio);
    {
        QPainter painter(&plain);
        painter.setWorldTransform(view);
        painter.setFont(labelFont());
        painter.drawText(kBox, Qt::AlignCenter, text);
    }
    const Ink found(ours);
    const Ink expected(plain);
    QVERIFY(expected.theAmount > 100.0);
    const double share = found.theAmount / expected.theAmount;
    const QPointF offset = found.theCentre - expected.theCentre;
    const double stray = std::max(strayInk(ours, plain), strayInk(plain, ours));
    const QByteArray figures = QStringLiteral("ink %1, centre off by (%2, %3), stray %4")
                                   .arg(share)
                                   .arg(offset.x())
                                   .arg(offset.y())
                                   .arg(stray)
                                   .toLatin1();
    QVERIFY2(std::abs(share - 1.0) < 0.05, figures.constData());
    QVERIFY2(std::hypot(offset.x(), offset.y()) < 1.0, figures.constData());
    QVERIFY2(stray < 0.05, figures.constData());
}

void TestTurnedGlyphs::usesTheColourThatIsAsked()
{
    for (const QColor& color : {QColor(Qt::red), QColor(Qt::blue), QColor(Qt::red)}) {
        QImage picture = emptyPicture();
        QPainter painter(&picture);
        painter.setWorldTransform(aboutTheMiddle(30.0));
        QVERIFY(TurnedGlyphs::getInstance().drawCentred(painter, kBox, QStringLiteral("888"), labelFont(30.0),
                                                        color));
        int full = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor pixel = picture.pixelColor(x, y);
                full += pixel == color;
                QVERIFY(pixel.alpha() < 255 || pixel == color);
            }
        }
        QVERIFY(full > 50);
    }
}

void TestTurnedGlyphs::sameTextIsStoredOnce()
{
    QImage picture = emptyPicture();
    QPainter painter(&picture);
    QVERIFY(draw(painter, aboutTheMiddle(30.0), QStringLiteral("12")));
    const qsizetype once = bytes();
    QVERIFY(once > 0);
    QVERIFY(draw(painter, aboutTheMiddle(30.0), QStringLiteral("2112")));
    QVERIFY(draw(painter, aboutTheMiddle(30.1), QStringLiteral("21"))); // the same half degree
    QCOMPARE(bytes(), once);
    QVERIFY(draw(painter, aboutTheMiddle(31.0), QStringLiteral("12")));
    QVERIFY(bytes() > once);
}

void TestTurnedGlyphs::clearEmptiesTheStore()
{
    QImage picture = emptyPicture();
    QPainter painter(&picture);
    QVERIFY(draw(painter, aboutTheMiddle(30.0), QStringLiteral("12")));
    const qsizetype once = bytes();
    QVERIFY(once > 0);
    TurnedGlyphs::getInstance().clear();
    QCOMPARE(bytes(), qsizetype(0));
    QVERIFY(draw(painter, aboutTheMiddle(30.0), QStringLiteral("12")));
    QCOMPARE(bytes(), once); // drawn anew
}

void TestTurnedGlyphs::storeIsBounded()
{
    constexpr qsizetype kLimit = 32 << 20; // of the store, looked at before each text
    const QFont font = labelFont(150.0);
    QImage picture = emptyPicture();
    QPainter painter(&picture);
    qsizetype largest = 0; // share of one text
    qsizetype before = 0;
    qsizetype asked = 0;
    bool emptied = false;
    for (double degrees = 1.0; degrees < 359.5; degrees += 0.5) {
        QVERIFY(draw(painter, aboutTheMiddle(degrees), QStringLiteral("M"), font));
        emptied = emptied || bytes() < before;
        asked += std::max(bytes() - before, qsizetype(0));
        largest = std::max(largest, bytes() - before);
        before = bytes();
        QVERIFY(before <= kLimit + largest);
    }
    QVERIFY(asked > kLimit); // otherwise nothing was tried
    QVERIFY(emptied);
    QVERIFY(before > 0);
}

MEASURE_TEST_MAIN(TestTurnedGlyphs)
#include "TestTurnedGlyphs.moc"
