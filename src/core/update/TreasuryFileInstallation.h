// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Installs value files as the Treasury publishes them (sbYYYYMM.asc, or a Fiscal Data value CSV)
// into the database in force, without an update server: each file read whole, then installed in
// one transaction under its name. The command-line program and the window install this way
// alike; what happened comes back as a code and the installer's outcome, and each front end says
// it in its own words.
#include "update/OfficialSourceInstaller.h"

#include <QString>
#include <memory>

class UpdateConnection;

class TreasuryFileInstallation
{
public:
    enum class Failure {
        None,
        NoDatabase,  // neither a working copy nor a seed to make one from
        NotWritable, // the database, or the folder its journal goes into, cannot be written
        NotOpenable, // the database could not be opened for writing
        FileRefused, // the file could not be read, or the database refused its values: see detail
    };

    struct FileResult
    {
        Failure failure = Failure::None;
        QString detail;   // why the file was refused, naming it (FileRefused only)
        QString fileName; // without its folder, as the database records it
        OfficialSourceInstaller::Outcome outcome; // what went in, when nothing failed
        bool installed() const { return failure == Failure::None; }
    };

    // Into the database at databasePath (the working copy, as a rule).
    explicit TreasuryFileInstallation(const QString &databasePath);
    ~TreasuryFileInstallation();
    TreasuryFileInstallation(const TreasuryFileInstallation &) = delete;
    TreasuryFileInstallation &operator=(const TreasuryFileInstallation &) = delete;

    QString databasePath() const { return m_databasePath; }
    // Whether there is a database and it may be written; opens nothing.
    Failure check() const;
    // Opens the database for writing; install() does so itself when this was not called.
    Failure open();
    // Reads the file, then installs it (opening the database first if need be).
    FileResult install(const QString &path);

private:
    QString m_databasePath;
    std::unique_ptr<UpdateConnection> m_connection;
};
