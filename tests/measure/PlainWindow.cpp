#include "PlainWindow.h"

#include "LmCvEditor.h"
#include "LmCvManipMeasure.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKsMeasureWidget.h"

#include <cmath>

namespace {

const QString kBlank = QStringLiteral(" ");
constexpr int kFollowsFrames = 128;
constexpr int kMeasured = 512;

} // namespace

PlainWindow::PlainWindow(const LmCvManipMeasure& aWindow) : theWindow(aWindow)
{
    for (auto it = aWindow.theCalcTables.cbegin(); it != aWindow.theCalcTables.cend(); ++it) {
        Columns& columns = theStatistics[it.key()];
        for (int section = 0; section < it.value()->numCols(); ++section)
            columns << Column{it.value()->horizontalHeader()->label(section), false, {"", "", "", ""}};
    }
    const QTabWidget* tabs = aWindow.theMeasureWidget->theTabType;
    theTab = tabs->tabText(tabs->currentIndex());

    using Kernel = LmKSKernelData;
    const Kernel* kernel = Kernel::getInstance();
    connect(kernel, &Kernel::signalObjectCreated, this, &PlainWindow::created);
    connect(kernel, &Kernel::signalObjectChanged, this, &PlainWindow::changed);
    connect(kernel, &Kernel::signalObjectBeforeRemove, this, &PlainWindow::beforeRemove);
    connect(kernel, &Kernel::signalObjectRemoved, this, &PlainWindow::removed);
    connect(kernel, &Kernel::signalAfterCalibrationChanged, this,
            [this] { rewrite(kMeasured, [](const LmKernelObjectData&) { return true; }); });
    connect(kernel, &Kernel::signalFrameReadyStop, this, [this] {
        rewrite(kMeasured | kFollowsFrames,
                [](const LmKernelObjectData& aData) { return aData.theAnimated; });
    });
    connect(aWindow.theCvEditor, &LmCvEditor::signalCurrentObjectChanged, this, &PlainWindow::canvasCurrent);
}

LmCvManipulator* PlainWindow::measuringTool(int aType) const
{
    LmCvManipulator* tool = LmKSKernelData::getInstance()->getCvManipulator(aType);
    return tool && (tool->getCvObjectFlags(nullptr) & kMeasured) ? tool : nullptr;
}

int PlainWindow::findRow(LmCvManipulator* aTool, int aIdx) const
{
    const QString name = aTool->getObjectName(aIdx);
    return name.isEmpty() ? -1 : findRow(name + QLatin1Char(' ') + QString::number(aIdx));
}

QString PlainWindow::cut(const QString& aText)
{
    for (int i = 0; i < aText.size(); ++i)
        if (aText[i] == QLatin1Char('.'))
            return aText.left(i + 3);
    return aText;
}

QString PlainWindow::valueText(const QVariant& aValue, const QString& aUnit)
{
    QString text = aValue.toString();
    if (aValue.typeId() == QMetaType::Double)
        text = QString::number(aValue.toDouble(), 'g', 15);
    text = cut(text);
    if (!aUnit.isEmpty())
        text += QLatin1Char(' ') + aUnit;
    return text;
}

void PlainWindow::writeRow(int aRow, LmCvManipulator* aTool, const LmKernelObjectData* aData)
{
    QStringList units;
    const QLinkedList<QVariant> values = aTool->getValues(theNames, aData, units);
    for (int i = 0; i < values.size() && i < theColumns.size() && aRow >= 0; ++i)
        theColumns[i].theCells[aRow] = valueText(*std::next(values.begin(), i), units.value(i));
}

void PlainWindow::writeAllOf(int aType, LmCvManipulator* aTool)
{
    const QMap<int, LmKernelObjectData*> records = LmKSKernelData::getInstance()->getObjectsOfType(aType);
    for (auto it = records.cbegin(); it != records.cend(); ++it)
        if (findRow(aTool, it.key()) >= 0)
            writeRow(findRow(aTool, it.key()), aTool, it.value());
}

void PlainWindow::setColumnCount(int aCount)
{
    while (theColumns.size() > aCount)
        theColumns.removeLast();
    while (theColumns.size() < aCount)
        theColumns << Column{QString(), false, QStringList(QList<QString>(theRowKeys.size()))};
}

void PlainWindow::created(int aType, int aIdx, const LmKernelObjectData* aData)
{
    LmCvManipulator* tool = measuringTool(aType);
    if (!tool)
        return;
    if (!theNames.isEmpty() && theNames.last() == kBlank) {
        const int n = int(theNames.size());
        theColumns.removeAt(n - 1);
        setColumnCount(n - 1);
        theNames.removeAll(kBlank);
    }
    for (const QString& name : qAsConst(tool->theValueNames))
        if (!name.isEmpty() && !theNames.contains(name))
            theNames << name;
    theNames << kBlank;
    setColumnCount(int(theNames.size()));
    for (int i = 0; i < theNames.size(); ++i) {
        theRelabellings += !theColumns[i].theLabel.isNull() && theColumns[i].theLabel != theNames[i];
        theColumns[i].theLabel = theNames[i];
    }
    theColumns.last().theStretches = true;

    const QString name = tool->getObjectName(aIdx);
    if (name.isEmpty())
        return;
    const QString key = name + QLatin1Char(' ') + QString::number(aIdx);
    theRowKeys << key;
    for (Column& column : theColumns)
        column.theCells << QString();
    theObjects[key] = {aType, aIdx};
    if (tool->allObjectsNeedRecalc())
        writeAllOf(aType, tool);
    writeRow(int(theRowKeys.size()) - 1, tool, aData);
    theSelectedRow = int(theRowKeys.size()) - 1;
    refresh(name);
    show(name);
}

