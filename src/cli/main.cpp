#include "CliCommand.h"
#include "base/UserDefaults.h"

#include <QCoreApplication>
#include <algorithm>

static int usage(int status)
{
    QTextStream &out = status == 0 ? cliOut() : cliErr();
    out << CliText::tr("Usage: quillmere-cli COMMAND [OPTIONS]\n\nCommands:\n");
    QList<CliCommand> commands = CliCommand::all();
    std::sort(commands.begin(), commands.end(),
              [](const CliCommand &a, const CliCommand &b) { return a.name < b.name; });
    for (const CliCommand &command : commands)
        out << "  " << CliText::tr(command.synopsis) << '\n';
    out << CliText::tr("\nRun 'quillmere-cli COMMAND --help' for the options of one command.") << Qt::endl;
    return status;
}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QString::fromLatin1(UserDefaults::Organization));
    QCoreApplication::setApplicationName(QString::fromLatin1(UserDefaults::Application));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUILLMERE_VERSION));

    QStringList arguments = app.arguments();
    if (arguments.size() < 2)
        return usage(2);
    const QString name = arguments.at(1);
    if (name == QLatin1String("--help") || name == QLatin1String("-h") || name == QLatin1String("help"))
        return usage(0);
    if (name == QLatin1String("--version")) {
        cliOut() << "quillmere-cli " << QUILLMERE_VERSION << Qt::endl;
        return 0;
    }
    const CliCommand *command = CliCommand::find(name);
    if (!command) {
        cliErr() << CliText::tr("quillmere-cli: unknown command '%1'\n").arg(name);
        return usage(2);
    }
    arguments.removeFirst();
    arguments[0] = QStringLiteral("quillmere-cli ") + name;
    const int status = command->run(arguments);
    cliOut().flush();
    cliErr().flush();
    return status;
}
