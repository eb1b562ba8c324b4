// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Why a portfolio could not be saved, in the words the window and the command line both put into
// their own sentences: "the disk is full", "permission denied", the system's or the encoder's
// reason. A clause, without a closing full stop.
#include "document/BondPortfolio.h"

#include <QString>

QString saveFailureReason(const PortfolioSaveFailure &failure);
