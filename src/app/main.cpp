// quillmere [FILE...]: one window per portfolio named, or a new portfolio when none is.
#include "DocumentManager.h"
#include "PortfolioWindow.h"
#include "UpdateCheckScheduler.h"
#include "base/UserDefaults.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QString::fromLatin1(UserDefaults::Organization));
    QApplication::setApplicationName(QString::fromLatin1(UserDefaults::Application));
    QApplication::setApplicationDisplayName(QStringLiteral("Quillmere"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLMERE_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("quillmere"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/quillmere.svg")));
    // Fallbacks only: registered on every start, never written to the user's settings.
    UserDefaults::registerDefault(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey), true);
    UserDefaults::registerDefault(QString::fromLatin1(UserDefaults::DefaultBondSeriesKey), QStringLiteral("N"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate("main", "Keeps track of United States savings bonds."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("file"),
                                 QCoreApplication::translate("main", "Portfolios to open (.bondportfolio)."),
                                 QStringLiteral("[FILE...]"));
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
