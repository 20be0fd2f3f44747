#ifndef QTCOLORPICKER_H
#define QTCOLORPICKER_H

#include <QColor>
#include <QCoreApplication>

class QPoint;

/// Asks for a colour with a small popup.
class QtColorPicker
{
    Q_DECLARE_TR_FUNCTIONS(QtColorPicker)

public:
    /// Shows 17 colours at a point of the screen, as far as they fit there, and a button for all others if
    /// aAllowCustomColors. A popup that is closed without a choice gives black.
    static QColor getColor(const QPoint& aPoint, bool aAllowCustomColors);
};

#endif
