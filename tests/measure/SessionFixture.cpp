#include "SessionFixture.h"

#include "LmCvEditor.h"
#include "LmCvObject.h"

#include <QtTest>

SessionFixture::SessionFixture()
{
    theProbe.theIsCounting = true;
    theProbe.theRecalc = true;
    load({&theRegion, &theDistance, &theDimension, &theAngle, &theProbe});
    showWindow();
    thePlain = std::make_unique<PlainWindow>(*theMeasure);
}

SessionFixture::~SessionFixture()
{
    // While all tools are there.
    theStack.clear();
    thePlain.reset();
}

void SessionFixture::compare()
{
    compareTable();
    compareStatistics();
    compareRecords();
}

void SessionFixture::compareTable()
{
    const Q3Table& shown = table();
    const LmCvManipMeasure& window = *theMeasure;
    QCOMPARE(columns(), thePlain->labels());
    QCOMPARE(window.theColumnNames, thePlain->theNames);
    QCOMPARE(rowKeys(), thePlain->theRowKeys);
    QCOMPARE(window.theRowKeys, thePlain->theObjects);
    for (int position = 0; position < shown.numCols(); ++position) {
        const PlainWindow::Column& column = thePlain->theColumns[position];
        for (int row = 0; row < shown.numRows(); ++row)
            QCOMPARE(shown.text(row, position), column.theCells[row]);
        const int section = shown.horizontalHeader()->mapToSection(position);
        QCOMPARE(shown.horizontalHeader()->sectionResizeMode(section) == QHeaderView::Stretch,
                 column.theStretches);
    }
    QCOMPARE(selectedRow(), thePlain->theSelectedRow);
    QCOMPARE(currentTab(), thePlain->theTab);
}

void SessionFixture::compareStatistics()
{
    for (auto it = thePlain->theStatistics.cbegin(); it != thePlain->theStatistics.cend(); ++it) {
        const Q3Table& calc = calcTable(it.key());
        QCOMPARE(calc.numCols(), int(it->size()));
        for (int position = 0; position < calc.numCols(); ++position) {
            QCOMPARE(MeasureFixture::columns(calc)[position], it->at(position).theLabel);
            for (int row = 0; row < 4; ++row)
                QCOMPARE(calc.text(row, position), it->at(position).theCells[row]);
        }
    }
}

void SessionFixture::compareRecords()
{
    int records = 0;
    const auto& objects = theKernel.theObjects;
    for (auto type = objects.cbegin(); type != objects.cend(); ++type) {
        LmCvManipulator* tool = theKernel.getCvManipulator(type.key());
        QCOMPARE(tool->theCvObjects.keys(), type->keys());
        for (auto it = type->cbegin(); it != type->cend(); ++it) {
            ++records;
            const QString key = tool->getObjectName(it.key()) + QLatin1Char(' ') + QString::number(it.key());
            const int row = thePlain->findRow(key);
            QVERIFY(row >= 0);
            QCOMPARE(theMeasure->findRowInTable(type.key(), it.key(), tool), row);
            QCOMPARE(theMeasure->findRowInTable(tool->getCvObject(it.key())), row);
        }
    }
    QCOMPARE(table().numRows(), records);
    QCOMPARE(int(theEditor.cvItems().size()), records);
}
