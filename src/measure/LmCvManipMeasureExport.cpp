// The export of the object table as text.
#include "LmCvManipMeasure.h"

#include "CellText.h"
#include "LmAppSettings.h"
#include "LmCalibData.h"
#include "LmKSKernelData.h"
#include "LmKsMeasureWidget.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStringConverter>
#include <QTextStream>

namespace {

// A name is cut at its first dot, "run.1.csv" to "run.txt".
QString asTextFile(const QFileInfo& aFile)
{
    return aFile.path() + QLatin1Char('/') + aFile.baseName() + QStringLiteral(".txt");
}

} // namespace

bool LmCvManipMeasure::saveDataAsText(const QString& aPath)
{
    QFile file(aPath);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    writeDataAsText(&file);
    return true;
}

void LmCvManipMeasure::writeDataAsText(QIODevice* aDevice)
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QTextStream stream(aDevice);
    stream.setEncoding(QStringConverter::System);
    QString calibration;
    stream << tr("Media file:") << '\t' << kernel->theMediaFile << '\n'
           << tr("Base measurement unit:") << kernel->getCurrentCalibData(calibration).theUnit << "\n\n"
           << tr("Object name") << '\t';
    for (const QString& name : qAsConst(theColumnNames))
        stream << name << '\t';
    stream << '\n';
    const Q3Table* table = theMeasureWidget->theTable;
    for (int row = 0; row < table->numRows(); ++row)
        writeRow(stream, table->verticalHeader()->label(row));
}

void LmCvManipMeasure::writeRow(QTextStream& aStream, const QString& aRowKey)
{
    const auto key = theRowKeys.constFind(aRowKey);
    if (key == theRowKeys.constEnd())
        return;
    const auto [type, index] = *key;
    LmCvManipulator* tool = theKernelData->getCvManipulator(type);
    const LmKernelObjectData* record = theKernelData->getObject(type, index);
    if (!tool || !record)
        return;
    aStream << tool->getObjectName(index) << ' ' << index << '\t';
    QStringList units;
    const QLinkedList<QVariant> values = tool->getValues(theColumnNames, record, units);
    for (const QVariant& value : values)
        aStream << CellText::cut(CellText::whole(value)) << '\t';
    aStream << '\n';
}

/// The file that the user chooses, with an agreement to overwrite it; false if there is none. The question
/// is about the name as it was typed.
bool LmCvManipMeasure::askForExportFile(QString& aPath)
{
    for (;;) {
        aPath = QFileDialog::getSaveFileName(theMeasureWidget, tr("Save text file"), aPath,
                                             tr("text files (*.txt)"));
        if (aPath.isEmpty())
            return false;
        if (!QFileInfo::exists(aPath) ||
            QMessageBox::warning(theMeasureWidget, tr("Save"), tr("File exists. Overwrite?"),
                                 QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes)
            return true;
    }
}

void LmCvManipMeasure::slotExportData()
{
    QString path = asTextFile(QFileInfo(LmAppSettings::theLastExcelFile));
    if (!askForExportFile(path))
        return;
    const QString file = asTextFile(QFileInfo(path));
    LmAppSettings::theLastExcelFile = file;
    if (!saveDataAsText(file))
        QMessageBox::warning(theMeasureWidget, tr("Save error"),
                             tr("The file cannot be opened for writing."));
}
