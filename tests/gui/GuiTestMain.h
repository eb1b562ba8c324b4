#pragma once
// The main of every window test: settings and data folders of the run's own, set before the
// application reads any, so that no test sees the user's files or what an earlier run left.
// (Qt's test mode would share one folder across every run and program.)
#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

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
