#ifndef TESTFONT_H
#define TESTFONT_H

#include <QtTest>

/// Puts the font of the labels in place, as the program does at its start.
void useTestFont();

/// The name of the family that the label font really resolves to.
QString resolvedLabelFamily();

/// Waits a moment for threads that are just ending, as the watchdog of the test library: what they still hold
/// would look like a leak.
void awaitOtherThreads();

/// Like QTEST_MAIN, with the label font set up first.
#define MEASURE_TEST_MAIN(TestClass)                                                                         \
    int main(int aCount, char* aArguments[])                                                                 \
    {                                                                                                        \
        QApplication application(aCount, aArguments);                                                        \
        useTestFont();                                                                                       \
        if (resolvedLabelFamily() != QLatin1String("DejaVu Sans"))                                           \
            qFatal("the label font is missing: install fonts-dejavu-core");                                  \
        TestClass test;                                                                                      \
        const int result = QTest::qExec(&test, aCount, aArguments);                                          \
        awaitOtherThreads();                                                                                 \
        return result;                                                                                       \
    }

#endif
