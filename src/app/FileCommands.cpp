#include "FileCommands.h"

#include "Document.h"
#include "LmCvEditor.h"
#include "Media.h"
#include "MediaFile.h"
#include "Messages.h"
#include "PictureFile.h"
#include "PictureRenderer.h"
#include "RecentFiles.h"
#include "VideoFile.h"
#include "Workbench.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

namespace {

constexpr QLatin1String kFolderKey("lastFolder");
constexpr QLatin1String kProjectSuffix("mtp");

/// Name patterns such as "*.png *.tif", in both cases, since file names are compared exactly on most systems.
QString patterns(const QStringList& aSuffixes)
{
    QStringList names;
    for (const QString& suffix : aSuffixes)
        names << QStringLiteral("*.") + suffix << QStringLiteral("*.") + suffix.toUpper();
    return names.join(QLatin1Char(' '));
}

QString pictureFilters()
{
    return FileCommands::tr("Pictures (%1)").arg(patterns(PictureFile::suffixes())) + QLatin1String(";;") +
           FileCommands::tr("Videos (%1)").arg(patterns(VideoFile::suffixes()));
}

QString openFilters()
{
    const QStringList all = QStringList(kProjectSuffix) + PictureFile::suffixes() + VideoFile::suffixes();
    const QStringList filters{FileCommands::tr("Pictures, videos and projects (%1)").arg(patterns(all)),
                              FileCommands::tr("Projects (%1)").arg(patterns({kProjectSuffix})),
                              pictureFilters(), FileCommands::tr("All files (*)")};
    return filters.join(QLatin1String(";;"));
}

/// Whether what is missing is a folder of pictures. A project doesn't tell, so it is what still stands there,
/// or what has several frames and no ending of a file.
bool isFolder(const Media& aMissing)
{
    const QFileInfo place(aMissing.path());
    if (place.exists())
        return place.isDir();
    return aMissing.frameCount() > 1 && !MediaFile::suffixes().contains(place.suffix(), Qt::CaseInsensitive);
}

} // namespace

FileCommands::FileCommands(Workbench& aBench, RecentFiles& aRecent, QWidget& aWindow)
    : QObject(&aWindow), theBench(aBench), theRecent(aRecent), theWindow(aWindow)
{
    connect(&theRecent, &RecentFiles::chosen, this, &FileCommands::open);
}

bool FileCommands::open(const QString& aPath)
{
    if (!mayLeaveWork())
        return false;
    QString error;
    if (!theBench.document().open(aPath, error)) {
        if (!QFileInfo::exists(aPath))
            theRecent.remove(aPath);
        tellError(&theWindow, error);
        return false;
    }
    theRecent.add(aPath);
    keepFolder(aPath);
    if (theBench.document().isPictureMissing())
        offerToLocate(error);
    else if (!error.isEmpty())
        tellError(&theWindow, error);
    return true;
}

void FileCommands::askOpen()
{
    const QString path = QFileDialog::getOpenFileName(&theWindow, tr("Open"), lastFolder(), openFilters());
    if (!path.isEmpty())
        open(path);
}

void FileCommands::askOpenFolder()
{
    const QString path =
        QFileDialog::getExistingDirectory(&theWindow, tr("Open Folder of Pictures"), lastFolder());
    if (!path.isEmpty())
        open(path);
}

bool FileCommands::mayLeaveWork()
{
    if (!theBench.document().isModified())
        return true;
    QMessageBox box(QMessageBox::Question, tr("MeasureTools"),
                    tr("“%1” has changes that are not saved.").arg(theBench.document().displayName()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &theWindow);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(tr("Shall they be saved?"));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return save();
    case QMessageBox::Discard:
        return true;
    }
    return false;
}

bool FileCommands::save()
{
    const QString path = theBench.document().projectPath();
    return path.isEmpty() ? saveAs() : saveTo(path);
}

