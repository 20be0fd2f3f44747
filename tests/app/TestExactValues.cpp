#include "Drawn.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "MeasureWindow.h"
#include "MenuTool.h"
#include "Q3Table.h"
#include "TestFont.h"

#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>

/// Values in full precision: the tool tips of the measurement table, and what Ctrl+C copies.
class TestExactValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void toolTipTellsTheWholeNumberWithItsUnit();
    void toolTipOfACellWithoutAValueIsEmpty();
    void toolTipFollowsAMovedColumn();
    void toolTipTellsTheValueOfTheMoment();
    void selectedRowIsCopied();
    void allRowsAreCopiedIfNoneIsSelected();
    void copiedColumnsComeInTheOrderOfTheScreen();
    void severalUnitsOfANameHaveAColumnEach();
    void copiedNumbersKeepTheirPointInEveryLocale();
    void emptyTableLeavesTheClipboardAlone();
    void rowWithoutAnObjectIsNotCopied();

private:
    static QString toolTip(MeasureWindow& aFixture, int aRow, int aPosition);
    static QString copied(MeasureWindow& aFixture);
    static void add(MeasureWindow& aFixture);
};

namespace {

// 1/3 of a millimetre and sqrt(2)/3 of it, as fifteen digits.
const QString kThird = QStringLiteral("0.333333333333333");
const QString kDiagonal = QStringLiteral("0.471404520791032");

} // namespace

void TestExactValues::init()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    QToolTip::hideText();
}

