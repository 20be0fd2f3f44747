#include "RowIndex.h"
#include "TestFont.h"

#include <QRandomGenerator>

/// Rows by their keys, against a plain list that is read from its top.
class TestRowIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyIndexFindsNothing();
    void rowsMoveUpBehindARemovedOne();
    void firstOfSeveralEqualKeysIsFound();
    void randomSessionIsThatOfAList();
};

void TestRowIndex::emptyIndexFindsNothing()
{
    const RowIndex index;
    QCOMPARE(index.find(QStringLiteral("Region 1")), -1);
    QCOMPARE(index.find(QString()), -1);
}

void TestRowIndex::rowsMoveUpBehindARemovedOne()
{
    RowIndex index;
    for (const char* key : {"a 1", "b 1", "a 2"})
        index.append(key);
    index.remove(1, QStringLiteral("b 1"));
    QCOMPARE(index.find(QStringLiteral("a 1")), 0);
    QCOMPARE(index.find(QStringLiteral("b 1")), -1);
    QCOMPARE(index.find(QStringLiteral("a 2")), 1);
    QCOMPARE(index.find(QStringLiteral("a")), -1);
    index.append(QStringLiteral("b 1"));
    QCOMPARE(index.find(QStringLiteral("b 1")), 2);
}

void TestRowIndex::firstOfSeveralEqualKeysIsFound()
{
    RowIndex index;
    for (const char* key : {"x", "same", "same", "same"})
        index.append(key);
    QCOMPARE(index.find(QStringLiteral("same")), 1);
    index.remove(2, QStringLiteral("same"));
    QCOMPARE(index.find(QStringLiteral("same")), 1);
    index.remove(1, QStringLiteral("same"));
    QCOMPARE(index.find(QStringLiteral("same")), 1);
    index.remove(1, QStringLiteral("same"));
    QCOMPARE(index.find(QStringLiteral("same")), -1);
}

void TestRowIndex::randomSessionIsThatOfAList()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    RowIndex index;
    QStringList plain;
    for (int step = 0; step < 20000; ++step) {
        if (plain.isEmpty() || random.bounded(100) < 52) {
            const QString key = QStringLiteral("key %1").arg(random.bounded(60));
            index.append(key);
            plain.append(key);
        } else {
            const int row = random.bounded(int(plain.size()));
            index.remove(row, plain.takeAt(row));
        }
        const QString wanted = QStringLiteral("key %1").arg(random.bounded(60));
        QCOMPARE(index.find(wanted), int(plain.indexOf(wanted)));
    }
    QVERIFY(plain.size() > 60); // so that keys were there several times
}

MEASURE_TEST_MAIN(TestRowIndex)
#include "TestRowIndex.moc"
