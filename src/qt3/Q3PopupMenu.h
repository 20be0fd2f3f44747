#ifndef Q3POPUPMENU_H
#define Q3POPUPMENU_H

#include <QMenu>

/// A popup menu whose entries are known by numbers. -1 stands for no entry. A check mark changes by
/// `setItemChecked` alone, not by a click.
class Q3PopupMenu : public QMenu
{
    Q_OBJECT

public:
    explicit Q3PopupMenu(QWidget* aParent = nullptr, const char* aName = nullptr);
    ~Q3PopupMenu() override;

    /// Appends an entry and returns its number. A negative aId takes the next free number; those lie below
    /// -1, so that they never meet a chosen one.
    int insertItem(const QString& aText, int aId = -1);
    int insertItem(const QIcon& aIcon, const QString& aText, int aId = -1);
    /// The same, with a slot that is called when the entry is chosen. aMember is written with SLOT().
    int insertItem(const QString& aText, const QObject* aReceiver, const char* aMember);
    int insertItem(const QString& aText, Q3PopupMenu* aSubMenu, int aId = -1);
    int insertSeparator();
    void removeItem(int aId);
    void clear();

    void setItemChecked(int aId, bool aOn);
    bool isItemChecked(int aId) const;
    void setItemEnabled(int aId, bool aOn);
    bool isItemEnabled(int aId) const;
    void changeItem(int aId, const QString& aText);
    QString text(int aId) const;
    int count() const;
    /// The number of an entry of this menu or of one of its submenus; -1 for any other action.
    int findIdForAction(const QAction* aAction) const;

    /// Shows the menu and waits; the number of the chosen entry, or -1.
    int execAt(const QPoint& aGlobalPos);

Q_SIGNALS:
    void activated(int aId);

private:
    QAction* find(int aId) const;
    int adopt(QAction* aAction, int aId);

    int theNextFreeId;
};

#endif
