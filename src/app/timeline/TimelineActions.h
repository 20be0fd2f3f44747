#ifndef TIMELINEACTIONS_H
#define TIMELINEACTIONS_H

#include <QObject>

class KeyframeTrack;
class Media;
class Player;
class QAction;
class QKeySequence;
class QMenu;
class QUndoStack;
class QWidget;
class TimelineView;

/// What can be done with frames and keyframes, as the actions of the menu, the bar and the time line.
class TimelineActions : public QObject
{
    Q_OBJECT

public:
    /// The actions are the window's; this object goes with its parent, before what it uses.
    TimelineActions(Media& aMedia, Player& aPlayer, KeyframeTrack& aTrack, QUndoStack& aStack,
                    QWidget& aWindow, QObject* aParent);

    /// Those that need no time line, for the window's menu.
    void fillMenu(QMenu& aMenu) const;
    /// Makes the line do what its keys and its menu say.
    void attach(TimelineView& aView);

    QAction* thePlay;
    QAction* theLoop;
    QAction* thePreviousKeyframe;
    QAction* theNextKeyframe;
    QAction* theSetKeyframe;
    QAction* theObjectAnimated;
    QAction* theViewAnimated;
    // These work while the time line has the focus.
    QAction* theDelete;
    QAction* theCopy;
    QAction* thePaste;
    QAction* theSelectAll;

Q_SIGNALS:
    /// A frame couldn't be shown: one sentence.
    void failed(const QString& aError);

private:
    QAction* add(const QString& aName, const QString& aText, const QKeySequence& aShortcut,
                 const QString& aTip);
    void makeFrameActions();
    void makeKeyframeActions();
    void makeLineActions();
    void connectLineActions();
    void go(int aFrame);
    void showPlaying(bool aPlaying);
    void update();
    void openMenu(int aFrame, const QPoint& aGlobalPos);

    Media& theMedia;
    Player& thePlayer;
    KeyframeTrack& theTrack;
    QUndoStack& theStack;
    QWidget& theWindow;
    TimelineView* theView = nullptr; // not owned; null until attached
};

#endif
