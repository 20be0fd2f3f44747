#include "ExactValues.h"

#include "CellText.h"
#include "LmCvManipMeasure.h"
#include "LmKSKernelData.h"
#include "LmKsMeasureWidget.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

ExactValues::ExactValues(LmCvManipMeasure& aTool) : QObject(&aTool), theTool(aTool)
{
    Q3Table* table = aTool.theMeasureWidget->theTable;
    table->installEventFilter(this);
    table->clipper()->installEventFilter(this);
}

ExactValues::~ExactValues() = default;

bool ExactValues::read(int aRow, const QStringList& aNames, Row& aResult) const
{
    aResult.theKey = theTool.theMeasureWidget->theTable->verticalHeader()->label(aRow);
    const auto key = theTool.theRowKeys.constFind(aResult.theKey);
    if (key == theTool.theRowKeys.constEnd())
        return false;
    LmCvManipulator* tool = theTool.theKernelData->getCvManipulator(key->first);
    const LmKernelObjectData* record = theTool.theKernelData->getObject(key->first, key->second);
    if (!tool || !record)
        return false;
    const QLinkedList<QVariant> values = tool->getValues(aNames, record, aResult.theUnits);
    for (const QVariant& value : values)
        aResult.theNumbers.append(CellText::whole(value));
    return true;
}

QString ExactValues::cellText(int aRow, int aPosition) const
{
    Row row;
    if (!read(aRow, {theTool.theColumnNames.value(aPosition)}, row))
        return QString();
    return QString(row.theNumbers.value(0) + QLatin1Char(' ') + row.theUnits.value(0)).trimmed();
}

QList<ExactValues::Row> ExactValues::copiedRows(const QStringList& aNames) const
{
    const Q3Table* table = theTool.theMeasureWidget->theTable;
    const bool onlySelected = table->selectionModel()->hasSelection();
    QList<Row> rows;
    for (int i = 0; i < table->numRows(); ++i) {
        Row row;
        if ((!onlySelected || table->isRowSelected(i)) && read(i, aNames, row))
            rows.append(row);
    }
    return rows;
}

QString ExactValues::copiedText() const
{
    QStringList names = theTool.theColumnNames;
    names.removeAll(QStringLiteral(" "));
    const QList<Row> rows = copiedRows(names);
    if (rows.isEmpty())
        return QString();

    QStringList lines(rows.size() + 1);
    lines[0] = tr("Object name");
    for (qsizetype i = 0; i < rows.size(); ++i)
        lines[i + 1] = rows[i].theKey;
    for (qsizetype column = 0; column < names.size(); ++column) {
        QStringList units;
        for (const Row& row : rows)
            if (!row.theNumbers.value(column).isEmpty() && !units.contains(row.theUnits.value(column)))
                units.append(row.theUnits.value(column));
        if (units.isEmpty())
            units.append(QString());
        for (const QString& unit : qAsConst(units)) {
            lines[0] += QLatin1Char('\t') + names[column];
            if (!unit.isEmpty())
                lines[0] += QStringLiteral(" [%1]").arg(unit);
            for (qsizetype i = 0; i < rows.size(); ++i)
                lines[i + 1] +=
                    QLatin1Char('\t') +
                    (rows[i].theUnits.value(column) == unit ? rows[i].theNumbers.value(column) : QString());
        }
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

bool ExactValues::eventFilter(QObject* aObject, QEvent* aEvent)
{
    const Q3Table* table = theTool.theMeasureWidget->theTable;
    if (aObject == table && aEvent->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(aEvent)->matches(QKeySequence::Copy)) {
        if (const QString text = copiedText(); !text.isEmpty())
            QGuiApplication::clipboard()->setText(text);
        return true;
    }
    if (aObject == table->clipper() && aEvent->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(aEvent);
        const QModelIndex cell = table->indexAt(help->pos());
        const int position = table->horizontalHeader()->mapToIndex(cell.column());
        // The rectangle lets the next cell show its own text.
        QToolTip::showText(help->globalPos(), cellText(cell.row(), position), table->clipper(),
                           table->visualRect(cell));
        return true;
    }
    return QObject::eventFilter(aObject, aEvent);
}
