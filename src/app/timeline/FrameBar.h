#ifndef FRAMEBAR_H
#define FRAMEBAR_H

#include <QToolBar>

class Media;
class Player;
class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;
class TimelineActions;

/// Plays, steps and jumps: the frame's number and time stand here and can be typed.
class FrameBar : public QToolBar
{
    Q_OBJECT

public:
    FrameBar(Media& aMedia, Player& aPlayer, const TimelineActions& aActions, QAction& aPrevious,
             QAction& aNext, QWidget* aParent);
    ~FrameBar() override;

Q_SIGNALS:
    /// A frame couldn't be shown: one sentence.
    void failed(const QString& aError);

private:
    void makeFields();
    void makeSpeeds();
    void go(int aFrame);
    void goToTime();
    void follow();

    Media& theMedia;
    Player& thePlayer;
    QAction& thePrevious;
    QAction& theNext;
    QSpinBox* theNumber;
    QLabel* theCount;
    QLineEdit* theTime;
    QAction* theTimeAction; // shows and hides theTime
    QComboBox* theSpeed;
};

#endif
