#include "RecentFiles.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace {

constexpr QLatin1String kKey("recentFiles");

QString absolute(const QString& aPath)
{
    return QDir::cleanPath(QFileInfo(aPath).absoluteFilePath());
}

/// A file name as the text of a menu entry: its "&" are no mnemonics.
QString entryText(int aNumber, const QString& aPath)
{
    QString name = QFileInfo(aPath).fileName();
    name.replace(QLatin1Char('&'), QLatin1String("&&"));
    const QString mnemonic = aNumber < 10 ? QStringLiteral("&") : QString();
    return QStringLiteral("%1%2  %3").arg(mnemonic, QString::number(aNumber), name);
}

} // namespace

RecentFiles::RecentFiles(QMenu& aMenu, QObject* aParent)
    : QObject(aParent), theMenu(aMenu), thePaths(QSettings().value(kKey).toStringList().mid(0, kMaxCount))
{
    theMenu.setToolTipsVisible(true);
    fillMenu();
}

void RecentFiles::add(const QString& aPath)
{
    QStringList paths = thePaths;
    paths.removeAll(absolute(aPath));
    paths.prepend(absolute(aPath));
    set(paths.mid(0, kMaxCount));
}

void RecentFiles::remove(const QString& aPath)
{
    QStringList paths = thePaths;
    paths.removeAll(absolute(aPath));
    set(paths);
}

void RecentFiles::clear()
{
    set({});
}

void RecentFiles::set(const QStringList& aPaths)
{
    if (aPaths == thePaths)
        return;
    thePaths = aPaths;
    QSettings().setValue(kKey, thePaths);
    fillMenu();
}

void RecentFiles::fillMenu()
{
    theMenu.clear();
    theMenu.setEnabled(!thePaths.isEmpty());
    for (int i = 0; i < thePaths.size(); ++i) {
        const QString path = thePaths[i];
        QAction* action = theMenu.addAction(entryText(i + 1, path));
        action->setToolTip(QDir::toNativeSeparators(path));
        action->setStatusTip(tr("Opens %1").arg(QDir::toNativeSeparators(path)));
        // Opening changes this menu, so the choice is told when the menu has finished with the entry.
        connect(
            action, &QAction::triggered, this, [this, path] { Q_EMIT chosen(path); }, Qt::QueuedConnection);
    }
    theMenu.addSeparator();
    QAction* clearAction = theMenu.addAction(tr("&Clear List"));
    clearAction->setStatusTip(tr("Empties the list of files that were opened last"));
    connect(clearAction, &QAction::triggered, this, &RecentFiles::clear, Qt::QueuedConnection);
}
