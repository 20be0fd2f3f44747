#include "ValueExport.h"

#include "ValuesCsv.h"

#include <QCoreApplication>
#include <QDir>
#include <QSaveFile>
#include <QTextStream>

namespace {

ValueExport::Result failed(const QSaveFile& aFile, QString& aError)
{
    aError = QCoreApplication::translate("ValueExport",
                                         "The values %1 can't be written (%2); choose another folder.")
                 .arg(QDir::toNativeSeparators(aFile.fileName()), aFile.errorString());
    return ValueExport::kFailed;
}

} // namespace

ValueExport::Result ValueExport::write(const QString& aPath, Media& aMedia, const QList<ValueKey>& aKeys,
                                       const QHash<ValueKey, ValueSeriesPtr>& aKnown,
                                       const PictureValues::Progress& aProgress, QString& aError)
{
    QSaveFile file(aPath);
    if (!file.open(QIODevice::WriteOnly))
        return failed(file, aError);
    QTextStream out(&file);
    if (!ValuesCsv::write(aMedia, aKeys, aKnown, aProgress, out))
        return kCancelled; // an uncommitted file leaves nothing behind
    out.flush();
    return out.status() == QTextStream::Ok && file.commit() ? kWritten : failed(file, aError);
}
