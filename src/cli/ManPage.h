// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Manual pages in roff, written from the help texts the programs print for --help: an option
// added to a parser reaches the manual page with the next build, without another edit.
#include <QCoreApplication>
#include <QList>
#include <QString>

class ManPageText
{
    Q_DECLARE_TR_FUNCTIONS(ManPageText)
};

namespace ManPage {

struct HelpEntry
{
    QString names; // "-h, --help" or "--as-of <YYYY-MM>" or "file"
    QString text;
};

// What QCommandLineParser::helpText() says, in parts.
struct HelpText
{
    QString usage; // after "Usage: "
    QString description;
    QList<HelpEntry> options;
    QList<HelpEntry> arguments;
};

HelpText parseHelp(const QString &help);

// Text made safe for roff: backslashes, hyphens (so options copy as typed) and a dot or
// apostrophe starting a line.
QString escaped(const QString &text);

class Writer
{
public:
    // The title line and the NAME section: "name - summary".
    Writer(const QString &name, const QString &summary);

    void section(const QString &title);
    void subsection(const QString &title);
    void paragraph(const QString &text);
    // A tagged paragraph: the term in bold, the text indented below.
    void entry(const QString &term, const QString &text);
    void entries(const QList<HelpEntry> &list);

    // What both programs share: ENVIRONMENT, FILES and SEE ALSO.
    void environmentAndFiles(const QString &seeAlso);

    QString text() const { return m_text; }

private:
    void line(const QString &macro, const QString &argument = {});

    QString m_text;
};

} // namespace ManPage
