#include "Calibration.h"
#include "CommandLine.h"
#include "Document.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "PictureRenderer.h"
#include "ScaleBar.h"
#include "TestFont.h"
#include "WindowFixture.h"

#include <QImage>
#include <QPainter>
#include <QProcess>

#include <cmath>
#include <limits>

namespace {

void calibrate(WindowFixture& aWindow, double aPixelSize, const QString& aUnit = QStringLiteral("mm"))
{
    aWindow.kernel().setCalibration(QStringLiteral("c"), Calibration::fromPixelSize(aPixelSize, aUnit));
    aWindow.kernel().setCurrentCalibration(QStringLiteral("c"));
}

double luminance(const QColor& aColor)
{
    const auto linear = [](double aPart) {
        return aPart <= 0.04045 ? aPart / 12.92 : std::pow((aPart + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(double(aColor.redF())) + 0.7152 * linear(double(aColor.greenF())) +
           0.0722 * linear(double(aColor.blueF()));
}

/// The first and last white pixel of a row.
QPair<int, int> whiteRun(const QImage& aPicture, int aY)
{
    QPair<int, int> run(-1, -1);
    for (int x = 0; x < aPicture.width(); ++x)
        if (aPicture.pixel(x, aY) == qRgb(255, 255, 255)) {
            run.first = run.first < 0 ? x : run.first;
            run.second = x;
        }
    return run;
}

} // namespace

/// The scale bar: its round length, its look, and the one in written pictures.
class TestScaleBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lengthIsRoundAndNearAFifth_data();
    void lengthIsRoundAndNearAFifth();
    void noSensibleNumberHasNoBar();
    void withoutCalibrationItCountsPixels();
    void plateShowsOnEveryPicture_data();
    void plateShowsOnEveryPicture();
    void writtenBarHasItsLength();
    void smallPictureHasNone();
    void programWritesItWhenAsked();
};

void TestScaleBar::lengthIsRoundAndNearAFifth_data()
{
    QTest::addColumn<double>("pixelsPerUnit");
    QTest::addColumn<double>("room");
    QTest::addColumn<double>("length");
    // A fifth of 1000 pixels are 200; the geometric means of 1, 2, 5, 10 part what is nearer to which.
    QTest::newRow("exact") << 1.0 << 1000.0 << 200.0;
    QTest::newRow("exact one") << 200.0 << 1000.0 << 1.0;
    QTest::newRow("exact five") << 40.0 << 1000.0 << 5.0;
    QTest::newRow("3.1 is nearer to two") << 10.0 << 155.0 << 2.0;
    QTest::newRow("3.2 is nearer to five") << 10.0 << 160.0 << 5.0;
    QTest::newRow("1.4 is nearer to one") << 10.0 << 70.0 << 1.0;
    QTest::newRow("1.45 is nearer to two") << 10.0 << 72.5 << 2.0;
    QTest::newRow("7.2 is nearer to ten") << 10.0 << 360.0 << 10.0;
    QTest::newRow("7 is nearer to five") << 10.0 << 350.0 << 5.0;
    QTest::newRow("thousandths") << 200000.0 << 1000.0 << 0.001;
    QTest::newRow("five millionths") << 4e7 << 1000.0 << 5e-6;
    QTest::newRow("millions") << 1e-4 << 1000.0 << 2e6;
}

void TestScaleBar::lengthIsRoundAndNearAFifth()
{
    QFETCH(double, pixelsPerUnit);
    QFETCH(double, room);
    QFETCH(double, length);
    QCOMPARE(ScaleBar::roundLength(pixelsPerUnit, room), length);
    // Another unit is another number of the same kind, and the bar stays about a fifth of the room.
    for (double factor = 0.01; factor < 100.0; factor *= 1.07) {
        const double share =
            ScaleBar::roundLength(pixelsPerUnit * factor, room) * pixelsPerUnit * factor / room;
        QVERIFY2(share > 0.2 / 1.6 && share < 0.2 * 1.6, qPrintable(QString::number(share)));
    }
}

void TestScaleBar::noSensibleNumberHasNoBar()
{
    const double infinite = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double wrong : {0.0, -1.0, none, infinite}) {
        QCOMPARE(ScaleBar::roundLength(wrong, 1000.0), 0.0);
        if (wrong != infinite)
            QCOMPARE(ScaleBar::roundLength(1.0, wrong), 0.0);
    }
    QCOMPARE(ScaleBar::roundLength(1e-300, 1e300), 0.0);
    QCOMPARE(ScaleBar::roundLength(1e300, 1e-300), 0.0);
    for (const double extreme : {1e-300, 1e-200, 1e200, 1e300}) {
        const double length = ScaleBar::roundLength(extreme, 1000.0);
        QVERIFY(std::isfinite(length) && length > 0.0);
    }
    // Without a picture there is nothing to measure.
    QVERIFY(ScaleBar::forPicture(1.0, 1000.0).isNull());
}

void TestScaleBar::withoutCalibrationItCountsPixels()
{
    WindowFixture w;
    const ScaleBar wide = ScaleBar::forPicture(2.0, 1000.0);
    QCOMPARE(wide.theText, QStringLiteral("100 px"));
    QCOMPARE(wide.thePixels, 200.0);
    // There is nothing shorter than a pixel.
    const ScaleBar one = ScaleBar::forPicture(64.0, 100.0);
    QCOMPARE(one.theText, QStringLiteral("1 px"));
    QCOMPARE(one.thePixels, 64.0);
    calibrate(w, 0.00001);
    QCOMPARE(ScaleBar::forPicture(1.0, 500.0).theText, QStringLiteral("0.001 mm"));
    calibrate(w, 0.00005, QString());
    QCOMPARE(ScaleBar::forPicture(1.0, 500.0).theText, QStringLiteral("0.005"));
}

void TestScaleBar::plateShowsOnEveryPicture_data()
{
    QTest::addColumn<QColor>("ground");
    for (const QColor& ground :
         {QColor(Qt::white), QColor(Qt::black), QColor(128, 128, 128), QColor(Qt::yellow)})
        QTest::newRow(qPrintable(ground.name())) << ground;
}

void TestScaleBar::plateShowsOnEveryPicture()
{
    QFETCH(QColor, ground);
    WindowFixture w;
    const ScaleBar shown = ScaleBar::forPicture(1.0, 500.0);
    QImage paper(shown.size(13) + QSize(20, 20), QImage::Format_RGB32);
    paper.fill(ground);
    QPainter painter(&paper);
    painter.translate(10, 10);
    shown.paint(painter, 13);
    painter.end();
    // Just within the plate's edge, at half its height.
    const QColor plate = paper.pixelColor(12, paper.height() / 2);
    const double contrast = 1.05 / (luminance(plate) + 0.05);
    QVERIFY2(contrast >= 4.5, qPrintable(QString::number(contrast)));
    const int y = paper.height() - 10 - 7;
    const QPair<int, int> run = whiteRun(paper.copy(10, 0, paper.width() - 20, paper.height()), y);
    QCOMPARE(run.second - run.first + 1, 100);
}

void TestScaleBar::writtenBarHasItsLength()
{
    WindowFixture w;
    const QImage plain = PictureRenderer::render(w.editor());
    calibrate(w, 0.5);
    const QImage with = PictureRenderer::render(w.editor(), true);
    QCOMPARE(with.size(), plain.size());
    QRect changed;
    for (int y = 0; y < plain.height(); ++y)
        for (int x = 0; x < plain.width(); ++x)
            if (with.pixel(x, y) != plain.pixel(x, y))
                changed |= QRect(x, y, 1, 1);
    // A fifth of 400 pixels are 40 mm, so the nearest round length is 50 mm: 100 pixels.
    QVERIFY2(changed.width() > 100 && changed.width() < 130, qPrintable(QDebug::toString(changed)));
    QVERIFY(changed.left() < 10 && changed.bottom() > 290);
    int longest = 0;
    for (int y = changed.top(); y <= changed.bottom(); ++y) {
        const QPair<int, int> run = whiteRun(with.copy(changed), y - changed.top());
        longest = std::max(longest, run.second - run.first + 1);
    }
    QCOMPARE(longest, 100);
    // The zoom of the view plays no part.
    w.editor().setZoom(3.0);
    QCOMPARE(PictureRenderer::render(w.editor(), true), with);
    QCOMPARE(PictureRenderer::render(w.editor()), plain);
}

void TestScaleBar::smallPictureHasNone()
{
    WindowFixture w;
    QImage small(24, 12, QImage::Format_RGB32);
    small.fill(Qt::darkGreen);
    QVERIFY(small.save(w.path(QStringLiteral("small.png"))));
    QVERIFY(w.window().openAtStart(w.path(QStringLiteral("small.png"))));
    QCOMPARE(PictureRenderer::render(w.editor(), true), small);
}

void TestScaleBar::programWritesItWhenAsked()
{
    WindowFixture w;
    calibrate(w, 0.5);
    QString error;
    const QString project = w.path(QStringLiteral("a.mtp"));
    QVERIFY2(w.bench().document().save(project, error), qPrintable(error));
    const QImage plain = PictureRenderer::render(w.editor());
    const QImage with = PictureRenderer::render(w.editor(), true);
    QVERIFY(plain != with);
    const auto written = [&](const QStringList& aOptions) {
        QProcess program;
        const QString out = w.path(QStringLiteral("out.png"));
        program.start(QStringLiteral(MEASURETOOLS_PROGRAM), aOptions + QStringList{project, out});
        if (!program.waitForFinished() || program.exitCode() != 0)
            qWarning("%s", program.readAllStandardError().constData());
        return QImage(out).convertToFormat(QImage::Format_RGB32);
    };
    QCOMPARE(written({QStringLiteral("--render")}), plain);
    QCOMPARE(written({QStringLiteral("--scale-bar"), QStringLiteral("--render")}), with);
    const CommandLine alone = CommandLine::parse({QStringLiteral("--scale-bar"), project});
    QCOMPARE(alone.theAction, CommandLine::kError);
    QVERIFY2(alone.theText.contains(QStringLiteral("--render")), qPrintable(alone.theText));
    QVERIFY(CommandLine::helpText().contains(QStringLiteral("--scale-bar")));
}

MEASURE_TEST_MAIN(TestScaleBar)
#include "TestScaleBar.moc"
