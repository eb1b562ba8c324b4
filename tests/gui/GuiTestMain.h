#pragma once
// The main of every window test: a folder of the run's own for settings, data and copies of the
// sample's people and of the built database, set before the application reads any, so that no
// test sees the user's files or what an earlier run left. (Qt's test mode would share one folder
// across every run and program.) Helpers for the sample portfolio's window.
#include "DocumentManager.h"
#include "PortfolioWindow.h"
#include "document/BondPortfolio.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace GuiTest {
inline QString path(const QString &name)
{
    static QTemporaryDir home;
    return home.filePath(name);
}

inline QString samplePath()
{
    return QStringLiteral(QUILLMERE_SOURCE_DIR "/examples/sample.bondportfolio");
}

inline PortfolioWindow *openSample()
{
    return DocumentManager::instance().openFile(samplePath());
}

// Closes every window without asking about unsaved changes.
inline void discardWindows()
{
    for (PortfolioWindow *window : DocumentManager::instance().windows()) {
        window->portfolio()->markSaved();
        delete window;
    }
}

inline void useRunFolders()
{
    qputenv("XDG_CONFIG_HOME", path(QStringLiteral("config")).toUtf8());
    qputenv("XDG_DATA_HOME", path(QStringLiteral("data")).toUtf8());
    const QString people = path(QStringLiteral("people.vcf")), database = path(QStringLiteral("values.bvdb"));
    QFile::copy(QStringLiteral(QUILLMERE_SOURCE_DIR "/examples/people.vcf"), people);
    QFile::copy(QStringLiteral(QUILLMERE_TEST_DATABASE), database);
    for (const QString &file : {people, database})
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
    qputenv("QUILLMERE_PEOPLE", people.toUtf8());
    qputenv("QUILLMERE_DATABASE", database.toUtf8());
}
}

#define QUILLMERE_GUI_TEST_MAIN(TestClass)                                                          \
    int main(int argc, char **argv)                                                                 \
    {                                                                                               \
        GuiTest::useRunFolders();                                                                   \
        QApplication app(argc, argv);                                                               \
        TestClass test;                                                                             \
        return QTest::qExec(&test, argc, argv);                                                     \
    }
