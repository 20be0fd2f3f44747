#ifndef FRAMEBAR_H
#define FRAMEBAR_H

#include <QToolBar>

class Media;
class QAction;
class QLabel;
class QSpinBox;

/// Steps through the pages of a picture. It is there only where there is more than one.
class FrameBar : public QToolBar
{
    Q_OBJECT

public:
    FrameBar(Media& aMedia, QAction& aPrevious, QAction& aNext, QWidget* aParent);

Q_SIGNALS:
    /// A frame couldn't be shown: one sentence.
    void failed(const QString& aError);

private:
    void go(int aFrame);
    void follow();

    Media& theMedia;
    QAction& thePrevious;
    QAction& theNext;
    QSpinBox* theNumber;
    QLabel* theCount;
};

#endif
