// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reading any kind of redemption value source into price data records: the Treasury value files
// (sbYYYYMM.asc) and the Fiscal Data CSV export. Used to build the shipped database, to publish
// update directories and to install a single Treasury file into a user's database.
#include "update/sources/PriceSourceContents.h"

#include <QByteArray>
#include <QString>

namespace PriceSource {
enum class Kind { TreasuryValueFile, FiscalDataCsv, Unknown };

// By the file name's extension (".asc", ".csv"); failing that, by the first line's look.
Kind kindOf(const QString &fileName, const QByteArray &data);

// Reads data that came from a file of that name. Errors name the file as given.
PriceSourceContents readData(const QByteArray &data, const QString &fileName);
PriceSourceContents readFile(const QString &path);

// Reads every file; stops at the first refusal (*error then names file and line). Each source
// is named by its file name without the folder, as data_file records it.
bool readFiles(const QStringList &paths, QList<NamedPriceRecords> *sources, QString *error);
}
