#include "ElidedLabel.h"

#include <QStyle>
#include <QStylePainter>

ElidedLabel::ElidedLabel(QWidget* aParent) : QLabel(aParent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    const QRect room = contentsRect();
    const Qt::Alignment place = QStyle::visualAlignment(layoutDirection(), alignment());
    painter.drawItemText(room, int(place), palette(), isEnabled(),
                         fontMetrics().elidedText(text(), Qt::ElideRight, room.width()), foregroundRole());
}
