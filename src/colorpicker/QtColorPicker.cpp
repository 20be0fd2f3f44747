#include "QtColorPicker.h"

#include "QtColorPickerPopup.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace {

/// The point, or the nearest one at which the popup is wholly on the screen.
QPoint onScreen(const QPoint& aPoint, const QSize& aSize)
{
    const QScreen* screen = QGuiApplication::screenAt(aPoint);
    if (!screen)
        return aPoint;
    const QRect area = screen->availableGeometry();
    return {std::max(area.left(), std::min(aPoint.x(), area.right() + 1 - aSize.width())),
            std::max(area.top(), std::min(aPoint.y(), area.bottom() + 1 - aSize.height()))};
}

} // namespace

QColor QtColorPicker::getColor(const QPoint& aPoint, bool aAllowCustomColors)
{
    const struct
    {
        Qt::GlobalColor theColor;
        const char* theText;
    } kColors[] = {
        {Qt::black, QT_TR_NOOP("Black")},
        {Qt::white, QT_TR_NOOP("White")},
        {Qt::red, QT_TR_NOOP("Red")},
        {Qt::darkRed, QT_TR_NOOP("Dark red")},
        {Qt::green, QT_TR_NOOP("Green")},
        {Qt::darkGreen, QT_TR_NOOP("Dark green")},
        {Qt::blue, QT_TR_NOOP("Blue")},
        {Qt::darkBlue, QT_TR_NOOP("Dark blue")},
        {Qt::cyan, QT_TR_NOOP("Cyan")},
        {Qt::darkCyan, QT_TR_NOOP("Dark cyan")},
        {Qt::magenta, QT_TR_NOOP("Magenta")},
        {Qt::darkMagenta, QT_TR_NOOP("Dark magenta")},
        {Qt::yellow, QT_TR_NOOP("Yellow")},
        {Qt::darkYellow, QT_TR_NOOP("Dark yellow")},
        {Qt::gray, QT_TR_NOOP("Gray")},
        {Qt::darkGray, QT_TR_NOOP("Dark gray")},
        {Qt::lightGray, QT_TR_NOOP("Light gray")},
    };
    QtColorPickerPopup popup(-1, aAllowCustomColors, nullptr);
    int index = 0;
    for (const auto& [color, text] : kColors)
        popup.insertColor(color, tr(text), index++);
    popup.move(onScreen(aPoint, popup.sizeHint()));
    popup.exec();
    return popup.lastSelected();
}
