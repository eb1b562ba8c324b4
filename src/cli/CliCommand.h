// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Sub-commands of quillmere-cli. Each lives in a file of its own and registers itself with a
// static CliCommand::Registration, so main() needs no list of them.
#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <functional>
#include <limits>

class QCommandLineParser;

// The command line's words, under one translation context.
class CliText
{
    Q_DECLARE_TR_FUNCTIONS(CliText)
};

struct CliCommand
{
    QString name;
    const char *synopsis; // one line for the usage text, marked with QT_TRANSLATE_NOOP("CliText", ...)
    // Receives the arguments after the sub-command name (argument 0 is "quillmere-cli NAME").
    std::function<int(const QStringList &arguments)> run;
    // Whether the command paints pages (fonts, PDF), which needs a graphical application; the
    // others run on a core one, with no display or platform plugin at all.
    bool paints = false;

    static QList<CliCommand> &all();
    static const CliCommand *find(const QString &name);

    struct Registration
    {
        explicit Registration(CliCommand command);
    };
};

QTextStream &cliOut();
QTextStream &cliErr();

// Prints "quillmere-cli: message" on standard error and returns the failure status.
int cliFail(const QString &message);

// How many positional arguments a sub-command takes, and what it says when it gets another number.
struct PositionalCount
{
    static constexpr int Unlimited = std::numeric_limits<int>::max();

    int minimum = 0;
    int maximum = 0;
    QString tooFew;
    QString tooMany; // empty: "unexpected argument 'FIRST ONE TOO MANY'"

    static PositionalCount none() { return {}; }
    static PositionalCount exactly(int count, const QString &complaint) { return {count, count, complaint, complaint}; }
    static PositionalCount atLeast(int count, const QString &complaint) { return {count, Unlimited, complaint, {}}; }
};

// Adds the help option to the parser and parses a sub-command's arguments. --help (or
// --help-all) prints the help, whose usage line names the sub-command and goes on with usage
// when one is given (otherwise with the parser's own "[options] ARGUMENTS"). Unknown options,
// options without their value and a wrong number of positional arguments are complained about on
// standard error. Returns true when the sub-command is to go on; otherwise false, with *exitStatus
// set to what the sub-command returns (0 after the help).
bool parseArguments(QCommandLineParser &parser, const QStringList &arguments, const PositionalCount &positionals,
                    const QString &usage, int *exitStatus);
