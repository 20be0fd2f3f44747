#include "ColorPickerItem.h"

#include <QPainter>

namespace {

constexpr QSize kSwatchSize(24, 21); // pixels

} // namespace

ColorPickerItem::ColorPickerItem(const QColor& aColor, const QString& aText, QWidget* aParent)
    : QFrame(aParent), theColor(aColor), theText(aText)
{
    setFixedSize(kSwatchSize);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setToolTip(aText);
    setAccessibleName(aText);
}

ColorPickerItem::~ColorPickerItem() = default;

void ColorPickerItem::setSelected(bool aOn)
{
    if (theSelected == aOn)
        return;
    theSelected = aOn;
    update();
}

void ColorPickerItem::mousePressEvent(QMouseEvent*)
{
    setFocus();
}

void ColorPickerItem::mouseMoveEvent(QMouseEvent*)
{
    setFocus();
}

// The swatch on which the button went down is chosen, wherever it is let go.
void ColorPickerItem::mouseReleaseEvent(QMouseEvent*)
{
    setSelected(true);
    Q_EMIT selected();
}

void ColorPickerItem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int w = width();
    const int h = height();
    if (theSelected) {
        painter.setPen(QPen(Qt::gray, 0));
        painter.drawRect(1, 1, w - 3, h - 3);
    }
    painter.setPen(QPen(Qt::black, 0));
    painter.drawRect(3, 3, w - 7, h - 7);
    painter.fillRect(4, 4, w - 8, h - 8, theColor);
    if (hasFocus())
        painter.drawRect(0, 0, w - 1, h - 1);
}
