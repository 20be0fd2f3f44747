#ifndef ITEMMOUSE_H
#define ITEMMOUSE_H

#include "LmCvObject.h"

#include <QMouseEvent>

/// What the editor sends: an event that counts as ignored until the item accepts it.
struct Mouse : QMouseEvent
{
    Mouse(Type aType, const QPoint& aPoint, Qt::KeyboardModifiers aModifiers = {},
          Qt::MouseButton aButton = Qt::LeftButton)
        : QMouseEvent(aType, aPoint, aPoint, aType == MouseMove ? Qt::NoButton : aButton,
                      aType == MouseButtonRelease ? Qt::NoButton : aButton, aModifiers)
    {
        ignore();
    }
};

// Each tells whether the item took the event.

inline bool pressOn(LmCvObject& aItem, QPoint aPoint)
{
    Mouse event(QEvent::MouseButtonPress, aPoint);
    aItem.mousePressEvent(&event, aPoint);
    return event.isAccepted();
}

inline bool moveOn(LmCvObject& aItem, QPoint aPoint, Qt::KeyboardModifiers aModifiers = {})
{
    Mouse event(QEvent::MouseMove, aPoint, aModifiers);
    aItem.mouseMoveEvent(&event, aPoint);
    return event.isAccepted();
}

inline bool releaseOn(LmCvObject& aItem, QPoint aPoint)
{
    Mouse event(QEvent::MouseButtonRelease, aPoint);
    aItem.mouseReleaseEvent(&event, aPoint);
    return event.isAccepted();
}

#endif
