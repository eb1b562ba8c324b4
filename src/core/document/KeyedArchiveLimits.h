// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Bounds on what the keyed archive reader accepts. A portfolio of a thousand holdings needs a few
// tens of thousands of property-list nodes and a nesting depth of a handful; these limits are
// far above that, and low enough that a hostile file cannot exhaust memory or the stack.
#include <QtGlobal>

namespace KeyedArchiveLimits {

// Largest file read at all.
constexpr qint64 MaximumBytes = 64 * 1024 * 1024;
// Property-list nodes after expanding shared references of the binary form; each node costs
// the reader about a hundred bytes.
constexpr qint64 MaximumPlistNodes = 4'000'000;
// Entries of "$objects".
constexpr qint64 MaximumObjects = 2'000'000;
// Entries of one object's own dictionary (the program's classes have about ten); keys are found
// by walking the entries, so this bounds the work a hostile file can cause.
constexpr int MaximumKeysPerObject = 100;
// Nesting of containers in the property list, and of objects reached through references.
constexpr int MaximumDepth = 1000;

} // namespace KeyedArchiveLimits
