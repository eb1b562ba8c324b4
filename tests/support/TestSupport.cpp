// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestSupport.h"

#include "valuation/RedemptionDatabase.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <memory>
#include <sqlite3.h>
#include <vector>

namespace TestSupport {

QString temporaryDirectory()
{
    static std::vector<std::unique_ptr<QTemporaryDir>> dirs;
    dirs.push_back(std::make_unique<QTemporaryDir>());
    return dirs.back()->path();
}

QString copyOfShippedDatabase()
{
    const QString target = temporaryDirectory() + QStringLiteral("/bondvalues.bvdb");
    QFile::copy(QStringLiteral(QUILLMERE_TEST_DATABASE), target);
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    return target;
}

QString emptyDatabase()
{
    const QString target = temporaryDirectory() + QStringLiteral("/empty.bvdb");
    sqlite3 *db = nullptr;
    sqlite3_open(target.toUtf8().constData(), &db);
    RedemptionDatabase::createSchema(db);
    sqlite3_close(db);
    return target;
}

QString sourcePath(const QString &relative) { return QStringLiteral(QUILLMERE_SOURCE_DIR "/") + relative; }

QStringList repositorySources(const QStringList &leaveOut)
{
    QStringList paths;
    const QDir treasury(sourcePath(QStringLiteral("data/treasury")));
    for (const QString &name : treasury.entryList({QStringLiteral("sb*.asc")}, QDir::Files, QDir::Name))
        if (!leaveOut.contains(name))
            paths << treasury.filePath(name);
    if (!leaveOut.contains(QStringLiteral("i-bond-values.csv")))
        paths << sourcePath(QStringLiteral("data/fiscaldata/i-bond-values.csv"));
    return paths;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

ProcessResult runCli(const QStringList &arguments, const QStringList &environment)
{
    QProcess process;
    QStringList env = QProcess::systemEnvironment();
    env << environment;
    process.setEnvironment(env);
    process.start(QStringLiteral(QUILLMERE_CLI_PATH), arguments);
    process.waitForFinished(300000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace TestSupport
