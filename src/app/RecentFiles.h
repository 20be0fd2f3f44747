#ifndef RECENTFILES_H
#define RECENTFILES_H

#include <QObject>
#include <QStringList>

class QMenu;

/// The files that were opened last, kept in the settings and offered in a menu.
class RecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMaxCount = 10;

    RecentFiles(QMenu& aMenu, QObject* aParent);

    const QStringList& paths() const { return thePaths; }
    /// Puts a file first; one that is there already moves up.
    void add(const QString& aPath);
    void remove(const QString& aPath);
    void clear();

Q_SIGNALS:
    void chosen(const QString& aPath);

private:
    void set(const QStringList& aPaths);
    void fillMenu();

    QMenu& theMenu; // owned by the window
    QStringList thePaths;
};

#endif
