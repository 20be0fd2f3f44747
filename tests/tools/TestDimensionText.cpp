#include "DimensionFixture.h"
#include "TestFont.h"

#include <QSignalSpy>

#include <memory>

/// What is written about a dimension: the value on its label and the hint for the person at the mouse.
class TestDimensionText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void labelNamesWhatItMeasures_data();
    void labelNamesWhatItMeasures();
    void labelLiesAlongTheSegmentThatItShows();
    void heightAndAverageAreBlankDuringADrag_data();
    void heightAndAverageAreBlankDuringADrag();
    void widthIsLiveDuringADrag();
    void labelOfAnItemWithoutRecordStays();
    void labelFollowsTheCalibration();
    void hintTellsWhatTheNextDragDoes();
    void hintFollowsUndoAndTheCurrentItem();
    void hintIsToldOnlyWhenItChanges();

private:
    QString hint() const { return theFixture->theTool.hint(); }
    bool hints(const char* aWords) const { return hint().contains(QLatin1String(aWords)); }

    std::unique_ptr<DimensionFixture> theFixture;
};

// A height of 90 from (20, 20) down, widths of 30 and 50 from (60, 60) and (60, 90) to the right.
void TestDimensionText::init()
{
    theFixture = std::make_unique<DimensionFixture>();
    theFixture->drawLevel(90, {30, 50});
    theFixture->calibrate(160.0, QStringLiteral("mm")); // 2.5 pixels each
}

void TestDimensionText::labelNamesWhatItMeasures_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("height") << QStringLiteral("Height") << QStringLiteral("H: 36.00mm");
    QTest::newRow("width 1") << QStringLiteral("Width1") << QStringLiteral("W1: 12.00mm");
    QTest::newRow("width 2") << QStringLiteral("Width2") << QStringLiteral("W2: 20.00mm");
    QTest::newRow("width that isn't there") << QStringLiteral("Width3") << QStringLiteral("W3: 0.00mm");
    QTest::newRow("average") << QStringLiteral("Avg. Width") << QStringLiteral("16.00mm");
    QTest::newRow("unknown") << QStringLiteral("Area") << QString();
    // Only the last character may differ from the words.
    QTest::newRow("height with a digit") << QStringLiteral("Height2") << QStringLiteral("H2: 20.00mm");
    QTest::newRow("two digits") << QStringLiteral("Width12") << QStringLiteral("20.00mm");
    QTest::newRow("another word") << QStringLiteral("EP1") << QStringLiteral("12.00mm");
    QTest::newRow("no digit at the end") << QStringLiteral("Width") << QString();
}

void TestDimensionText::labelNamesWhatItMeasures()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    DimensionFixture& f = *theFixture;
    f.show(1, name);
    QCOMPARE(f.shown(1), text);
    QCOMPARE(f.item(1)->labelText(),
             text.isEmpty() ? QStringLiteral(" 1 ") : QStringLiteral(" 1 <%1> ").arg(text));
    f.theStack.undo();
    QCOMPARE(f.shown(1), QString());
}

void TestDimensionText::labelLiesAlongTheSegmentThatItShows()
{
    DimensionFixture& f = *theFixture;
    const auto centre = [&f](const QString& aName) {
        f.show(1, aName);
        return f.item(1)->theLabelRect.center().x();
    };
    QCOMPARE(centre(QStringLiteral("Height")), 20);
    QCOMPARE(centre(QStringLiteral("Width1")), 75);
    QCOMPARE(centre(QStringLiteral("Width2")), 85);
    QCOMPARE(centre(QStringLiteral("Width3")), 20);     // there is none
    QCOMPARE(centre(QStringLiteral("Avg. Width")), 20); // 16.00mm names a segment 6
    f.calibrate(128.0, QStringLiteral("mm"));           // 40 / 3.125 = 12.80mm names segment 2
    QCOMPARE(f.shown(1), QStringLiteral("12.80mm"));
    QCOMPARE(f.item(1)->theLabelRect.center().x(), 85);
}

void TestDimensionText::heightAndAverageAreBlankDuringADrag_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("height") << QStringLiteral("Height") << QStringLiteral("H: 36.00mm")
                            << QStringLiteral("H: 36.00mm");
    QTest::newRow("average") << QStringLiteral("Avg. Width") << QStringLiteral("16.00mm")
                             << QStringLiteral("18.00mm");
}

void TestDimensionText::heightAndAverageAreBlankDuringADrag()
{
    QFETCH(QString, name);
    QFETCH(QString, before);
    QFETCH(QString, after);
    DimensionFixture& f = *theFixture;
    f.show(1, name);
    QCOMPARE(f.shown(1), before);
    f.press(QPoint(114, 90)); // the handle of width 2
    f.move(QPoint(120, 90));
    QCOMPARE(f.shown(1), QString());
    f.release(QPoint(120, 90)); // 30 and 60: 45 on the average
    QCOMPARE(f.shown(1), after);
}

