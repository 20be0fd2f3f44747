#ifndef Q3HEADER_H
#define Q3HEADER_H

#include <QHeaderView>

/// A header of a table. A section is a row or a column of the table; its position is where it stands on the
/// screen, which a user can change by moving a heading.
class Q3Header : public QHeaderView
{
    Q_OBJECT

public:
    Q3Header(Qt::Orientation aOrientation, QWidget* aParent);
    ~Q3Header() override;

    /// A null string for a section that isn't there or has no label.
    QString label(int aSection) const;
    /// aSize is the section's new size in pixels; -1 keeps it.
    void setLabel(int aSection, const QString& aText, int aSize = -1);
    int mapToSection(int aPosition) const; // -1 for a position that isn't there
    int mapToIndex(int aSection) const;    // -1 for a section that isn't there

    QSize sizeHint() const override;

Q_SIGNALS:
    /// A heading was moved.
    void indexChange(int aSection, int aFromPosition, int aToPosition);

private:
    // The width for the longest label so far: asking all rows for theirs would cost as much as they are many.
    int theWidth = 0; // pixels, of a vertical header
};

#endif
