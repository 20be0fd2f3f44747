#include "MeasureFixture.h"

#include <QApplication>
#include <QMouseEvent>
#include <QToolButton>
#include <QtTest>

MeasureFixture::MeasureFixture() : theMeasure(new OpenMeasure(&theWindow)) {}

MeasureFixture::~MeasureFixture()
{
    // Commands that are out of the kernel own their records; the window's tool hears of nothing any more.
    theStack.clear();
    theEditor.setCurrentManipulator(nullptr);
    delete theMeasure;
}

void MeasureFixture::loadSilently(const QList<LmCvManipulator*>& aTools)
{
    for (LmCvManipulator* tool : aTools)
        start(*tool);
    theMeasure->setUndoStack(&theStack);
    theMeasure->setCvEditor(&theEditor);
    theMeasure->initManipulator(&theToolBar);
    theEditor.setCurrentManipulator(nullptr);
}

void MeasureFixture::load(const QList<LmCvManipulator*>& aTools)
{
    loadSilently(aTools);
    theKernel.announceManipulatorsLoaded();
}

void MeasureFixture::showWindow()
{
    theWindow.resize(900, 500);
    theWindow.show();
    QVERIFY(QTest::qWaitForWindowExposed(&theWindow));
}

void MeasureFixture::hold(LmCvManipulator& aTool)
{
    aTool.theToolButton->setChecked(true);
    QCOMPARE(theEditor.theCurrentManipulator, &aTool);
}

void MeasureFixture::drawDistance(const QPoint& aFrom, const QPoint& aTo)
{
    hold(theDistance);
    // With Ctrl a new one begins also on top of another.
    drag(aFrom, aTo, Qt::ControlModifier);
}

void MeasureFixture::drawAngle(const QPoint& aVertex, const QPoint& aEnd1, const QPoint& aEnd2)
{
    hold(theAngle);
    drag(aVertex, aEnd2, Qt::ControlModifier);
    hover(aEnd1);
    click(aEnd1);
}

void MeasureFixture::drawDimension(const QPoint& aTop, int aHeight, const QList<int>& aWidths)
{
    hold(theDimension);
    drag(aTop, aTop + QPoint(0, aHeight), Qt::ControlModifier);
    QPoint from = aTop + QPoint(20, 10);
    for (const int width : aWidths) {
        drag(from, from + QPoint(width, 0), Qt::AltModifier);
        from += QPoint(0, 15);
    }
}

void MeasureFixture::drawSquare(const QPoint& aCorner, int aSide)
{
    hold(theRegion);
    const QPoint right(aSide, 0);
    const QPoint down(0, aSide);
    for (const QPoint& point : {aCorner, aCorner + right, aCorner + right + down, aCorner + down, aCorner})
        click(point);
}

void MeasureFixture::hover(const QPoint& aCanvasPoint)
{
    const QPoint pos = viewportPos(aCanvasPoint);
    QMouseEvent event(QEvent::MouseMove, pos, theEditor.viewport()->mapToGlobal(pos), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(theEditor.viewport(), &event);
}

Q3Table& MeasureFixture::calcTable(const QString& aTypeName) const
{
    Q3Table* table = theMeasure->theCalcTables.value(aTypeName);
    if (!table)
        qFatal("there are no statistics of %s", qPrintable(aTypeName));
    return *table;
}

QStringList MeasureFixture::columns(const Q3Table& aTable)
{
    QStringList labels;
    for (int position = 0; position < aTable.numCols(); ++position)
        labels << aTable.horizontalHeader()->label(aTable.horizontalHeader()->mapToSection(position));
    return labels;
}

QStringList MeasureFixture::row(const Q3Table& aTable, int aRow)
{
    QStringList texts;
    for (int position = 0; position < aTable.numCols(); ++position)
        texts << aTable.text(aRow, position);
    return texts;
}

QStringList MeasureFixture::rowKeys() const
{
    QStringList labels;
    for (int row = 0; row < table().numRows(); ++row)
        labels << table().verticalHeader()->label(row);
    return labels;
}

int MeasureFixture::positionOf(const Q3Table& aTable, const QString& aLabel)
{
    const int position = int(columns(aTable).indexOf(aLabel));
    if (position < 0)
        qFatal("there is no column \"%s\"", qPrintable(aLabel));
    return position;
}

QString MeasureFixture::cell(const QString& aRowKey, const QString& aColumn) const
{
    const int row = int(rowKeys().indexOf(aRowKey));
    if (row < 0)
        qFatal("there is no row \"%s\"", qPrintable(aRowKey));
    return table().text(row, positionOf(table(), aColumn));
}

QStringList MeasureFixture::statistics(const QString& aTypeName, const QString& aColumn) const
{
    const Q3Table& calc = calcTable(aTypeName);
    QStringList texts;
    for (int row = 0; row < calc.numRows(); ++row)
        texts << calc.text(row, positionOf(calc, aColumn));
    return texts;
}

void MeasureFixture::moveColumn(Q3Table& aTable, const QString& aLabel, int aPosition)
{
    aTable.horizontalHeader()->moveSection(positionOf(aTable, aLabel), aPosition);
}

int MeasureFixture::selectedRow() const
{
    const QModelIndexList rows = table().selectionModel()->selectedRows();
    if (rows.size() > 1)
        qFatal("%d rows are selected", int(rows.size()));
    return rows.isEmpty() ? -1 : rows.first().row();
}
