#include "Q3PopupMenu.h"

#include <QVariant>

namespace {

constexpr char kIdProperty[] = "popupMenuId";
constexpr int kNoId = -1;
constexpr int kFirstFreeId = -2; // counts down, away from the numbers that callers choose

} // namespace

Q3PopupMenu::Q3PopupMenu(QWidget* aParent, const char* aName) : QMenu(aParent), theNextFreeId(kFirstFreeId)
{
    setObjectName(QString::fromLatin1(aName));
}

Q3PopupMenu::~Q3PopupMenu() = default;

int Q3PopupMenu::insertItem(const QString& aText, int aId)
{
    return adopt(addAction(aText), aId);
}

int Q3PopupMenu::insertItem(const QIcon& aIcon, const QString& aText, int aId)
{
    return adopt(addAction(aIcon, aText), aId);
}

int Q3PopupMenu::insertItem(const QString& aText, const QObject* aReceiver, const char* aMember)
{
    QAction* action = addAction(aText);
    const int id = adopt(action, kNoId);
    connect(action, SIGNAL(triggered()), aReceiver, aMember);
    return id;
}

int Q3PopupMenu::insertItem(const QString& aText, Q3PopupMenu* aSubMenu, int aId)
{
    QAction* action = addMenu(aSubMenu);
    action->setText(aText);
    return adopt(action, aId);
}

int Q3PopupMenu::insertSeparator()
{
    return adopt(addSeparator(), kNoId);
}

void Q3PopupMenu::removeItem(int aId)
{
    QAction* action = find(aId);
    if (!action)
        return;
    removeAction(action);
    // The action of a submenu belongs to that menu.
    if (action->parent() == this)
        delete action;
}

void Q3PopupMenu::clear()
{
    QMenu::clear();
    theNextFreeId = kFirstFreeId;
}

void Q3PopupMenu::setItemChecked(int aId, bool aOn)
{
    QAction* action = find(aId);
    if (!action)
        return;
    action->setCheckable(true);
    action->setChecked(aOn);
}

bool Q3PopupMenu::isItemChecked(int aId) const
{
    const QAction* action = find(aId);
    return action && action->isChecked();
}

void Q3PopupMenu::setItemEnabled(int aId, bool aOn)
{
    if (QAction* action = find(aId))
        action->setEnabled(aOn);
}

bool Q3PopupMenu::isItemEnabled(int aId) const
{
    const QAction* action = find(aId);
    return action && action->isEnabled();
}

void Q3PopupMenu::changeItem(int aId, const QString& aText)
{
    if (QAction* action = find(aId))
        action->setText(aText);
}

QString Q3PopupMenu::text(int aId) const
{
    const QAction* action = find(aId);
    return action ? action->text() : QString();
}

int Q3PopupMenu::count() const
{
    return int(actions().size());
}

int Q3PopupMenu::findIdForAction(const QAction* aAction) const
{
    const QVariant id = aAction ? aAction->property(kIdProperty) : QVariant();
    return id.isValid() ? id.toInt() : kNoId;
}

int Q3PopupMenu::execAt(const QPoint& aGlobalPos)
{
    return findIdForAction(exec(aGlobalPos));
}

QAction* Q3PopupMenu::find(int aId) const
{
    const QList<QAction*> all = actions();
    for (QAction* action : all)
        if (aId != kNoId && findIdForAction(action) == aId)
            return action;
    return nullptr;
}

int Q3PopupMenu::adopt(QAction* aAction, int aId)
{
    const int id = aId < 0 ? theNextFreeId-- : aId;
    aAction->setProperty(kIdProperty, id);
    connect(aAction, &QAction::triggered, this, [this, aAction, id](bool aChecked) {
        // A click leaves the check mark to whoever answers it; this runs before any other receiver.
        if (aAction->isCheckable())
            aAction->setChecked(!aChecked);
        Q_EMIT activated(id);
    });
    return id;
}
