// The export of the dock's values.
#include "AnimatedValues.h"
#include "Media.h"
#include "ValueExport.h"
#include "ValueStore.h"
#include "ValueTree.h"
#include "ValuesDock.h"
#include "WorkProgress.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

namespace {

constexpr QLatin1String kFolderKey("values/lastFolder");
constexpr QLatin1String kSuffix("csv");

QString proposedPath(const Media& aMedia)
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QString folder = QSettings().value(kFolderKey).toString();
    if (folder.isEmpty() || !QDir(folder).exists())
        folder = documents;
    return QDir(folder).filePath(QFileInfo(aMedia.path()).completeBaseName() + QLatin1Char('.') + kSuffix);
}

} // namespace

void ValuesDock::exportAll()
{
    const QList<ValueKey> keys = AnimatedValues::keys(AnimatedValues::objects());
    if (keys.isEmpty())
        Q_EMIT failed(tr("There is no animated object; select one and choose Frames > Animate the Object."));
    else
        exportValues(keys, tr("Export All Values over Time"));
}

void ValuesDock::exportChecked()
{
    const QList<ValueKey> keys = theTree->checked();
    if (keys.isEmpty())
        Q_EMIT failed(tr("No value is checked; check values in the list first."));
    else
        exportValues(keys, tr("Export Checked Values over Time"));
}

void ValuesDock::exportValues(const QList<ValueKey>& aKeys, const QString& aTitle)
{
    QFileDialog dialog(window(), aTitle, QString(), tr("Tables (*.csv)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(kSuffix);
    const QFileInfo proposed(proposedPath(theMedia));
    dialog.setDirectory(proposed.absolutePath());
    dialog.selectFile(proposed.fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().constFirst();
    QString error;
    Q_EMIT aboutToRead();
    theReading = true;
    ValueExport::Result result = ValueExport::kFailed;
    {
        WorkProgress progress(tr("Writing the values..."), window());
        result = ValueExport::write(
            path, theMedia, aKeys, theStore->known(),
            [&progress](qint64 aDone, qint64 aCount) { return progress.report(aDone, aCount); }, error);
    }
    theReading = false;
    if (result == ValueExport::kFailed)
        Q_EMIT failed(error);
    if (result != ValueExport::kWritten)
        return;
    QSettings().setValue(kFolderKey, QFileInfo(path).absolutePath());
    if (!theMedia.source() && std::any_of(aKeys.begin(), aKeys.end(), AnimatedValues::isFromPictures))
        Q_EMIT failed(tr(
            "The values of the pictures are missing in the table, since the picture isn't there; locate it "
            "and export again."));
}
