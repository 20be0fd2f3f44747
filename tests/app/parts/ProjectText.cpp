#include "ProjectText.h"

#include <QByteArrayList>

QByteArray ProjectText::project(const QByteArray& aPicture, const QByteArray& aCalibrations,
                                const QByteArray& aObjects, const QByteArray& aVersion)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<measuretools version=\"" + aVersion + "\">\n" +
           aPicture + "\n" + aCalibrations + "\n<objects>\n" + aObjects + "\n</objects>\n</measuretools>\n";
}

QByteArray ProjectText::picture(const QString& aPath, int aWidth, int aHeight)
{
    return QStringLiteral("<picture path=\"%1\" width=\"%2\" height=\"%3\" frame=\"0\" frames=\"1\"/>")
        .arg(aPath)
        .arg(aWidth)
        .arg(aHeight)
        .toUtf8();
}

QByteArray ProjectText::distance(int aIdx)
{
    return "<object type=\"1102\" index=\"" + QByteArray::number(aIdx) +
           "\" animated=\"false\">\n"
           "<param name=\"vis\" type=\"bool\"><default>true</default></param>\n"
           "<param name=\"col\" type=\"QColor\"><default>#ffff0000</default></param>\n"
           "<param name=\"dispv\" type=\"QString\"><default>Distance</default></param>\n"
           "<param name=\"pos\" type=\"QPoint\"><default>20 30</default></param>\n"
           "<param name=\"ep\" type=\"QPoint\"><default>10 10</default></param>\n"
           "</object>\n";
}

QByteArray ProjectText::RegionText::corners(const QByteArray& aAnchors)
{
    QByteArrayList points;
    for (const QByteArray& anchor : aAnchors.split(' '))
        points << anchor << anchor << anchor;
    return points.join(' ');
}

QByteArray ProjectText::RegionText::states(int aCount)
{
    return QByteArray("\xff\0\1", 3).repeated(aCount).toBase64();
}

QByteArray ProjectText::region(int aIdx, const RegionText& aText)
{
    const auto param = [](const char* aName, const char* aType, const QByteArray& aValue,
                          const QByteArray& aMore = QByteArray()) {
        return "<param name=\"" + QByteArray(aName) + "\" type=\"" + aType + "\"><default>" + aValue +
               "</default>" + aMore + "</param>\n";
    };
    return "<object type=\"1103\" index=\"" + QByteArray::number(aIdx) + "\" animated=\"" +
           (aText.theKeyframes.isEmpty() ? "false" : "true") + "\">\n" + param("vis", "bool", "true") +
           param("col", "QColor", "#ffff0000") + param("dispv", "QString", "Width") +
           param("cl", "bool", aText.theClosed) +
           param("pts", "QPolygon", aText.thePoints, aText.theKeyframes) +
           param("nst", "QByteArray", aText.theStates) + param("pos", "QPoint", aText.thePos) + "</object>\n";
}
