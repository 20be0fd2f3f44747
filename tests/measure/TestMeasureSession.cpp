#include "CmdCalibrate.h"
#include "CmdChangeObject.h"
#include "LmCvObject.h"
#include "LmKernelObjectDataDescr.h"
#include "SessionFixture.h"
#include "TestFont.h"

#include <QPolygon>
#include <QRandomGenerator>

#include <cmath>

/// Long sessions at random over all tools. After each step the window is compared with a plain one, and its
/// rows with the records of the kernel and the items on the canvas.
class TestMeasureSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowFollowsARandomSession_data();
    void windowFollowsARandomSession();

private:
    void step();
    void draw();
    void edit();
    void calibrate();
    void moveColumns();
    void clickRow();
    void compareFreshValues();

    int chance(int aBound) { return theRandom.bounded(aBound); }
    QPoint anyPoint() { return QPoint(10 + chance(290), 10 + chance(210)); }
    LmCvObject* anyItem();

    QRandomGenerator theRandom;
    bool theMovesBlank = false;
    SessionFixture* theFixture = nullptr;
    PlainWindow* thePlain = nullptr;
};

LmCvObject* TestMeasureSession::anyItem()
{
    const QList<LmCvObject*> items = theFixture->theEditor.cvItems();
    return items.isEmpty() ? nullptr : items[chance(int(items.size()))];
}

void TestMeasureSession::draw()
{
    SessionFixture& f = *theFixture;
    switch (chance(5)) {
    case 0:
        f.drawDistance(anyPoint(), anyPoint());
        break;
    case 1:
        f.drawAngle(anyPoint(), anyPoint(), anyPoint());
        break;
    case 2: {
        QList<int> widths;
        for (int i = chance(4); i > 0; --i)
            widths << 5 + chance(60);
        f.drawDimension(anyPoint(), 10 + chance(80), widths);
        break;
    }
    case 3:
        f.drawSquare(anyPoint(), 20 + chance(60));
        break;
    default:
        f.theProbe.create({}, anyPoint());
    }
    f.theEditor.setCurrentManipulator(nullptr);
}

// Other points for everything that has points, at the current frame if the object is animated.
void TestMeasureSession::edit()
{
    const LmCvObject* item = anyItem();
    const int idx = item ? item->theManipulator->getObjectIdx(item) : -1;
    if (idx < 0)
        return;
    LmKSKernelData& kernel = theFixture->theKernel;
    const int type = item->theManipulator->theObjectType;
    const LmKernelObjectData* record = kernel.getObject(type, idx);
    const LmKernelObjectDataDescr* descriptor = kernel.getDataDescriptor(type);
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    const LmParamKeyframeVector former = record->getKeyframesAt(kernel.theCurrentFrame);
    for (int param = 0; param < descriptor->count(); ++param) {
        if (descriptor->param(param).theType == QMetaType::QPoint)
            values.setValue(param, anyPoint());
        if (descriptor->param(param).theType != QMetaType::QPolygon)
            continue;
        QPolygon points = former[param].getValue().value<QPolygon>();
        for (QPoint& point : points)
            point += QPoint(chance(9) - 4, chance(9) - 4);
        values.setValue(param, QVariant::fromValue<QPolygon>(points));
    }
    if (record->theAnimated)
        values.setFrameNumber(kernel.theCurrentFrame);
    theFixture->theStack.push(new CmdChangeObject(type, idx, values, false));
}

void TestMeasureSession::calibrate()
{
    const QStringList units{"mm", "sq. in", "", "m"};
    const QString name = QStringLiteral("calibration %1").arg(chance(3));
    LmCalibData data;
    data.theValue = chance(4) == 0 ? 0.0 : 0.01 + theRandom.generateDouble() * std::pow(10.0, chance(6));
    data.theUnit = units[chance(4)];
    theFixture->theStack.push(new CmdCalibrate(name, data, chance(6) == 0 ? QString() : name));
}

void TestMeasureSession::moveColumns()
{
    const int count = theFixture->table().numCols() - (theMovesBlank ? 0 : 1);
    if (count > 0) {
        const int from = chance(count);
        const int to = chance(count);
        theFixture->table().horizontalHeader()->moveSection(from, to);
        if (from != to) // otherwise no heading was moved
            thePlain->moveColumn(from, to);
    }
    const QStringList types = thePlain->theStatistics.keys();
    const QString type = types[chance(int(types.size()))];
    Q3Table& calc = theFixture->calcTable(type);
    const int columns = calc.numCols() - (theMovesBlank ? 0 : 1);
    const int from = chance(columns);
    const int to = chance(columns);
    calc.horizontalHeader()->moveSection(from, to);
    thePlain->moveStatistics(type, from, to);
}

