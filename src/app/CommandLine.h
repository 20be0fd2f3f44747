#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/// What the program was asked to do.
struct CommandLine
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    enum Action {
        kWindow,         // open theInput, or the sample without one
        kValues,         // print the values of theInput
        kValuesOverTime, // print those of all frames as comma-separated text
        kRender,         // write the picture of theInput to theOutput
        kExport,         // write the table of theInput's objects to theOutput
        kHelp,
        kVersion,
        kError // theText tells what is wrong
    };

    Action theAction = kWindow;
    QString theInput;
    QString theOutput;
    QString theText;
    bool theScaleBar = false; // in the written picture

    /// Reads the arguments without the program's name. It never exits by itself.
    static CommandLine parse(const QStringList& aArguments);
    bool needsWindow() const { return theAction == kWindow; }
    static QString helpText();
    /// The program's name and version.
    static QString versionText();
};

#endif
