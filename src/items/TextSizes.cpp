#include "TextSizes.h"

#include <QFontMetrics>

#include <algorithm>

namespace {

// A label in the making takes two fonts, and a zoom brings new ones.
constexpr std::size_t kMaxFaces = 4;
constexpr qsizetype kMaxTexts = 20'000; // of one font

} // namespace

TextSizes& TextSizes::getInstance()
{
    static TextSizes sizes;
    return sizes;
}

QSize TextSizes::sizeOf(const QString& aText, const QFont& aFont)
{
    QHash<QString, QSize>& sizes = faceOf(aFont).theSizes;
    const QSize known = sizes.value(aText); // invalid for a new text
    if (known.isValid())
        return known;
    if (sizes.size() >= kMaxTexts)
        sizes.clear();
    const QSize size =
        QFontMetrics(aFont).boundingRect(QRect(), Qt::AlignLeft | Qt::AlignBottom, aText).size();
    sizes.insert(aText, size);
    return size;
}

TextSizes::Face& TextSizes::faceOf(const QFont& aFont)
{
    const auto known = std::find_if(theFaces.begin(), theFaces.end(),
                                    [&aFont](const Face& aFace) { return aFace.theFont == aFont; });
    if (known == theFaces.end()) {
        if (theFaces.size() >= kMaxFaces)
            theFaces.pop_back();
        theFaces.push_front({aFont, {}});
    } else {
        theFaces.splice(theFaces.begin(), theFaces, known);
    }
    return theFaces.front();
}
