#ifndef CANVASEVENT_H
#define CANVASEVENT_H

#include <QMouseEvent>

/// Mouse events of the viewport as tools and items get them: with canvas coordinates for their position.
namespace CanvasEvent {

inline QMouseEvent at(const QMouseEvent& aEvent, const QPoint& aCanvasPoint)
{
    return QMouseEvent(aEvent.type(), aCanvasPoint, aCanvasPoint, aEvent.globalPosition(), aEvent.button(),
                       aEvent.buttons(), aEvent.modifiers(), aEvent.pointingDevice());
}

/// A press of the button, whatever event it is made of.
inline QMouseEvent press(const QMouseEvent& aEvent, const QPoint& aCanvasPoint, Qt::MouseButton aButton)
{
    return QMouseEvent(QEvent::MouseButtonPress, aCanvasPoint, aCanvasPoint, aEvent.globalPosition(), aButton,
                       aEvent.buttons() | aButton, aEvent.modifiers(), aEvent.pointingDevice());
}

/// Whether the event carries the modifier, in the union of buttons and modifiers after the event.
inline bool holds(const QMouseEvent& aEvent, Qt::KeyboardModifier aModifier)
{
    return ((uint(aEvent.buttons()) | uint(aEvent.modifiers())) & uint(aModifier)) != 0;
}

} // namespace CanvasEvent

#endif
