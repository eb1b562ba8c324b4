#pragma once
// The main of every window test, and the files it works on: settings and data folders of the run's own, set before the
// application reads any, so that no test sees the user's files or what an earlier run left.
// (Qt's test mode would share one folder across every run and program.)
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace GuiTest {
// Points the program at copies, in dir, of the sample's people and of the built database.
inline bool useSampleFiles(const QTemporaryDir &dir)
{
    const QString people = dir.filePath(QStringLiteral("people.vcf"));
    const QString database = dir.filePath(QStringLiteral("values.bvdb"));
    QFile::copy(QStringLiteral(QUILLMERE_SOURCE_DIR "/examples/people.vcf"), people);
    QFile::setPermissions(people, QFile::ReadOwner | QFile::WriteOwner);
    qputenv("QUILLMERE_PEOPLE", people.toUtf8());
    qputenv("QUILLMERE_DATABASE", database.toUtf8());
    return QFile::exists(database) || QFile::copy(QStringLiteral(QUILLMERE_TEST_DATABASE), database);
}

inline QString samplePath()
{
    return QStringLiteral(QUILLMERE_SOURCE_DIR "/examples/sample.bondportfolio");
}
}

#define QUILLMERE_GUI_TEST_MAIN(TestClass)                                                          \
    int main(int argc, char **argv)                                                                 \
    {                                                                                               \
        QTemporaryDir home;                                                                         \
        qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/config")).toUtf8());             \
        qputenv("XDG_DATA_HOME", (home.path() + QStringLiteral("/data")).toUtf8());                 \
        QApplication app(argc, argv);                                                               \
        TestClass test;                                                                             \
        return QTest::qExec(&test, argc, argv);                                                     \
    }