QString TestExactValues::toolTip(MeasureWindow& aFixture, int aRow, int aPosition)
{
    QToolTip::showText(QPoint(0, 0), QStringLiteral("another"));
    const QPoint place = aFixture.cellPlace(aRow, aPosition);
    QWidget* cells = aFixture.table().clipper();
    QHelpEvent event(QEvent::ToolTip, place, cells->mapToGlobal(place));
    QApplication::sendEvent(cells, &event);
    // One that is taken away goes a moment later.
    const QString other = QStringLiteral("another");
    if (!QTest::qWaitFor([&] { return !QToolTip::isVisible() || QToolTip::text() != other; }))
        return other;
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

QString TestExactValues::copied(MeasureWindow& aFixture)
{
    aFixture.table().setFocus();
    aFixture.key(Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->text();
}

// Two distances of which the second is a diagonal, 300 pixels being a millimetre.
void TestExactValues::add(MeasureWindow& aFixture)
{
    aFixture.kernel().setCalibration(QStringLiteral("ruler"), LmCalibData{4.0 / 3.0, QStringLiteral("mm")});
    addDistance(aFixture.bench(), QPoint(40, 40), QPoint(140, 40));
    addDistance(aFixture.bench(), QPoint(40, 60), QPoint(140, 160));
}

void TestExactValues::toolTipTellsTheWholeNumberWithItsUnit()
{
    MeasureWindow fixture;
    add(fixture);
    QCOMPARE(fixture.table().text(1, 0), QStringLiteral("0.47 mm"));
    QCOMPARE(toolTip(fixture, 1, 0), kDiagonal + QStringLiteral(" mm"));
    QCOMPARE(toolTip(fixture, 0, 1), kThird + QStringLiteral(" mm"));
    QCOMPARE(toolTip(fixture, 1, 3), QStringLiteral("-45 \u00b0"));
}

void TestExactValues::toolTipOfACellWithoutAValueIsEmpty()
{
    MeasureWindow fixture;
    add(fixture);
    QCOMPARE(toolTip(fixture, 0, 4), QString()); // the blank column
    MenuTool tool(fixture, 0);
    tool.create(QPoint(70, 40));
    const int row = fixture.rowOf(QStringLiteral("Probe 1"));
    QCOMPARE(toolTip(fixture, row, 0), QString());
    fixture.table().verticalHeader()->setLabel(0, QStringLiteral("Distance 77"));
    QCOMPARE(toolTip(fixture, 0, 0), QString());
}

void TestExactValues::toolTipFollowsAMovedColumn()
{
    MeasureWindow fixture;
    add(fixture);
    fixture.table().horizontalHeader()->moveSection(3, 0);
    QCOMPARE(toolTip(fixture, 1, 0), QStringLiteral("-45 \u00b0"));
    QCOMPARE(toolTip(fixture, 1, 1), kDiagonal + QStringLiteral(" mm"));
}

void TestExactValues::toolTipTellsTheValueOfTheMoment()
{
    MeasureWindow fixture;
    MenuTool tool(fixture, 0);
    tool.create(QPoint(70, 40));
    tool.record(1)->storeValue(ProbeTool::kPos, 0, QPoint(80, 40)); // nobody is told
    QCOMPARE(fixture.table().text(0, 0), QStringLiteral("7 mm"));
    QCOMPARE(toolTip(fixture, 0, 0), QStringLiteral("8 mm"));
}

void TestExactValues::selectedRowIsCopied()
{
    MeasureWindow fixture;
    add(fixture);
    fixture.table().selectRow(1);
    QCOMPARE(copied(fixture), QStringLiteral("Object name\tDistance [mm]\tDX [mm]\tDY [mm]\tAngle [\u00b0]\n"
                                             "Distance 2\t%1\t%2\t%2\t-45\n")
                                  .arg(kDiagonal, kThird));
}

void TestExactValues::allRowsAreCopiedIfNoneIsSelected()
{
    MeasureWindow fixture;
    add(fixture);
    fixture.table().clearSelection();
    QCOMPARE(copied(fixture), QStringLiteral("Object name\tDistance [mm]\tDX [mm]\tDY [mm]\tAngle [\u00b0]\n"
                                             "Distance 1\t%2\t%2\t0\t0\n"
                                             "Distance 2\t%1\t%2\t%2\t-45\n")
                                  .arg(kDiagonal, kThird));
}

void TestExactValues::copiedColumnsComeInTheOrderOfTheScreen()
{
    MeasureWindow fixture;
    add(fixture);
    fixture.table().horizontalHeader()->moveSection(3, 0);
    fixture.table().selectRow(1);
    QCOMPARE(copied(fixture), QStringLiteral("Object name\tAngle [\u00b0]\tDistance [mm]\tDX [mm]\tDY [mm]\n"
                                             "Distance 2\t-45\t%1\t%2\t%2\n")
                                  .arg(kDiagonal, kThird));
}

void TestExactValues::severalUnitsOfANameHaveAColumnEach()
{
    class OwnUnit : public MenuTool
    {
    public:
        using MenuTool::getValues;
        using MenuTool::MenuTool;
        QLinkedList<QVariant> getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                        QStringList& aUnits) override
        {
            const QLinkedList<QVariant> values = MenuTool::getValues(aNames, aData, aUnits);
            const QPoint pos = aData->getKeyframe(kPos, 0).getValue().toPoint();
            for (QString& unit : aUnits)
                if (!unit.isEmpty() && pos.x() > 50)
                    unit = QStringLiteral("in");
            return values;
        }
    };
    MeasureWindow fixture;
    OwnUnit tool(fixture, 0);
    tool.create(QPoint(40, 40));
    tool.create(QPoint(60, 40));
    fixture.table().clearSelection();
    QCOMPARE(copied(fixture), QStringLiteral("Object name\tX [mm]\tX [in]\tCount [mm]\tCount [in]\n"
                                             "Probe 1\t4\t\t40\t\n"
                                             "Probe 2\t\t6\t\t60\n"));
}

void TestExactValues::copiedNumbersKeepTheirPointInEveryLocale()
{
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    MeasureWindow fixture;
    add(fixture);
    fixture.table().selectRow(1);
    const QString text = copied(fixture);
    const QString shown = toolTip(fixture, 1, 0);
    QLocale::setDefault(QLocale::c());
    QVERIFY2(text.contains(kDiagonal), qPrintable(text));
    QCOMPARE(shown, kDiagonal + QStringLiteral(" mm"));
}

void TestExactValues::emptyTableLeavesTheClipboardAlone()
{
    MeasureWindow fixture;
    QCOMPARE(copied(fixture), QStringLiteral("before"));
}

void TestExactValues::rowWithoutAnObjectIsNotCopied()
{
    MeasureWindow fixture;
    add(fixture);
    fixture.table().clearSelection();
    fixture.table().verticalHeader()->setLabel(0, QStringLiteral("Distance 77"));
    QCOMPARE(copied(fixture).count(QLatin1Char('\n')), 2);
    QVERIFY(copied(fixture).contains(QStringLiteral("\nDistance 2\t")));
}

MEASURE_TEST_MAIN(TestExactValues)
#include "TestExactValues.moc"
