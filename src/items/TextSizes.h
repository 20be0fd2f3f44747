#ifndef TEXTSIZES_H
#define TEXTSIZES_H

#include <QFont>
#include <QHash>
#include <QSize>
#include <QString>

#include <list>

/// Sizes of upright texts, each measured once per font: taking the first of ten thousand numbered labels away
/// gives all others a text that another one had before. The store is bounded.
class TextSizes
{
public:
    /// The one store; for the GUI thread, as all measuring is.
    static TextSizes& getInstance();

    /// The pixels that the text takes, as QFontMetrics tells for text at the left and the bottom of a
    /// rectangle.
    QSize sizeOf(const QString& aText, const QFont& aFont);

private:
    struct Face
    {
        QFont theFont;
        QHash<QString, QSize> theSizes;
    };

    TextSizes() = default;
    Face& faceOf(const QFont& aFont);

    std::list<Face> theFaces; // the one used last stands first
};

#endif
