// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Shared helpers for the core tests.
#include <QByteArray>
#include <QString>
#include <QStringList>

namespace TestSupport {
// A private copy of the built database in a fresh temporary folder: the build's own file is the seed and stays untouched.
QString copyOfShippedDatabase();
// A fresh, empty temporary folder that lives until the test program exits.
QString temporaryDirectory();
// An empty database with the schema and nothing in it, in a temporary folder.
QString emptyDatabase();
// Path of a file under the source tree.
QString sourcePath(const QString &relative);
// The official value files, oldest first, the Series I CSV last; named files may be left out.
QStringList repositorySources(const QStringList &leaveOut = {});
// A whole file's bytes (empty if it cannot be read); writing returns the path.
QByteArray readFile(const QString &path);
QString writeFile(const QString &path, const QByteArray &bytes);

struct ProcessResult
{
    int exitCode = -1;
    QByteArray standardOutput, standardError;
};
// Runs quillmere-cli with the arguments, optional extra environment ("NAME=value").
ProcessResult runCli(const QStringList &arguments, const QStringList &environment = {});
}
