#ifndef ITEMMENU_H
#define ITEMMENU_H

#include <QList>
#include <QObject>
#include <QPoint>

#include <functional>

class LmCvEditor;
class LmCvManipulator;
class LmCvObject;
class LmKernelObjectData;
class QAction;
class QMenu;
class ToolSwitch;

/// The context menu of the canvas: what the flags of the item's tool allow to do with it, or with the whole
/// group if the item belongs to the selected ones, each as one undo step.
class ItemMenu : public QObject
{
    Q_OBJECT

public:
    /// aCanvasActions stand in the menu of the empty canvas; they are the window's.
    ItemMenu(LmCvEditor& aEditor, ToolSwitch& aTools, const QList<QAction*>& aCanvasActions,
             QWidget& aWindow);

Q_SIGNALS:
    /// Something to tell that needs no answer.
    void told(const QString& aText);

private:
    using ItemAction = std::function<void(LmCvObject*)>;

    void open(LmCvObject* aItem, const QPoint& aCanvasPoint, const QPoint& aGlobalPos);
    void fillForItem(QMenu& aMenu, LmCvObject* aItem, const QPoint& aCanvasPoint, const QPoint& aGlobalPos);
    void fillForGroup(QMenu& aMenu);
    void addLook(QMenu& aMenu, LmCvObject* aItem, int aFlags);
    void addValues(QMenu& aMenu, LmCvObject* aItem);
    void addAnimation(QMenu& aMenu, LmCvObject* aItem, const QPoint& aCanvasPoint);
    void addCustomActions(QMenu& aMenu, LmCvObject* aItem, const QPoint& aGlobalPos);
    QAction* addEntry(QMenu& aMenu, const QString& aText, const QString& aTip, LmCvObject* aItem,
                      ItemAction aAction);
    void setValueName(LmCvObject* aItem, const QString& aName);
    void setColor(LmCvObject* aItem);
    void setGroupColor();
    /// What is on the clipboard stays there if there is no path to copy.
    void copyPath(LmCvObject* aItem, const QPoint& aCanvasPoint);
    void pastePath(LmCvObject* aItem, const QPoint& aCanvasPoint);
    static const LmKernelObjectData* record(const LmCvObject* aItem);

    LmCvEditor& theEditor;
    ToolSwitch& theTools;
    QList<QAction*> theCanvasActions;
    QWidget& theWindow;
};

#endif
