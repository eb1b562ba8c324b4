// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// quillmere [FILE...]: one window per portfolio named, or a new portfolio when none is.
#include "DocumentManager.h"
#include "ManPage.h"
#include "PortfolioWindow.h"
#include "UpdateCheckScheduler.h"
#include "base/UserDefaults.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <cstdio>
#include <cstring>

namespace {

void describeCommandLine(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QCoreApplication::translate("main", "Keeps track of United States savings bonds."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("file"),
                                 QCoreApplication::translate("main", "Portfolios to open (.bondportfolio)."),
                                 QStringLiteral("[FILE...]"));
}

// quillmere(1), from the options --help lists. Needs no display: the build writes it.
int manualPage(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(QUILLMERE_VERSION));
    QCommandLineParser parser;
    describeCommandLine(parser);
    const ManPage::HelpText help = ManPage::parseHelp(parser.helpText());
    ManPage::Writer page(QStringLiteral("quillmere"), QCoreApplication::translate("main", "the savings bond portfolio window"));
    page.section(ManPageText::tr("SYNOPSIS"));
    // The usage line names the program as it was started; the page names it as installed.
    page.paragraph(QStringLiteral("quillmere") + QLatin1Char(' ') + help.usage.section(QLatin1Char(' '), 1));
    page.section(ManPageText::tr("DESCRIPTION"));
    page.paragraph(help.description);
    page.paragraph(QCoreApplication::translate(
        "main", "Opens one window per portfolio named, or a new portfolio when none is; a portfolio already open raises "
                "its window. The window values every bond as of a chosen month, totals the portfolio, shows the "
                "interest per tax year, prints, exports CSV and QIF, imports CSV, and updates the redemption values. "
                "Help > Quillmere Help (F1) is its manual."));
    page.section(ManPageText::tr("OPTIONS"));
    page.entries(help.options);
    page.entries(help.arguments);
    page.section(ManPageText::tr("EXIT STATUS"));
    page.entry(QStringLiteral("0"), QCoreApplication::translate("main", "The last window was closed, or --help or --version was given."));
    page.entry(QStringLiteral("1"), QCoreApplication::translate("main", "An unknown option was given."));
    page.environmentAndFiles(QStringLiteral("quillmere-cli(1)"));
    std::fputs(page.text().toUtf8().constData(), stdout);
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 2 && std::strcmp(argv[1], "--man") == 0)
        return manualPage(argc, argv);
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QString::fromLatin1(UserDefaults::Organization));
    QApplication::setApplicationName(QString::fromLatin1(UserDefaults::Application));
    QApplication::setApplicationDisplayName(QStringLiteral("Quillmere"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLMERE_VERSION));
    // The application ID: Wayland matches windows to the desktop file, and so the icon, by it.
    QApplication::setDesktopFileName(QStringLiteral(QUILLMERE_APP_ID));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/" QUILLMERE_APP_ID ".svg")));
    // Fallbacks only: registered on every start, never written to the user's settings.
    UserDefaults::registerDefault(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey), true);
    UserDefaults::registerDefault(QString::fromLatin1(UserDefaults::DefaultBondSeriesKey), QStringLiteral("N"));

    QCommandLineParser parser;
    describeCommandLine(parser);
    parser.process(app);

    DocumentManager &documents = DocumentManager::instance();
    for (const QString &path : parser.positionalArguments())
        documents.openFile(path);
    // Nothing opened (no file named, or none could be read): a new portfolio to start from.
    if (documents.windows().isEmpty())
        documents.newDocument();
    // Once the windows are up: a look for new redemption values, in the background.
    QMetaObject::invokeMethod(&app, [] { UpdateCheckScheduler::instance().start(); }, Qt::QueuedConnection);
    return app.exec();
}
