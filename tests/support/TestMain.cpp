// Test programs run inside a QCoreApplication (queued signals, settings) with test-mode standard
// paths and settings, so that no test reads or writes the user's own files.
#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/config")).toLocal8Bit());
    qputenv("XDG_DATA_HOME", (home.path() + QStringLiteral("/data")).toLocal8Bit());
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("larchfield"));
    QCoreApplication::setApplicationName(QStringLiteral("Quillmere"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
