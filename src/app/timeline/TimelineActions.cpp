#include "TimelineActions.h"

#include "AppIcon.h"
#include "CmdAnimateView.h"
#include "KeyframeTrack.h"
#include "LmKSKernelData.h"
#include "Media.h"
#include "Player.h"
#include "TimelineView.h"

#include <QAction>
#include <QMenu>
#include <QUndoStack>

TimelineActions::TimelineActions(Media& aMedia, Player& aPlayer, KeyframeTrack& aTrack, QUndoStack& aStack,
                                 QWidget& aWindow, QObject* aParent)
    : QObject(aParent), theMedia(aMedia), thePlayer(aPlayer), theTrack(aTrack), theStack(aStack),
      theWindow(aWindow)
{
    makeFrameActions();
    makeKeyframeActions();
    makeLineActions();
    for (QAction* action : {thePlay, theLoop, thePreviousKeyframe, theNextKeyframe, theSetKeyframe,
                            theObjectAnimated, theViewAnimated}) {
        action->setIcon(appIcon(action->objectName()));
        theWindow.addAction(action);
    }
    connect(&theMedia, &Media::opened, this, &TimelineActions::update);
    connect(&theMedia, &Media::frameShown, this, &TimelineActions::update);
    connect(&theTrack, &KeyframeTrack::changed, this, &TimelineActions::update);
    connect(&thePlayer, &Player::playingChanged, this, &TimelineActions::showPlaying);
    connect(&thePlayer, &Player::failed, this, &TimelineActions::failed);
    connect(LmKSKernelData::getInstance(), &LmKSKernelData::signalCurrentView, this, [this](int, int aMode) {
        theViewAnimated->setChecked(aMode != 0);
        update();
    });
    update();
}

QAction* TimelineActions::add(const QString& aName, const QString& aText, const QKeySequence& aShortcut,
                              const QString& aTip)
{
    auto* action = new QAction(aText, &theWindow);
    action->setObjectName(aName);
    action->setShortcut(aShortcut);
    action->setStatusTip(aTip);
    return action;
}

void TimelineActions::makeFrameActions()
{
    thePlay = add(QStringLiteral("play"), tr("&Play"), QKeySequence(tr("Ctrl+P")),
                  tr("Plays the video from here, and stops it again"));
    theLoop = add(QStringLiteral("loop"), tr("&Loop"), QKeySequence(tr("Ctrl+Shift+O")),
                  tr("Plays the video again and again"));
    theLoop->setCheckable(true);
    theViewAnimated = add(
        QStringLiteral("animate-view"), tr("Animate the &View"), QKeySequence(tr("Ctrl+Shift+V")),
        tr("Shows the animation of all objects, also of those that don't follow the frames by themselves"));
    theViewAnimated->setCheckable(true);
    connect(thePlay, &QAction::triggered, this,
            [this] { thePlayer.isPlaying() ? thePlayer.stop() : thePlayer.play(); });
    connect(theLoop, &QAction::toggled, &thePlayer, &Player::setLooping);
    connect(theViewAnimated, &QAction::triggered, this,
            [this](bool aOn) { theStack.push(new CmdAnimateView(aOn)); });
}

void TimelineActions::makeKeyframeActions()
{
    thePreviousKeyframe = add(QStringLiteral("previous-keyframe"), tr("P&revious Keyframe"),
                              QKeySequence(tr("Ctrl+PgUp")), tr("Goes to the keyframe before this frame"));
    theNextKeyframe = add(QStringLiteral("next-keyframe"), tr("N&ext Keyframe"),
                          QKeySequence(tr("Ctrl+PgDown")), tr("Goes to the keyframe behind this frame"));
    theSetKeyframe = add(QStringLiteral("set-keyframe"), tr("Set &Keyframe"), QKeySequence(tr("Ctrl+K")),
                         tr("Holds the current object at this frame as it is now"));
    theObjectAnimated =
        add(QStringLiteral("animate-object"), tr("&Animate the Object"), QKeySequence(tr("Ctrl+Shift+A")),
            tr("Lets the current object have another place on each frame"));
    theObjectAnimated->setCheckable(true);
    connect(thePreviousKeyframe, &QAction::triggered, this,
            [this] { go(theTrack.previous(theMedia.frame())); });
    connect(theNextKeyframe, &QAction::triggered, this, [this] { go(theTrack.next(theMedia.frame())); });
    connect(theSetKeyframe, &QAction::triggered, this, [this] { theTrack.setKeyframe(theMedia.frame()); });
    connect(theObjectAnimated, &QAction::triggered, this, [this](bool aOn) { theTrack.setAnimated(aOn); });
}

