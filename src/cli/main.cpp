// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "CliCommand.h"
#include "ManPage.h"
#include "base/UserDefaults.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QRegularExpression>
#include <algorithm>
#include <cstdio>
#include <memory>

static QList<CliCommand> sortedCommands()
{
    QList<CliCommand> commands = CliCommand::all();
    std::sort(commands.begin(), commands.end(),
              [](const CliCommand &a, const CliCommand &b) { return a.name < b.name; });
    return commands;
}

static int usage(int status)
{
    QTextStream &out = status == 0 ? cliOut() : cliErr();
    out << CliText::tr("Usage: quillmere-cli COMMAND [OPTIONS]\n\nCommands:\n");
    for (const CliCommand &command : sortedCommands())
        out << "  " << CliText::tr(command.synopsis) << '\n';
    out << CliText::tr("\nRun 'quillmere-cli COMMAND --help' for the options of one command; "
                       "'quillmere-cli --version' prints\nthe version, 'quillmere-cli --man' the manual page.")
        << Qt::endl;
    return status;
}

// The manual page, quillmere-cli(1): every sub-command as its own --help describes it.
static int manualPage()
{
    const QString program = QStringLiteral("quillmere-cli");
    ManPage::Writer page(program, CliText::tr("savings bond values, portfolios, exports and updates from the command line"));
    page.section(ManPageText::tr("SYNOPSIS"));
    page.paragraph(program + CliText::tr(" COMMAND [OPTIONS] [ARGUMENTS]"));
    page.paragraph(program + QLatin1Char(' ')
                   + QStringList{QStringLiteral("--help"), QStringLiteral("--version"), QStringLiteral("--man")}.join(QStringLiteral(" | ")));
    page.section(ManPageText::tr("DESCRIPTION"));
    page.paragraph(CliText::tr("Values United States savings bonds (Series E, EE, I and Savings Notes) from the Treasury's "
                               "redemption values, shows, exports and imports the portfolios the window keeps, and "
                               "updates the redemption value database. Every sub-command takes --help."));
    page.section(CliText::tr("COMMANDS"));
    QString help;
    for (const CliCommand &command : sortedCommands()) {
        help.clear();
        cliOut().setString(&help);
        command.run({program + QLatin1Char(' ') + command.name, QStringLiteral("--help")});
        cliOut().flush();
        const ManPage::HelpText parts = ManPage::parseHelp(help);
        // The synopsis without the short description the usage list puts after it.
        static const QRegularExpression descriptionGap(QStringLiteral("\\s{2,}"));
        page.subsection(program + QLatin1Char(' ') + CliText::tr(command.synopsis).section(descriptionGap, 0, 0));
        page.paragraph(parts.description);
        page.entries(parts.options);
        page.entries(parts.arguments);
    }
    page.section(ManPageText::tr("EXIT STATUS"));
    page.entry(QStringLiteral("0"), CliText::tr("The command did what was asked (a check found nothing new counts too)."));
    page.entry(QStringLiteral("1"), CliText::tr("The command failed, or its options or arguments were wrong; "
                                                "standard error says why, as \"quillmere-cli: ...\"."));
    page.entry(QStringLiteral("2"), CliText::tr("No command, or one that does not exist, was named."));
    page.environmentAndFiles(QStringLiteral("quillmere(1)"));
    std::fputs(page.text().toUtf8().constData(), stdout);
    return 0;
}

int main(int argc, char *argv[])
{
    // A command that paints gets a graphical application, drawn off screen unless a platform is named.
    const CliCommand *named = argc > 1 ? CliCommand::find(QString::fromLocal8Bit(argv[1])) : nullptr;
    const bool paints = named && named->paints;
    if (paints && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::unique_ptr<QCoreApplication> application = paints ? std::make_unique<QGuiApplication>(argc, argv)
                                                                  : std::make_unique<QCoreApplication>(argc, argv);
    QCoreApplication &app = *application;
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
    if (name == QLatin1String("--man"))
        return manualPage();
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
