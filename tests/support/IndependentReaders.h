// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Readers that share nothing with ours: libplist's, and Python's (read_keyed_archive.py, printing what it sees as JSON).
#include "TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>
#include <plist/plist.h>

#include <memory>

struct PlistDeleter
{
    void operator()(void *node) const { plist_free(node); }
};
using PlistPtr = std::unique_ptr<void, PlistDeleter>;

// What libplist reads in a file of either form (null when it finds no property list there).
inline PlistPtr libplistTree(const QByteArray &file)
{
    plist_t root = nullptr;
    plist_from_memory(file.constData(), uint32_t(file.size()), &root);
    return PlistPtr(root);
}

// libplist's writing of the tree, in the form `write` makes; `release` frees its buffer.
template<typename Write, typename Release>
inline QByteArray libplistWritten(plist_t root, Write write, Release release)
{
    char *bytes = nullptr;
    uint32_t length = 0;
    write(root, &bytes, &length);
    const QByteArray result(bytes, qsizetype(length));
    release(bytes);
    return result;
}
inline QByteArray libplistBinary(plist_t root) { return libplistWritten(root, plist_to_bin, free); }
inline QByteArray libplistXml(plist_t root) { return libplistWritten(root, plist_to_xml, plist_to_xml_free); }

#define SKIP_WITHOUT_PYTHON()                                                                  \
    if (QStandardPaths::findExecutable(QStringLiteral("python3")).isEmpty())                  \
    GTEST_SKIP() << "python3 is not installed"

// Python's output for these bytes; empty, with a failure recorded, if it could not read them.
inline QByteArray pythonReading(const QByteArray &file)
{
    const QString path = TestSupport::writeFile(TestSupport::temporaryDirectory() + QStringLiteral("/read.bondportfolio"), file);
    QProcess reader;
    const QString script = TestSupport::sourcePath(QStringLiteral("tests/core/document/read_keyed_archive.py"));
    reader.start(QStringLiteral("python3"), {script, path});
    if (!reader.waitForFinished(60000) || reader.exitCode() != 0) {
        ADD_FAILURE() << "Python could not read the file: " << reader.readAllStandardError().toStdString();
        return {};
    }
    return reader.readAllStandardOutput();
}

inline QJsonObject pythonJson(const QByteArray &file) { return QJsonDocument::fromJson(pythonReading(file)).object(); }

inline void PrintTo(const QJsonValue &value, std::ostream *out)
{
    *out << QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

// Each key of `expected` (JSON text) has its value in `actual`.
inline void expectFields(const QJsonObject &actual, const char *expected)
{
    const QJsonObject fields = QJsonDocument::fromJson(expected).object();
    ASSERT_FALSE(fields.isEmpty()) << "unreadable expectation";
    for (const QString &key : fields.keys())
        EXPECT_EQ(actual[key], fields[key]) << key.toStdString();
}
