#include "Q3Header.h"

#include <algorithm>

Q3Header::Q3Header(Qt::Orientation aOrientation, QWidget* aParent) : QHeaderView(aOrientation, aParent)
{
    setSectionsClickable(true);
    setHighlightSections(true);
    if (aOrientation == Qt::Vertical)
        setSectionResizeMode(QHeaderView::Fixed);
    connect(this, &QHeaderView::sectionMoved, this, &Q3Header::indexChange);
}

Q3Header::~Q3Header() = default;

QString Q3Header::label(int aSection) const
{
    return model() ? model()->headerData(aSection, orientation(), Qt::DisplayRole).toString() : QString();
}

void Q3Header::setLabel(int aSection, const QString& aText, int aSize)
{
    if (!model() || !model()->setHeaderData(aSection, orientation(), aText, Qt::DisplayRole))
        return;
    if (aSize >= 0)
        resizeSection(aSection, aSize);
    if (orientation() == Qt::Horizontal)
        return;
    const int width = sectionSizeFromContents(aSection).width();
    if (width > theWidth) {
        theWidth = width;
        updateGeometry();
        Q_EMIT geometriesChanged();
    }
}

int Q3Header::mapToSection(int aPosition) const
{
    return logicalIndex(aPosition);
}

int Q3Header::mapToIndex(int aSection) const
{
    return visualIndex(aSection);
}

QSize Q3Header::sizeHint() const
{
    if (orientation() == Qt::Horizontal)
        return QHeaderView::sizeHint();
    return QSize(std::max(theWidth, minimumSectionSize()), 0);
}
