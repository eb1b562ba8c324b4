// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Test programs run in a QCoreApplication with settings and data folders of their own, never the user's.
#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/config")).toLocal8Bit());
    qputenv("XDG_DATA_HOME", (home.path() + QStringLiteral("/data")).toLocal8Bit());
    // No test reaches beyond this machine unless it names its own server.
    qputenv("QUILLMERE_FISCAL_DATA_URL", "http://127.0.0.1:9/");
    qputenv("QUILLMERE_UPDATE_URL", "http://127.0.0.1:9/");
    QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("larchfield"));
    QCoreApplication::setApplicationName(QStringLiteral("Quillmere"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
