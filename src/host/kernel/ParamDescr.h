#ifndef PARAMDESCR_H
#define PARAMDESCR_H

#include <QMetaType>
#include <QString>

/// One parameter of an object type.
struct ParamDescr
{
    enum KeyframeType {
        kBlended = 0, // geometry: keyframes, with a value at every frame between them
        kHeld = 1,    // keyframes, and the last one holds
        kWhole = 2    // one value for the whole object
    };

    // Every object type begins with these parameters.
    static constexpr int kShown = 0;        // bool
    static constexpr int kColor = 1;        // QColor
    static constexpr int kDisplayValue = 2; // QString, the name of the value on the label

    QString theName;
    QMetaType::Type theType = QMetaType::UnknownType;
    KeyframeType theKeyframeType = kWhole;
};

#endif
