#include "UndoDock.h"

#include "AppIcon.h"

#include <QUndoStack>
#include <QUndoView>

UndoDock::UndoDock(QUndoStack& aStack, QWidget* aParent) : QDockWidget(tr("History"), aParent)
{
    setObjectName(QStringLiteral("undoDock"));
    auto* view = new QUndoView(&aStack, this);
    const int side = view->fontMetrics().height();
    view->setIconSize(QSize(side, side)); // rows with and without an icon are equally high
    view->setEmptyLabel(tr("As opened"));
    view->setCleanIcon(appIcon(QStringLiteral("save")));
    view->setAccessibleName(tr("List of all changes"));
    view->setStatusTip(tr("A click goes back or forth to that change"));
    setWidget(view);
}
