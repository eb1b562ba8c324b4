// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What an installation of a value file did, in the words the window's alert and the command
// line's output share: one sentence of counts and the database's months, then a note on derived
// values that differed, if any.
#include "update/OfficialSourceInstaller.h"

#include <QString>

QString installationSummary(const QString &fileName, const OfficialSourceInstaller::Outcome &outcome);
