#include "TimelineDock.h"

#include "FrameBar.h"
#include "KeyframeTrack.h"
#include "LmCvEditor.h"
#include "Media.h"
#include "Player.h"
#include "TimelineActions.h"
#include "TimelineView.h"

#include <QAction>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace {

/// Whether the user begins something on the picture, for which the frames have to stand.
bool isWorkOnPicture(const QEvent& aEvent)
{
    // The middle button pans, which may go on while frames are played.
    if (aEvent.type() == QEvent::MouseButtonPress)
        return static_cast<const QMouseEvent&>(aEvent).button() != Qt::MiddleButton;
    if (aEvent.type() != QEvent::KeyPress)
        return false;
    switch (static_cast<const QKeyEvent&>(aEvent).key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
    case Qt::Key_Escape:
        return true;
    default:
        return false;
    }
}

} // namespace

TimelineDock::TimelineDock(Media& aMedia, LmCvEditor& aEditor, QUndoStack& aStack, QAction& aPrevious,
                           QAction& aNext, QMenu& aMenu, QWidget& aWindow)
    : QDockWidget(tr("Time Line"), &aWindow), theMedia(aMedia), thePlayer(new Player(aMedia, this))
{
    setObjectName(QStringLiteral("timelineDock"));
    auto* track = new KeyframeTrack(aEditor, aStack, this);
    auto* actions = new TimelineActions(aMedia, *thePlayer, *track, aStack, aWindow, this);
    auto* content = new QWidget(this);
    auto* bar = new FrameBar(aMedia, *thePlayer, *actions, aPrevious, aNext, content);
    auto* view = new TimelineView(aMedia, *track, content);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setSizeConstraint(QLayout::SetMinAndMaxSize); // the line needs no more height than it has
    layout->addWidget(bar);
    layout->addWidget(view);
    setWidget(content);
    actions->attach(*view);
    actions->fillMenu(aMenu);
    connect(actions, &TimelineActions::failed, this, &TimelineDock::failed);
    connect(bar, &FrameBar::failed, this, &TimelineDock::failed);
    connect(&aMedia, &Media::opened, this, &TimelineDock::followMedia);
    connect(&aMedia, &Media::opened, track, &KeyframeTrack::follow);
    connect(&aMedia, &Media::frameCountChanged, track, &KeyframeTrack::follow);
    // Who hid the dock keeps it hidden while frames are added.
    connect(&aMedia, &Media::frameCountChanged, this, [this] {
        if (toggleViewAction()->isEnabled() != (theMedia.frameCount() > 1))
            followMedia();
    });
    aEditor.installEventFilter(this);
    aEditor.viewport()->installEventFilter(this);
    followMedia();
}

bool TimelineDock::eventFilter(QObject* aObject, QEvent* aEvent)
{
    if (isWorkOnPicture(*aEvent))
        thePlayer->stop();
    return QDockWidget::eventFilter(aObject, aEvent);
}

void TimelineDock::followMedia()
{
    const bool several = theMedia.isOpen() && theMedia.frameCount() > 1;
    setVisible(several);
    toggleViewAction()->setEnabled(several);
}
