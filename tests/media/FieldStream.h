#ifndef FIELDSTREAM_H
#define FIELDSTREAM_H

#include <QByteArray>
#include <QSize>

/// H.264 of interlaced frames, each in two pictures of one field, as cameras write it and no encoder here
/// does. Blocks of 16 x 32 pixels carry the frame's number uncompressed, so that a frame is 128 x 128 pixels.
class FieldStream
{
public:
    static QSize size();
    /// What a decoder needs before the first field.
    static QByteArray parameterSets();

    explicit FieldStream(int aGroupSize);

    /// The even or odd rows of a frame; the fields have to be asked for one after the other.
    QByteArray field(int aNumber, bool aIsBottom) const;
    bool isKey(int aNumber) const { return aNumber % theGroupSize == 0; }

private:
    int theGroupSize;
};

#endif
