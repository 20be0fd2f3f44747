#ifndef UNDODOCK_H
#define UNDODOCK_H

#include <QDockWidget>

class QUndoStack;

/// The list of all changes; a click on one goes back or forth to it.
class UndoDock : public QDockWidget
{
    Q_OBJECT

public:
    UndoDock(QUndoStack& aStack, QWidget* aParent);
};

#endif
