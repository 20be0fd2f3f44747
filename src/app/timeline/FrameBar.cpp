#include "FrameBar.h"

#include "FrameText.h"
#include "Media.h"
#include "Player.h"
#include "TimelineActions.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

/// Whether the field shows something that hasn't been taken yet.
bool isTyped(const QSpinBox& aField)
{
    return aField.locale().toInt(aField.cleanText()) != aField.value();
}

} // namespace

FrameBar::FrameBar(Media& aMedia, Player& aPlayer, const TimelineActions& aActions, QAction& aPrevious,
                   QAction& aNext, QWidget* aParent)
    : QToolBar(tr("Frames"), aParent), theMedia(aMedia), thePlayer(aPlayer), thePrevious(aPrevious),
      theNext(aNext), theNumber(new QSpinBox(this)), theCount(new QLabel(this)), theTime(new QLineEdit(this)),
      theSpeed(new QComboBox(this))
{
    setObjectName(QStringLiteral("frameBar"));
    makeFields();
    makeSpeeds();
    addActions(
        {aActions.thePreviousKeyframe, &thePrevious, aActions.thePlay, &theNext, aActions.theNextKeyframe});
    addSeparator();
    addWidget(theNumber);
    addWidget(theCount);
    theTimeAction = addWidget(theTime);
    addSeparator();
    addWidget(theSpeed);
    addAction(aActions.theLoop);
    addSeparator();
    addActions({aActions.theObjectAnimated, aActions.theSetKeyframe, aActions.theViewAnimated});

    connect(&thePrevious, &QAction::triggered, this, [this] { go(theMedia.frame() - 1); });
    connect(&theNext, &QAction::triggered, this, [this] { go(theMedia.frame() + 1); });
    connect(&theMedia, &Media::opened, this, &FrameBar::follow);
    connect(&theMedia, &Media::frameShown, this, &FrameBar::follow);
    follow();
}

FrameBar::~FrameBar()
{
    // The fields go after this object, and one that has the focus tells so when it loses it.
    for (QObject* field :
         {static_cast<QObject*>(theNumber), static_cast<QObject*>(theTime), static_cast<QObject*>(theSpeed)})
        field->disconnect(this);
}

void FrameBar::makeFields()
{
    theNumber->setObjectName(QStringLiteral("frameNumber"));
    theNumber->setAccessibleName(tr("Number of the frame"));
    theNumber->setPrefix(tr("Frame "));
    theNumber->setKeyboardTracking(false);
    connect(theNumber, &QSpinBox::valueChanged, this, [this](int aNumber) { go(aNumber - 1); });

    theTime->setObjectName(QStringLiteral("frameTime"));
    theTime->setAccessibleName(tr("Time of the frame"));
    theTime->setToolTip(tr("Time of the frame; type another one to go there, such as 2.5 or 1:05.2"));
    theTime->setMaximumWidth(theTime->fontMetrics().horizontalAdvance(QStringLiteral("0:00:00.000 s  ")));
    connect(theTime, &QLineEdit::editingFinished, this, &FrameBar::goToTime);
}

void FrameBar::makeSpeeds()
{
    theSpeed->setObjectName(QStringLiteral("speed"));
    theSpeed->setAccessibleName(tr("Speed"));
    theSpeed->setToolTip(tr("How fast the video plays"));
    for (double speed = Player::kSlowest; speed <= Player::kFastest; speed *= 2.0)
        theSpeed->addItem(speed < 1.0 ? tr("1/%1 x").arg(1.0 / speed) : tr("%1 x").arg(speed), speed);
    theSpeed->setCurrentIndex(theSpeed->findData(1.0));
    connect(theSpeed, &QComboBox::currentIndexChanged, this,
            [this](int aIndex) { thePlayer.setSpeed(theSpeed->itemData(aIndex).toDouble()); });
}

void FrameBar::go(int aFrame)
{
    QString error;
    if (aFrame != theMedia.frame() && !theMedia.showFrame(aFrame, error))
        Q_EMIT failed(error);
    follow();
}

void FrameBar::goToTime()
{
    double seconds = 0.0;
    if (!theTime->isModified())
        return;
    const bool valid = FrameText::fromText(theTime->text(), seconds);
    const QString typed = theTime->text();
    theTime->setModified(false);
    if (valid)
        go(theMedia.times().frameAt(seconds +
                                    FrameText::kRounding)); // the time that is shown may be a bit early
    else
        Q_EMIT failed(tr("The time “%1” can't be read; type seconds such as 2.5, or minutes and seconds such "
                         "as 1:05.2.")
                          .arg(typed));
    follow();
}

void FrameBar::follow()
{
    const int count = theMedia.isOpen() ? theMedia.frameCount() : 0;
    const FrameTimes& times = theMedia.times();
    const QSignalBlocker blocker(theNumber);
    theNumber->setRange(1, qMax(1, count));
    // What is being typed stays, also while frames are played.
    if (!theNumber->hasFocus() || !isTyped(*theNumber))
        theNumber->setValue(theMedia.frame() + 1);
    const QString rate = theMedia.source() ? theMedia.source()->rateText() : QString();
    theCount->setText(rate.isEmpty() ? tr(" of %1 ").arg(count) : tr(" of %1, %2 ").arg(count).arg(rate));
    theTimeAction->setVisible(!times.isEmpty());
    if (!theTime->hasFocus() || !theTime->isModified())
        theTime->setText(FrameText::time(times.at(theMedia.frame())));
    thePrevious.setEnabled(theMedia.frame() > 0 && count > 1);
    theNext.setEnabled(theMedia.frame() + 1 < count);
}