void TimelineActions::makeLineActions()
{
    theDelete = add(QStringLiteral("delete-keyframes"), tr("&Delete Keyframes"), QKeySequence::Delete,
                    tr("Deletes the selected keyframes"));
    theCopy = add(QStringLiteral("copy-keyframes"), tr("&Copy Keyframes"), QKeySequence::Copy,
                  tr("Copies the selected keyframes"));
    thePaste = add(QStringLiteral("paste-keyframes"), tr("&Paste Keyframes"), QKeySequence::Paste,
                   tr("Puts the copied keyframes at this frame and behind it"));
    theSelectAll = add(QStringLiteral("select-keyframes"), tr("&Select All Keyframes"),
                       QKeySequence::SelectAll, tr("Selects all keyframes of the current object"));
    // The same keys do something else where the canvas has the focus.
    for (QAction* action : {theDelete, theCopy, thePaste, theSelectAll})
        action->setShortcutContext(Qt::WidgetShortcut);
}

void TimelineActions::attach(TimelineView& aView)
{
    theView = &aView;
    theView->addActions({theDelete, theCopy, thePaste, theSelectAll});
    connectLineActions();
    connect(theView, &TimelineView::frameWanted, this, &TimelineActions::go);
    connect(theView, &TimelineView::selectionChanged, this, &TimelineActions::update);
    connect(theView, &TimelineView::menuWanted, this, &TimelineActions::openMenu);
    update();
}

void TimelineActions::connectLineActions()
{
    connect(theDelete, &QAction::triggered, this, [this] { theTrack.remove(theView->selectedFrames()); });
    connect(theCopy, &QAction::triggered, this, [this] { theTrack.copy(theView->selectedFrames()); });
    connect(thePaste, &QAction::triggered, this,
            [this] { theView->select(theTrack.paste(theMedia.frame())); });
    connect(theSelectAll, &QAction::triggered, theView, &TimelineView::selectAll);
}

void TimelineActions::fillMenu(QMenu& aMenu) const
{
    aMenu.addActions({thePlay, theLoop});
    aMenu.addSeparator();
    aMenu.addActions({thePreviousKeyframe, theNextKeyframe, theSetKeyframe});
    aMenu.addSeparator();
    aMenu.addActions({theObjectAnimated, theViewAnimated});
}

void TimelineActions::openMenu(int aFrame, const QPoint& aGlobalPos)
{
    auto* menu = new QMenu(&theWindow);
    menu->setObjectName(QStringLiteral("keyframeMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addAction(tr("&Go to Frame %1").arg(aFrame + 1)), &QAction::triggered, this,
            [this, aFrame] { go(aFrame); });
    menu->addSeparator();
    menu->addAction(theSetKeyframe);
    menu->addActions({theCopy, thePaste, theDelete, theSelectAll});
    menu->addSeparator();
    menu->addActions({theObjectAnimated, theViewAnimated});
    menu->popup(aGlobalPos);
}

void TimelineActions::go(int aFrame)
{
    QString error;
    if (aFrame >= 0 && !theMedia.showFrame(aFrame, error))
        Q_EMIT failed(error);
}

void TimelineActions::showPlaying(bool aPlaying)
{
    thePlay->setText(aPlaying ? tr("Sto&p") : tr("&Play"));
    thePlay->setIcon(appIcon(aPlaying ? QStringLiteral("stop") : QStringLiteral("play")));
}

void TimelineActions::update()
{
    const int frame = theMedia.frame();
    const bool several = theMedia.isOpen() && theMedia.frameCount() > 1;
    thePlay->setEnabled(several && theMedia.source());
    theLoop->setEnabled(several);
    theViewAnimated->setEnabled(several || theViewAnimated->isChecked());
    const bool animated = theTrack.isAnimated();
    theObjectAnimated->setChecked(animated);
    // On a single picture only what is animated already can be switched.
    theObjectAnimated->setEnabled(theTrack.hasObject() && (several || animated));
    theSetKeyframe->setEnabled(theTrack.hasObject() && several);
    thePreviousKeyframe->setEnabled(theTrack.previous(frame) >= 0);
    theNextKeyframe->setEnabled(theTrack.next(frame) >= 0);
    const bool selected = theView && !theView->selectedFrames().isEmpty();
    theDelete->setEnabled(selected);
    theCopy->setEnabled(selected);
    thePaste->setEnabled(several && theTrack.canPaste());
    theSelectAll->setEnabled(!theTrack.frames().isEmpty());
}
