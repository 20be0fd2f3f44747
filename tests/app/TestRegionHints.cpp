#include "HandStrokes.h"
#include "LmKSKernelData.h"
#include "RegionWindow.h"
#include "TestFont.h"

#include <QAction>
#include <QMenu>
#include <QToolButton>

/// What the status bar says while regions are drawn.
class TestRegionHints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachStateHasItsHint();
    void hintFollowsEveryWayOutOfAnOutline_data();
    void hintFollowsEveryWayOutOfAnOutline();
    void hintFollowsAStrokeThatClosesItself();
    void smoothedStrokeIsReported();
    void reportIsInTheCalibratedUnit();
    void plainStrokeIsNotReported();
    void buttonsTellWhatTheyAre();
};

void TestRegionHints::eachStateHasItsHint()
{
    RegionWindow f;
    const QString arrow = f.hint();
    f.pickPen();
    const QString pen = f.hint();
    QVERIFY2(pen.contains(QStringLiteral("first node")), qPrintable(pen));
    f.press(QPoint(60, 60));
    const QString penDrawing = f.hint();
    f.release(QPoint(60, 60));
    QCOMPARE(f.hint(), penDrawing);
    QVERIFY2(penDrawing.contains(QStringLiteral("close")), qPrintable(penDrawing));
    f.pickPencil();
    const QString pencil = f.hint();
    QVERIFY2(pencil.contains(QStringLiteral("held down")), qPrintable(pencil));
    f.stroke({{100, 100}, {120, 110}, {150, 150}});
    const QString pencilDrawing = f.hint();
    QVERIFY2(pencilDrawing.contains(QStringLiteral("right click closes")), qPrintable(pencilDrawing));
    f.key(Qt::Key_Escape);
    QCOMPARE(f.hint(), pencil);
    f.key(Qt::Key_Escape);
    QCOMPARE(f.hint(), arrow);
    QCOMPARE((QSet<QString>{arrow, pen, penDrawing, pencil, pencilDrawing}.size()), 5);
}

void TestRegionHints::hintFollowsEveryWayOutOfAnOutline_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"close", "undo", "delete", "other tool and back", "Esc"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void TestRegionHints::hintFollowsEveryWayOutOfAnOutline()
{
    QFETCH(QString, way);
    RegionWindow f;
    f.pickPen();
    const QString before = f.hint();
    f.clickAll({{60, 60}, {200, 60}});
    QVERIFY(f.hint() != before);
    if (way == QLatin1String("close")) {
        f.click(QPoint(60, 60));
    } else if (way == QLatin1String("undo")) {
        while (f.stack().canUndo())
            f.key(Qt::Key_Z, Qt::ControlModifier);
    } else if (way == QLatin1String("delete")) {
        f.key(Qt::Key_Delete); // the last node, which is selected,
        f.key(Qt::Key_Delete); // and the object
    } else if (way == QLatin1String("Esc")) {
        f.key(Qt::Key_Escape);
    } else {
        f.pickDistance();
        f.pickPen();
    }
    QCOMPARE(f.hint(), before);
}

void TestRegionHints::hintFollowsAStrokeThatClosesItself()
{
    RegionWindow f;
    f.pickPencil();
    const QString before = f.hint();
    f.press(QPoint(60, 60));
    for (const QPoint& point : QList<QPoint>{{100, 60}, {100, 100}, {60, 100}}) {
        f.move(point);
        QVERIFY(f.hint() != before);
    }
    f.move(QPoint(61, 61));
    QCOMPARE(f.hint(), before);
    f.release(QPoint(61, 61));
    QVERIFY(f.isClosed(1));
}

void TestRegionHints::smoothedStrokeIsReported()
{
    RegionWindow f;
    f.openPicture(QSize(640, 520));
    f.pickPencil(true, false);
    QCOMPARE(f.report(), QString());
    f.stroke(HandStrokes::kWave);
    const QString report = f.report();
    static const QRegularExpression form(
        QStringLiteral("^Smoothed: nodes (\\d+) \u2192 (\\d+), largest deviation (\\d+\\.\\d\\d) px$"));
    const QRegularExpressionMatch match = form.match(report);
    QVERIFY2(match.hasMatch(), qPrintable(report));
    QCOMPARE(match.captured(2).toInt(), f.anchors(1).size());
    QVERIFY2(match.captured(1).toInt() > 3 * match.captured(2).toInt(), qPrintable(report));
    QVERIFY(match.captured(3).toDouble() < 3.0);
    // The hint is still there behind it.
    QVERIFY(f.hint().contains(QStringLiteral("right click closes")));
}

void TestRegionHints::reportIsInTheCalibratedUnit()
{
    RegionWindow f;
    f.openPicture(QSize(640, 520));
    f.kernel().setCalibration(QStringLiteral("lens"), LmCalibData{10.0, QStringLiteral("mm")});
    f.kernel().setCurrentCalibration(QStringLiteral("lens"));
    f.pickPencil(true, false);
    f.stroke(HandStrokes::kWave);
    QVERIFY2(f.report().endsWith(QStringLiteral(" mm")), qPrintable(f.report()));
}

void TestRegionHints::plainStrokeIsNotReported()
{
    RegionWindow f;
    f.openPicture(QSize(640, 520));
    f.pickPencil();
    f.stroke(HandStrokes::kWave);
    QCOMPARE(f.report(), QString());
    QVERIFY(f.anchors(1).size() > HandStrokes::kWave.size() / 2);
}

void TestRegionHints::buttonsTellWhatTheyAre()
{
    RegionWindow f;
    QStringList texts;
    for (const QToolButton* button : {f.penButton(), f.pencilButton()}) {
        QVERIFY(!button->accessibleName().isEmpty());
        QVERIFY(!button->icon().isNull());
        const QAction* entry = WindowFixture::find(*f.actions().theToolsMenu, button->toolTip());
        QVERIFY(entry && !entry->statusTip().isEmpty());
        QVERIFY(!entry->shortcut().isEmpty());
        texts << entry->statusTip() << entry->shortcut().toString();
    }
    QCOMPARE(texts.removeDuplicates(), 0);
}

MEASURE_TEST_MAIN(TestRegionHints)
#include "TestRegionHints.moc"
