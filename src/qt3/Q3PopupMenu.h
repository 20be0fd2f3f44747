#ifndef Q3POPUPMENU_H
#define Q3POPUPMENU_H

#include <QMenu>

/// A popup menu whose entries are known by numbers.
class Q3PopupMenu : public QMenu
{
    Q_OBJECT

public:
    explicit Q3PopupMenu(QWidget* aParent = nullptr);
    ~Q3PopupMenu() override;

    /// Appends an entry and returns its number; a negative aId takes the next free one.
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

    /// Shows the menu and waits; the number of the chosen entry, or -1.
    int execAt(const QPoint& aGlobalPos);

Q_SIGNALS:
    void activated(int aId);

private:
    QAction* find(int aId) const;
    int adopt(QAction* aAction, int aId);
};

#endif