void PlainWindow::changed(int aType, int aIdx, const LmKernelObjectData* aData)
{
    LmCvManipulator* tool = measuringTool(aType);
    if (!tool || findRow(tool, aIdx) < 0)
        return;
    if (tool->allObjectsNeedRecalc())
        writeAllOf(aType, tool);
    else
        writeRow(findRow(tool, aIdx), tool, aData);
    refresh(tool->getObjectName(aIdx));
}

void PlainWindow::beforeRemove(int aType, int aIdx)
{
    LmCvManipulator* tool = measuringTool(aType);
    const int row = tool ? findRow(tool, aIdx) : -1;
    if (row < 0)
        return;
    theObjects.remove(theRowKeys[row]);
    theRowKeys.removeAt(row);
    for (Column& column : theColumns)
        column.theCells.removeAt(row);
    refresh(tool->getObjectName(aIdx));
    theSelectedRow = -1;
    if (!theRowKeys.isEmpty())
        chooseRow(qMin(row, int(theRowKeys.size()) - 1));
}

void PlainWindow::removed(int aType, int)
{
    LmCvManipulator* tool = measuringTool(aType);
    if (!tool)
        return;
    if (tool->allObjectsNeedRecalc())
        writeAllOf(aType, tool);
    removeEmptyColumns();
}

void PlainWindow::removeEmptyColumns()
{
    for (int i = int(theColumns.size()) - 1; i >= 0; --i) {
        const QString label = theColumns[i].theLabel;
        if (label == kBlank || !theColumns[i].theCells.join(QString()).isEmpty())
            continue;
        theNames.removeAll(label);
        theColumns.removeAt(i);
    }
}

void PlainWindow::rewrite(int aFlags, const std::function<bool(const LmKernelObjectData&)>& aIsMeant)
{
    const auto& objects = LmKSKernelData::getInstance()->theObjects;
    for (auto type = objects.cbegin(); type != objects.cend(); ++type) {
        LmCvManipulator* tool = measuringTool(type.key());
        if (!tool || (tool->getCvObjectFlags(nullptr) & aFlags) != aFlags)
            continue;
        for (auto it = type->cbegin(); it != type->cend(); ++it)
            if (aIsMeant(**it))
                writeRow(findRow(tool, it.key()), tool, it.value());
        const QStringList names = tool->getObjectTypeNames();
        for (const QString& name : names)
            refresh(name);
    }
}

void PlainWindow::chooseRow(int aRow)
{
    theSelectedRow = aRow;
    const QPair<int, int> object = theObjects.value(theRowKeys[aRow]);
    LmCvManipulator* tool = LmKSKernelData::getInstance()->getCvManipulator(object.first);
    if (LmCvObject* item = tool ? tool->getCvObject(object.second) : nullptr)
        show(item->theManipulator->getObjectName(item));
}

void PlainWindow::canvasCurrent(LmCvObject* aItem)
{
    if (theWindow.theSelfChange)
        return;
    theSelectedRow = -1;
    const int idx = aItem && aItem->theManipulator ? aItem->theManipulator->getObjectIdx(aItem) : -1;
    if (idx < 0)
        return;
    theSelectedRow = findRow(aItem->theManipulator, idx);
    if (theSelectedRow >= 0)
        show(aItem->theManipulator->getObjectName(aItem));
}

void PlainWindow::show(const QString& aTypeName)
{
    if (theStatistics.contains(aTypeName))
        theTab = aTypeName;
}

void PlainWindow::moveColumn(int aFrom, int aTo)
{
    theColumns.move(aFrom, aTo);
    theNames = labels();
}

void PlainWindow::moveStatistics(const QString& aTypeName, int aFrom, int aTo)
{
    theStatistics[aTypeName].move(aFrom, aTo);
}

QStringList PlainWindow::labels() const
{
    QStringList all;
    for (const Column& column : theColumns)
        all << column.theLabel;
    return all;
}

void PlainWindow::refresh(const QString& aTypeName)
{
    if (!theStatistics.contains(aTypeName))
        return;
    QMap<QString, QList<double>> numbers;
    QMap<QString, QString> units;
    for (int row = 0; row < theRowKeys.size(); ++row) {
        if (theRowKeys[row].section(QLatin1Char(' '), 0, 0) != aTypeName)
            continue;
        for (int i = 0; i < theColumns.size() - 1; ++i) {
            const QString text = theColumns[i].theCells[row];
            if (text.isEmpty())
                continue;
            bool isNumber = false;
            const double number = text.section(QLatin1Char(' '), 0, 0).toDouble(&isNumber);
            if (isNumber)
                numbers[theColumns[i].theLabel] << number;
            units[theColumns[i].theLabel] = text.section(QLatin1Char(' '), 1, 1);
        }
    }
    Columns& columns = theStatistics[aTypeName];
    for (int i = 0; i < columns.size() - 1; ++i)
        columns[i].theCells = fourTexts(numbers.value(columns[i].theLabel), units.value(columns[i].theLabel));
}

QStringList PlainWindow::fourTexts(const QList<double>& aNumbers, const QString& aUnit)
{
    if (aNumbers.isEmpty())
        return {"", "", "", ""};
    double sum = 0.0;
    double most = 0.0;
    double least = 4294967295.0;
    for (const double number : aNumbers) {
        sum += number;
        if (number > most)
            most = number;
        if (number < least)
            least = number;
    }
    const double mean = sum / double(aNumbers.size());
    double squares = 0.0;
    for (const double number : aNumbers)
        squares += (number - mean) * (number - mean);
    const double deviation = std::sqrt(squares / double(aNumbers.size()));
    QStringList texts;
    for (const double number : {mean, least, most, deviation})
        texts << cut(QString::number(number, 'g', 6)) + QLatin1Char(' ') + aUnit;
    return texts;
}