bool FileCommands::saveAs()
{
    QFileDialog dialog(&theWindow, tr("Save Project"), QString(),
                       tr("Projects (%1)").arg(patterns({kProjectSuffix})));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(kProjectSuffix);
    const QFileInfo proposed(proposedPath(kProjectSuffix));
    dialog.setDirectory(proposed.absolutePath());
    dialog.selectFile(proposed.fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    return saveTo(dialog.selectedFiles().constFirst());
}

bool FileCommands::saveTo(const QString& aPath)
{
    QString error;
    if (!theBench.document().save(aPath, error)) {
        tellError(&theWindow, error);
        return false;
    }
    theRecent.add(aPath);
    keepFolder(aPath);
    return true;
}

void FileCommands::exportPicture()
{
    QFileDialog dialog(&theWindow, tr("Export Picture"), QString(),
                       tr("PNG picture (*.png);;TIFF picture (*.tif *.tiff);;JPEG picture (*.jpg *.jpeg)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("png"));
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& aFilter) {
        dialog.setDefaultSuffix(aFilter.section(QLatin1String("*."), 1, 1)
                                    .section(QLatin1Char(' '), 0, 0)
                                    .remove(QLatin1Char(')')));
    });
    const QFileInfo proposed(proposedPath(QStringLiteral("measured.png")));
    dialog.setDirectory(proposed.absolutePath());
    dialog.selectFile(proposed.fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    QString error;
    if (!PictureRenderer::renderTo(theBench.editor(), dialog.selectedFiles().constFirst(), error,
                                   theScaleBar))
        tellError(&theWindow, error);
}

void FileCommands::offerToLocate(const QString& aReason)
{
    QMessageBox box(QMessageBox::Warning, tr("MeasureTools"), aReason, QMessageBox::NoButton, &theWindow);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(tr("The objects are open on an empty sheet. The picture can also be located "
                              "later, from the File menu."));
    const QPushButton* locate = box.addButton(tr("&Locate Picture..."), QMessageBox::AcceptRole);
    box.addButton(tr("&Not Now"), QMessageBox::RejectRole);
    box.exec();
    if (box.clickedButton() == locate)
        locatePicture();
}

void FileCommands::locatePicture()
{
    const QString title = tr("Locate %1").arg(QFileInfo(theBench.media().path()).fileName());
    const QString path =
        isFolder(theBench.media())
            ? QFileDialog::getExistingDirectory(&theWindow, title, lastFolder())
            : QFileDialog::getOpenFileName(&theWindow, title, lastFolder(),
                                           pictureFilters() + QLatin1String(";;") + tr("All files (*)"));
    if (path.isEmpty())
        return;
    QString error;
    if (theBench.document().locatePicture(path, error))
        keepFolder(path);
    // A picture that was located may have something to tell too.
    if (!error.isEmpty())
        tellError(&theWindow, error);
}

QString FileCommands::draggedFile(const QMimeData* aData)
{
    const QList<QUrl> urls = aData->urls();
    for (const QUrl& url : urls)
        if (url.isLocalFile())
            return url.toLocalFile();
    return QString();
}

QString FileCommands::proposedPath(const QString& aSuffix) const
{
    const QString project = theBench.document().projectPath();
    const QFileInfo source(project.isEmpty() ? theBench.media().path() : project);
    const bool usable = source.dir().exists() && QFileInfo(source.absolutePath()).isWritable();
    const QDir folder(usable ? source.absolutePath() : lastFolder());
    return folder.filePath(source.completeBaseName() + QLatin1Char('.') + aSuffix);
}

QString FileCommands::lastFolder() const
{
    const QString folder = QSettings().value(kFolderKey).toString();
    return !folder.isEmpty() && QDir(folder).exists()
               ? folder
               : QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

void FileCommands::keepFolder(const QString& aPath) const
{
    QSettings().setValue(kFolderKey, QFileInfo(aPath).absolutePath());
}
