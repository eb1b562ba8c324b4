#include "CliCommand.h"

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