void TestDimensionText::widthIsLiveDuringADrag()
{
    DimensionFixture& f = *theFixture;
    f.show(1, QStringLiteral("Width2"));
    f.press(QPoint(114, 90));
    f.move(QPoint(120, 90));
    QCOMPARE(f.shown(1), QStringLiteral("W2: 24.00mm"));
    QCOMPARE(f.item(1)->theLabelRect.center().x(), 90);
    f.release(QPoint(120, 90));
    QCOMPARE(f.shown(1), QStringLiteral("W2: 24.00mm"));
}

void TestDimensionText::labelOfAnItemWithoutRecordStays()
{
    DimensionFixture& f = *theFixture;
    LmCvDimension stranger(&f.theTool, f.theEditor.canvas(), QStringLiteral("9"), &f.theEditor);
    stranger.setDisplayValue(QStringLiteral("W1: kept"));
    f.theTool.updateDisplayValue(&stranger, QStringLiteral("Width1"), true, true);
    QCOMPARE(stranger.theDisplayValue, QStringLiteral("W1: kept"));
    stranger.setPoints(Q3PointArray(QList<QPoint>{{0, 0}, {0, 9}, {0, 0}, {25, 0}}));
    f.theTool.updateDisplayValue(&stranger, QStringLiteral("Width1"), false, true);
    QCOMPARE(stranger.theDisplayValue, QStringLiteral("W1: 10.00mm"));
}

void TestDimensionText::labelFollowsTheCalibration()
{
    DimensionFixture& f = *theFixture;
    f.show(1, QStringLiteral("Height"));
    f.calibrate(400.0, QStringLiteral("cm"));
    QCOMPARE(f.shown(1), QStringLiteral("H: 90.00cm"));
    QCOMPARE(f.item(1)->theStep, 1.0);
}

void TestDimensionText::hintTellsWhatTheNextDragDoes()
{
    DimensionFixture& f = *theFixture;
    QVERIFY2(hints("Alt for width 3 of dimension 1"), qPrintable(hint()));
    f.press(QPoint(200, 150), Qt::AltModifier);
    QVERIFY2(hints("end width 3"), qPrintable(hint()));
    QVERIFY2(hints("Esc"), qPrintable(hint()));
    f.move(QPoint(250, 150), Qt::AltModifier);
    f.release(QPoint(250, 150), Qt::AltModifier);
    QVERIFY2(hints("dimension 1 has all its widths"), qPrintable(hint()));
    f.press(QPoint(200, 20));
    QVERIFY2(hints("end the height"), qPrintable(hint()));
    f.move(QPoint(200, 90));
    f.release(QPoint(200, 90));
    QVERIFY2(hints("Alt for width 1 of dimension 2"), qPrintable(hint()));
    f.theEditor.activateItem(nullptr);
    QVERIFY2(hint().endsWith(QStringLiteral("height of a new dimension.")), qPrintable(hint()));
}

void TestDimensionText::hintFollowsUndoAndTheCurrentItem()
{
    DimensionFixture& f = *theFixture;
    const QSignalSpy told(&f.theTool, &LmCvManipulator::signalHintChanged);
    f.theStack.undo();
    QVERIFY2(hints("Alt for width 2 of dimension 1"), qPrintable(hint()));
    QCOMPARE(told.count(), 1);
    f.theStack.redo();
    QVERIFY2(hints("Alt for width 3 of dimension 1"), qPrintable(hint()));
    QCOMPARE(told.count(), 2);
    f.theStack.setIndex(0);
    QVERIFY2(hint().endsWith(QStringLiteral("height of a new dimension.")), qPrintable(hint()));
    QVERIFY(told.count() > 2);
}

void TestDimensionText::hintIsToldOnlyWhenItChanges()
{
    DimensionFixture& f = *theFixture;
    const QSignalSpy told(&f.theTool, &LmCvManipulator::signalHintChanged);
    f.press(QPoint(200, 150), Qt::AltModifier);
    QCOMPARE(told.count(), 1);
    f.move(QPoint(250, 150), Qt::AltModifier);
    f.move(QPoint(260, 150), Qt::AltModifier);
    QCOMPARE(told.count(), 1);
    f.key(Qt::Key_Escape);
    QCOMPARE(told.count(), 2);
    f.theKernel.showFrame(3, false);
    f.theTool.recreateCanvasObjects(f.theKernel.origin(), 0, true);
    QCOMPARE(told.count(), 2);
}

MEASURE_TEST_MAIN(TestDimensionText)
#include "TestDimensionText.moc"
