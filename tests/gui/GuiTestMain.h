// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Every window test's main: settings, data, people and database in the run's own folder, set before any read.
#include "DocumentManager.h"
#include "HoldingsFilterModel.h"
#include "HoldingsTableModel.h"
#include "PortfolioWindow.h"
#include "document/BondPortfolio.h"

#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace GuiTest {
inline QString path(const QString &name)
{
    static QTemporaryDir home;
    return home.filePath(name);
}

// Writes a file into the run's folder; its path, or nothing if it could not be written.
inline QString writeFile(const QString &name, const QByteArray &bytes)
{
    QFile file(path(name));
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size() ? file.fileName() : QString();
}

inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A writable copy of the built database in the run's folder.
inline QString copyOfDatabase(const QString &name)
{
    const QString copy = path(name);
    QFile::copy(QStringLiteral(QUILLMERE_TEST_DATABASE), copy);
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    return copy;
}

inline QString samplePath() { return QStringLiteral(QUILLMERE_SOURCE_DIR "/examples/sample.bondportfolio"); }

// With a tester that fails the test when the bond table's model breaks its contract.
inline PortfolioWindow *openSample()
{
    PortfolioWindow *window = DocumentManager::instance().openFile(samplePath());
    if (window)
        new QAbstractItemModelTester(window->shownHoldingsModel(), window);
    return window;
}

inline HoldingRef holdingAt(const QAbstractItemModel *model, int row)
{
    return model->index(row, 0).data(HoldingsTableModel::HoldingRole).value<HoldingRef>();
}

inline QStringList columnTexts(const QAbstractItemModel *model, int column)
{
    QStringList texts;
    for (int row = 0; row < model->rowCount(); ++row)
        texts << model->index(row, column).data().toString();
    return texts;
}

inline void selectRows(QAbstractItemView *view, const QList<int> &rows)
{
    view->selectionModel()->clearSelection();
    for (int row : rows)
        view->selectionModel()->select(view->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

// The messages of the alerts the window shows (below their bold titles).
inline QStringList alertTexts(QWidget *window)
{
    QStringList texts;
    for (QMessageBox *box : window->findChildren<QMessageBox *>())
        texts << (box->informativeText().isEmpty() ? box->text() : box->informativeText());
    return texts;
}

// Closes every window without asking about unsaved changes.
inline void discardWindows()
{
    for (PortfolioWindow *window : DocumentManager::instance().windows()) {
        window->portfolio()->markSaved();
        delete window;
    }
}

inline QString output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// What poppler reads in a PDF: its text as laid out ("-layout") or its words' boxes ("-bbox"); its pages.
inline QString pdfText(const QString &pdf, const QString &form = QStringLiteral("-layout"))
{
    return output(QStringLiteral("pdftotext"), {form, pdf, QStringLiteral("-")});
}
inline int pdfPages(const QString &pdf)
{
    static const QRegularExpression pages(QStringLiteral("Pages:\\s+(\\d+)"));
    return pages.match(output(QStringLiteral("pdfinfo"), {pdf})).captured(1).toInt();
}

inline void useRunFolders()
{
    qputenv("XDG_CONFIG_HOME", path(QStringLiteral("config")).toUtf8());
    qputenv("XDG_DATA_HOME", path(QStringLiteral("data")).toUtf8());
    const QString people = path(QStringLiteral("people.vcf")), database = copyOfDatabase(QStringLiteral("values.bvdb"));
    QFile::copy(QStringLiteral(QUILLMERE_SOURCE_DIR "/examples/people.vcf"), people);
    QFile::setPermissions(people, QFile::ReadOwner | QFile::WriteOwner);
    qputenv("QUILLMERE_PEOPLE", people.toUtf8());
    qputenv("QUILLMERE_DATABASE", database.toUtf8());
    // No test reaches beyond this machine unless it names its own server.
    qputenv("QUILLMERE_FISCAL_DATA_URL", "http://127.0.0.1:9/");
    qputenv("QUILLMERE_UPDATE_URL", "http://127.0.0.1:9/");
}
}

#define QUILLMERE_GUI_TEST_MAIN(TestClass)                                                          \
    int main(int argc, char **argv)                                                                 \
    {                                                                                               \
        GuiTest::useRunFolders();                                                                   \
        QApplication app(argc, argv);                                                               \
        TestClass test;                                                                             \
        return QTest::qExec(&test, argc, argv);                                                     \
    }
