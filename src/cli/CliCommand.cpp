// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "CliCommand.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

QList<CliCommand> &CliCommand::all()
{
    static QList<CliCommand> commands;
    return commands;
}

const CliCommand *CliCommand::find(const QString &name)
{
    for (const CliCommand &command : all()) {
        if (command.name == name)
            return &command;
    }
    return nullptr;
}

CliCommand::Registration::Registration(CliCommand command)
{
    all().append(std::move(command));
}

QTextStream &cliOut()
{
    static QTextStream stream(stdout);
    return stream;
}

QTextStream &cliErr()
{
    static QTextStream stream(stderr);
    return stream;
}

int cliFail(const QString &message)
{
    cliOut().flush();
    cliErr() << "quillmere-cli: " << message << Qt::endl;
    return 1;
}

namespace {

// The parser's help names the program file; a sub-command's help names the sub-command.
QString helpText(const QCommandLineParser &parser, const QString &command, const QString &usage)
{
    QString text = parser.helpText();
    const qsizetype lineEnd = text.indexOf(QLatin1Char('\n'));
    // The parser's own words, so that its translation serves both.
    const QString usageLine = QCoreApplication::translate("QCommandLineParser", "Usage: %1");
    const QString programUsage = usageLine.arg(QCoreApplication::arguments().constFirst());
    if (lineEnd < 0 || !text.startsWith(programUsage))
        return text;
    const QString rest = usage.isEmpty() ? text.mid(programUsage.size(), lineEnd - programUsage.size())
                                         : QLatin1Char(' ') + usage;
    return usageLine.arg(command) + rest + text.mid(lineEnd);
}

} // namespace

bool parseArguments(QCommandLineParser &parser, const QStringList &arguments, const PositionalCount &positionals,
                    const QString &usage, int *exitStatus)
{
    parser.addHelpOption();
    if (!parser.parse(arguments)) {
        *exitStatus = cliFail(parser.errorText());
        return false;
    }
    if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all"))) {
        cliOut() << helpText(parser, arguments.value(0), usage);
        *exitStatus = 0;
        return false;
    }
    const QStringList given = parser.positionalArguments();
    if (given.size() < positionals.minimum) {
        *exitStatus = cliFail(positionals.tooFew);
        return false;
    }
    if (given.size() > positionals.maximum) {
        *exitStatus = cliFail(positionals.tooMany.isEmpty()
                                  ? CliText::tr("unexpected argument '%1'").arg(given.at(positionals.maximum))
                                  : positionals.tooMany);
        return false;
    }
    return true;
}
