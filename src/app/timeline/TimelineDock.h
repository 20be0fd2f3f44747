#ifndef TIMELINEDOCK_H
#define TIMELINEDOCK_H

#include <QDockWidget>

class LmCvEditor;
class Media;
class Player;
class QAction;
class QMenu;
class QUndoStack;

/// The time line with its bar and its player. It is there only where there is more than one frame.
class TimelineDock : public QDockWidget
{
    Q_OBJECT

public:
    /// Adds its actions to the menu. The two actions that step are the window's.
    TimelineDock(Media& aMedia, LmCvEditor& aEditor, QUndoStack& aStack, QAction& aPrevious, QAction& aNext,
                 QMenu& aMenu, QWidget& aWindow);

    Player& player() { return *thePlayer; }
    /// Shows the dock where there are frames to step through and hides it where there are none.
    void followMedia();

    /// A press on the picture stops the player, so that what is dragged isn't moved on under the mouse.
    bool eventFilter(QObject* aObject, QEvent* aEvent) override;

Q_SIGNALS:
    /// A frame couldn't be shown: one sentence.
    void failed(const QString& aError);

private:
    const Media& theMedia;
    Player* thePlayer; // child
};

#endif
