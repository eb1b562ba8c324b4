#pragma once
// Sub-commands of quillmere-cli. Each lives in a file of its own and registers itself with a
// static CliCommand::Registration, so main() needs no list of them.
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <functional>

struct CliCommand
{
    QString name;
    QString synopsis; // one line for the usage text
    // Receives the arguments after the sub-command name (argument 0 is "quillmere-cli NAME").
    std::function<int(const QStringList &arguments)> run;

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
