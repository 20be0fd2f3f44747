#include "CommandLine.h"

namespace {

const QLatin1String kScaleBar("--scale-bar");

struct Option
{
    const char* theName;
    CommandLine::Action theAction;
    int theFiles; // how many file names it takes
};

const Option kOptions[] = {
    {"--values", CommandLine::kValues, 1},
    {"--export", CommandLine::kExport, 2},
    {"--values-over-time", CommandLine::kValuesOverTime, 1},
    {"--render", CommandLine::kRender, 2},
    {"--help", CommandLine::kHelp, 0},
    {"-h", CommandLine::kHelp, 0},
    {"--version", CommandLine::kVersion, 0},
    {"-v", CommandLine::kVersion, 0},
};

const Option* findOption(const QString& aArgument)
{
    for (const Option& option : kOptions)
        if (aArgument == QLatin1String(option.theName))
            return &option;
    return nullptr;
}

/// The arguments sorted into options and files; behind "--" everything is a file.
void sortArguments(const QStringList& aArguments, QStringList& aOptions, QStringList& aFiles)
{
    bool onlyFiles = false;
    for (const QString& argument : aArguments) {
        if (!onlyFiles && argument == QLatin1String("--"))
            onlyFiles = true;
        else if (!onlyFiles && argument.startsWith(QLatin1Char('-')) && argument.size() > 1)
            aOptions << argument;
        else
            aFiles << argument;
    }
}

CommandLine wrong(const QString& aText)
{
    CommandLine line;
    line.theAction = CommandLine::kError;
    line.theText = CommandLine::tr("%1; see measuretools --help.").arg(aText);
    return line;
}

} // namespace

CommandLine CommandLine::parse(const QStringList& aArguments)
{
    QStringList options;
    QStringList files;
    sortArguments(aArguments, options, files);
    const bool scaleBar = options.removeAll(kScaleBar) > 0;
    if (options.size() > 1)
        return wrong(tr("%1 and %2 can't go together").arg(options[0], options[1]));

    CommandLine line;
    qsizetype wanted = qMin(files.size(), qsizetype(1));
    if (!options.isEmpty()) {
        const Option* option = findOption(options[0]);
        if (!option)
            return wrong(tr("There is no option %1").arg(options[0]));
        line.theAction = option->theAction;
        wanted = option->theFiles;
    }
    if (scaleBar && line.theAction != kRender)
        return wrong(tr("%1 goes together with --render only").arg(kScaleBar));
    line.theScaleBar = scaleBar;
    if (files.size() > wanted)
        return wrong(tr("There is one file too many, %1").arg(files[wanted]));
    if (files.size() < wanted)
        return wrong(tr("%1 needs %n file name(s)", nullptr, int(wanted)).arg(options[0]));
    if (files.contains(QString()))
        return wrong(tr("A file name is empty"));
    line.theInput = files.value(0);
    line.theOutput = files.value(1);
    return line;
}

QString CommandLine::versionText()
{
    return QStringLiteral("MeasureTools " MEASURETOOLS_VERSION);
}

QString CommandLine::helpText()
{
    return tr(
        "Measuring on images.\n"
        "\n"
        "measuretools [FILE]                 open a picture or a project in a window\n"
        "measuretools --values FILE          print the values of all objects, separated by tabs\n"
        "measuretools --values-over-time FILE\n"
        "                                    print those of the animated objects on all frames (CSV)\n"
        "measuretools --export FILE OUT.txt  write the table of all objects, as the window exports it\n"
        "measuretools --render FILE OUT.png  write the picture with the objects burned in\n"
        "             [--scale-bar]          ... and with a scale bar in its lower left corner\n"
        "measuretools --help                 print this text\n"
        "measuretools --version              print the version\n"
        "\n"
        "FILE is a project (.mtp) or a picture. Only the first form needs a display. The exit status is 0,\n"
        "or 2 with one line on standard error that tells what is wrong. With 0 there may be such lines\n"
        "too, for what isn't as it should be but stops nothing: a picture that is missing, a video that\n"
        "is cut off.\n");
}
