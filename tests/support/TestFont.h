#ifndef TESTFONT_H
#define TESTFONT_H

#include <QtTest>

/// Puts the font of the labels in place, as the program does at its start.
void useTestFont();

/// The name of the family that the label font really resolves to.
QString resolvedLabelFamily();

/// Like QTEST_MAIN, with the label font set up first.
#define MEASURE_TEST_MAIN(TestClass)                                                                         \
    int main(int aCount, char* aArguments[])                                                                 \
    {                                                                                                        \
        QApplication application(aCount, aArguments);                                                        \
        useTestFont();                                                                                       \
        if (resolvedLabelFamily() != QLatin1String("DejaVu Sans"))                                           \
            qFatal("the label font is missing: install fonts-dejavu-core");                                  \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, aCount, aArguments);                                                      \
    }

#endif
