#include "FrameBar.h"

#include "Media.h"

#include <QAction>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

FrameBar::FrameBar(Media& aMedia, QAction& aPrevious, QAction& aNext, QWidget* aParent)
    : QToolBar(tr("Frames"), aParent), theMedia(aMedia), thePrevious(aPrevious), theNext(aNext),
      theNumber(new QSpinBox(this)), theCount(new QLabel(this))
{
    setObjectName(QStringLiteral("frameBar"));
    theNumber->setObjectName(QStringLiteral("frameNumber"));
    theNumber->setAccessibleName(tr("Number of the frame"));
    theNumber->setPrefix(tr("Frame "));
    theNumber->setKeyboardTracking(false);
    addAction(&thePrevious);
    addWidget(theNumber);
    addWidget(theCount);
    addAction(&theNext);
    // The bar comes and goes with the pictures; the user needn't switch it.
    toggleViewAction()->setVisible(false);

    connect(&thePrevious, &QAction::triggered, this, [this] { go(theMedia.frame() - 1); });
    connect(&theNext, &QAction::triggered, this, [this] { go(theMedia.frame() + 1); });
    connect(theNumber, &QSpinBox::valueChanged, this, [this](int aNumber) { go(aNumber - 1); });
    connect(&theMedia, &Media::opened, this, &FrameBar::follow);
    connect(&theMedia, &Media::frameShown, this, &FrameBar::follow);
    follow();
}

void FrameBar::go(int aFrame)
{
    QString error;
    if (aFrame != theMedia.frame() && !theMedia.showFrame(aFrame, error))
        Q_EMIT failed(error);
    follow();
}

void FrameBar::follow()
{
    const int count = theMedia.isOpen() ? theMedia.frameCount() : 0;
    const QSignalBlocker blocker(theNumber);
    theNumber->setRange(1, qMax(1, count));
    theNumber->setValue(theMedia.frame() + 1);
    theCount->setText(tr(" of %1 ").arg(count));
    thePrevious.setEnabled(theMedia.frame() > 0 && count > 1);
    theNext.setEnabled(theMedia.frame() + 1 < count);
    setVisible(count > 1);
}
