#include "QtColorPickerButton.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr QSize kButtonSize(24, 21); // pixels, like a swatch
constexpr int kDotDistance = 4;      // pixels

bool isClickKey(const QKeyEvent& aEvent)
{
    return aEvent.key() == Qt::Key_Space || aEvent.key() == Qt::Key_Return || aEvent.key() == Qt::Key_Enter;
}

} // namespace

QtColorPickerButton::QtColorPickerButton(QWidget* aParent) : QFrame(aParent)
{
    setFrameStyle(QFrame::StyledPanel);
    setFixedSize(kButtonSize);
    setFrameRect(QRect(2, 2, 20, 17));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setToolTip(tr("Other colors..."));
    setAccessibleName(tr("Other colors"));
}

QtColorPickerButton::~QtColorPickerButton() = default;

void QtColorPickerButton::setPressed(bool aOn)
{
    setFrameShadow(aOn ? QFrame::Sunken : QFrame::Raised);
    update();
}

void QtColorPickerButton::click()
{
    setPressed(false);
    Q_EMIT clicked();
}

void QtColorPickerButton::mousePressEvent(QMouseEvent*)
{
    setPressed(true);
}

void QtColorPickerButton::mouseMoveEvent(QMouseEvent*)
{
    setFocus();
}

// A press that was drawn away from the button is taken back.
void QtColorPickerButton::mouseReleaseEvent(QMouseEvent* aEvent)
{
    if (rect().contains(aEvent->pos()))
        click();
    else
        setPressed(false);
}

// The arrow keys and Escape go on to the popup.
void QtColorPickerButton::keyPressEvent(QKeyEvent* aEvent)
{
    if (isClickKey(*aEvent))
        setPressed(true);
    else
        QFrame::keyPressEvent(aEvent);
}

void QtColorPickerButton::keyReleaseEvent(QKeyEvent* aEvent)
{
    if (!isClickKey(*aEvent))
        QFrame::keyReleaseEvent(aEvent);
    else if (!aEvent->isAutoRepeat())
        click();
}

void QtColorPickerButton::focusInEvent(QFocusEvent* aEvent)
{
    setPressed(false);
    QFrame::focusInEvent(aEvent);
}

void QtColorPickerButton::focusOutEvent(QFocusEvent* aEvent)
{
    setPressed(false);
    QFrame::focusOutEvent(aEvent);
}

void QtColorPickerButton::paintEvent(QPaintEvent* aEvent)
{
    QFrame::paintEvent(aEvent);
    QPainter painter(this);
    const QRect contents = contentsRect();
    painter.fillRect(contents, palette().button());
    painter.setPen(QPen(palette().buttonText().color(), 0));
    const int sunk = frameShadow() == QFrame::Sunken ? 1 : 0;
    const QPoint centre = contents.center() + QPoint(sunk, sunk);
    for (const int way : {-kDotDistance, 0, kDotDistance})
        painter.drawPoint(centre + QPoint(way, 0));
    if (hasFocus()) {
        painter.setPen(QPen(Qt::black, 0));
        painter.drawRect(0, 0, width() - 1, height() - 1);
    }
}
