#include "MainWindow.h"
#include "model/UserDefaults.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QString::fromLatin1(UserDefaults::Organization));
    QApplication::setApplicationName(QString::fromLatin1(UserDefaults::Application));
    QApplication::setApplicationDisplayName(QStringLiteral("Quillmere"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLMERE_VERSION));
    UserDefaults::registerDefault(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey), true);

    MainWindow window;
    window.show();
    return app.exec();
}
