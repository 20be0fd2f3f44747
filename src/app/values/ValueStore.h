#ifndef VALUESTORE_H
#define VALUESTORE_H

#include "AnimatedValues.h"
#include "PictureValues.h"

#include <QObject>
#include <QSet>
#include <QTimer>

class Media;
class ValueSampler;

/// The values over time that are shown, worked out in short slices while the window goes on. What came from
/// records is worked out again when it has changed; what came from pictures only when asked for.
class ValueStore : public QObject
{
    Q_OBJECT

public:
    ValueStore(Media& aMedia, QObject* aParent);
    ~ValueStore() override;

    /// What is shown from now on, and worked out as far as it isn't there.
    void want(const QList<ValueKey>& aKeys);
    /// Null for what isn't there yet. A series that is just being worked out again is there in its old state.
    ValueSeriesPtr find(const ValueKey& aKey) const { return theSeries.value(aKey); }
    /// All that is up to date.
    QHash<ValueKey, ValueSeriesPtr> known() const;
    /// Whether something wanted is still being worked out.
    bool isWorking() const { return theSlice.isActive(); }
    /// What is wanted and needs the pictures to be read.
    QList<ValueKey> missingPictures() const;
    /// Whether the missing values come as quickly as others, as far as is known from reading them before.
    bool arePicturesQuick() const;
    /// Reads the pictures; false when aProgress has stopped it.
    bool readPictures(const PictureValues::Progress& aProgress);

Q_SIGNALS:
    /// There are other objects, values or colors than before; told once for all that happens at a time.
    void changed();
    /// The pictures are about to be read.
    void aboutToRead();

private:
    struct Job;

    void forget(int aType, int aIdx);
    void forgetAll();
    void forgetEverything();
    void restart();
    void work();
    bool startJob();
    void finishJob();

    Media& theMedia;
    QList<ValueKey> theWanted;
    QHash<ValueKey, ValueSeriesPtr> theSeries;
    QSet<ValueKey> theStale; // have to be worked out again
    QList<ObjectValues> theQueue;
    std::unique_ptr<Job> theJob;
    QTimer theSlice;
    QTimer theNews;
    qint64 thePictureTime = -1; // ms that reading the media took, -1 before
};

#endif