void TestMeasureSession::clickRow()
{
    Q3Table& table = theFixture->table();
    if (table.numRows() == 0)
        return;
    const int row = chance(table.numRows());
    // The left end of the row: the blank column takes its width in the next turn of the event loop only.
    const QModelIndex cell = table.model()->index(row, table.horizontalHeader()->mapToSection(0));
    table.scrollTo(cell);
    const QRect rect = table.visualRect(cell);
    const QPoint pos(rect.left() + 2, rect.center().y());
    QVERIFY(table.clipper()->rect().contains(pos));
    QTest::mouseClick(table.clipper(), Qt::LeftButton, {}, pos);
    thePlain->chooseRow(row);
    const QPair<int, int> object = thePlain->theObjects.value(thePlain->theRowKeys[row]);
    LmCvManipulator* tool = theFixture->theKernel.getCvManipulator(object.first);
    QCOMPARE(theFixture->theEditor.theCurrentTrack, tool->getCvObject(object.second));
}

void TestMeasureSession::step()
{
    SessionFixture& f = *theFixture;
    LmCvObject* item = anyItem();
    LmCvManipulator* tool = item ? item->theManipulator : nullptr;
    const int kind = chance(100);
    if (kind < 18)
        draw();
    else if (kind < 30)
        edit();
    else if (kind < 36 && tool)
        tool->showCvObject(item, chance(2) == 0);
    else if (kind < 40 && tool)
        tool->setColorCvObject(item, QColor::fromRgb(theRandom.generate()));
    else if (kind < 46 && tool)
        tool->removeCvObject(item);
    else if (kind < 53 && tool)
        tool->changeAnimationCvObject(item, chance(3) != 0, false, false);
    else if (kind < 58)
        calibrate();
    else if (kind < 64)
        f.theKernel.showFrame(chance(20), chance(3) == 0);
    else if (kind < 72)
        moveColumns();
    else if (kind < 78)
        clickRow();
    else if (kind < 82)
        f.theEditor.activateItem(chance(3) == 0 ? nullptr : item);
    else if (kind < 92)
        for (int i = chance(5); i >= 0; --i)
            f.theStack.undo();
    else
        for (int i = chance(5); i >= 0; --i)
            f.theStack.redo();
}

// After a stop and a calibration every cell shows the value under its heading.
void TestMeasureSession::compareFreshValues()
{
    LmKSKernelData& kernel = theFixture->theKernel;
    kernel.showFrame(kernel.theCurrentFrame, false);
    // One that nobody has yet; the same one once more would be no calibration.
    const QString name = QStringLiteral("fresh");
    const LmCalibData data{1.0 + theRandom.generateDouble(), QStringLiteral("mm")};
    theFixture->theStack.push(new CmdCalibrate(name, data, name));
    for (auto it = thePlain->theObjects.cbegin(); it != thePlain->theObjects.cend(); ++it) {
        LmCvManipulator* tool = kernel.getCvManipulator(it->first);
        const LmKernelObjectData* record = kernel.getObject(it->first, it->second);
        const QStringList columns = theFixture->columns();
        for (const QString& column : columns) {
            QStringList units;
            const QString text = theFixture->cell(it.key(), column);
            const QVariant value = tool->getValues({column}, record, units).first();
            QCOMPARE(text.isEmpty(), !value.isValid());
            if (value.isValid() && value.typeId() != QMetaType::Double)
                QCOMPARE(text.section(QLatin1Char(' '), 0, 0), value.toString());
            if (value.typeId() == QMetaType::Double && qAbs(value.toDouble()) < 1e9 &&
                qAbs(value.toDouble()) > 1e-3)
                QVERIFY2(qAbs(text.section(QLatin1Char(' '), 0, 0).toDouble() - value.toDouble()) < 0.0101,
                         qPrintable(text + QStringLiteral(" for ") + value.toString()));
            QCOMPARE(text.section(QLatin1Char(' '), 1), units.value(0));
        }
    }
}

void TestMeasureSession::windowFollowsARandomSession_data()
{
    QTest::addColumn<bool>("movesBlank");
    for (int i = 1; i <= 3; ++i) {
        QTest::addRow("blank column stays %d", i) << false;
        QTest::addRow("blank column is dragged too %d", i) << true;
    }
}

void TestMeasureSession::windowFollowsARandomSession()
{
    constexpr int kSteps = 500;
    QFETCH(bool, movesBlank);
    theMovesBlank = movesBlank;
    const bool hasSeed = qEnvironmentVariableIsSet("MEASURE_SEED");
    const quint32 seed = hasSeed ? quint32(qEnvironmentVariable("MEASURE_SEED").toUInt())
                                 : QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    theRandom.seed(seed);

    SessionFixture fixture;
    theFixture = &fixture;
    thePlain = fixture.thePlain.get();
    int mostRows = 0;
    for (int i = 0; i < kSteps && !QTest::currentTestFailed(); ++i) {
        step();
        fixture.compare();
        if (!movesBlank && i % 25 == 24) {
            compareFreshValues();
            fixture.compare();
        }
        if (QTest::currentTestFailed())
            qInfo("after step %d", i);
        mostRows = qMax(mostRows, fixture.table().numRows());
    }
    QVERIFY2(mostRows >= 3, "the session came to nothing");
    if (!movesBlank)
        QCOMPARE(thePlain->theRelabellings, 0);
    while (fixture.theStack.canUndo() && !QTest::currentTestFailed()) {
        fixture.theStack.undo();
        fixture.compare();
    }
    QCOMPARE(fixture.table().numRows(), 0);
}

MEASURE_TEST_MAIN(TestMeasureSession)
#include "TestMeasureSession.moc"
