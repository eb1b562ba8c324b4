// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ManPage.h"
#include "base/UserDefaults.h"
#include "model/PeopleStore.h"
#include "update/UpdateLocation.h"
#include "valuation/RedemptionDatabase.h"

#include <QRegularExpression>
#include <QStringList>

namespace ManPage {

namespace {

// Qt's own heading words, so that its translation serves both.
const char *const UsageHeading = QT_TRANSLATE_NOOP("QCommandLineParser", "Usage: %1");
const char *const OptionsHeading = QT_TRANSLATE_NOOP("QCommandLineParser", "Options:");
const char *const ArgumentsHeading = QT_TRANSLATE_NOOP("QCommandLineParser", "Arguments:");

QString heading(const char *text)
{
    return QCoreApplication::translate("QCommandLineParser", text);
}

QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

} // namespace

HelpText parseHelp(const QString &help)
{
    HelpText parts;
    QList<HelpEntry> *list = nullptr;
    bool inDescription = false;
    static const QRegularExpression entryLine(QStringLiteral("^  (\\S.*?)(?: {2,}(\\S.*))?$"));
    for (const QString &line : help.split(QLatin1Char('\n'))) {
        const QString usagePrefix = heading(UsageHeading).arg(QString());
        if (parts.usage.isEmpty() && line.startsWith(usagePrefix)) {
            parts.usage = line.mid(usagePrefix.size());
            inDescription = true;
        } else if (line.trimmed().isEmpty()) {
            inDescription = false;
        } else if (line == heading(OptionsHeading)) {
            list = &parts.options;
        } else if (line == heading(ArgumentsHeading)) {
            list = &parts.arguments;
        } else if (inDescription) {
            parts.description += (parts.description.isEmpty() ? QString() : QStringLiteral(" ")) + line.trimmed();
        } else if (list && line.startsWith(QLatin1String("   ")) && !list->isEmpty()) {
            // A description Qt wrapped onto the next line.
            QString &text = list->last().text;
            text += (text.isEmpty() ? QString() : QStringLiteral(" ")) + line.trimmed();
        } else if (list) {
            const QRegularExpressionMatch match = entryLine.match(line);
            if (match.hasMatch())
                list->append({match.captured(1), match.captured(2)});
        }
    }
    return parts;
}

QString escaped(const QString &text)
{
    QString result = text;
    result.replace(QLatin1Char('\\'), QLatin1String("\\e"));
    result.replace(QLatin1Char('-'), QLatin1String("\\-"));
    if (result.startsWith(QLatin1Char('.')) || result.startsWith(QLatin1Char('\'')))
        result.prepend(QLatin1String("\\&"));
    return result;
}

Writer::Writer(const QString &name, const QString &summary)
{
    const QString version = QCoreApplication::applicationVersion();
    line(QStringLiteral(".TH"), QStringList{name.toUpper(), QStringLiteral("1"), QStringLiteral("\"%1\"").arg(QLatin1String(QUILLMERE_RELEASE_DATE)),
                                            QStringLiteral("\"Quillmere") + QLatin1Char(' ') + version + QLatin1Char('"'),
                                            QLatin1Char('"') + ManPageText::tr("User Commands") + QLatin1Char('"')}
                                    .join(QLatin1Char(' ')));
    section(ManPageText::tr("NAME"));
    m_text += escaped(name) + QLatin1String(" \\- ") + escaped(summary) + QLatin1Char('\n');
}

void Writer::line(const QString &macro, const QString &argument)
{
    m_text += argument.isEmpty() ? macro + QLatin1Char('\n') : macro + QLatin1Char(' ') + argument + QLatin1Char('\n');
}

void Writer::section(const QString &title)
{
    line(QStringLiteral(".SH"), escaped(title.toUpper()));
}

void Writer::subsection(const QString &title)
{
    line(QStringLiteral(".SS"), escaped(title));
}

void Writer::paragraph(const QString &text)
{
    line(QStringLiteral(".PP"));
    m_text += escaped(text) + QLatin1Char('\n');
}

void Writer::entry(const QString &term, const QString &text)
{
    line(QStringLiteral(".TP"));
    line(QStringLiteral(".B"), escaped(term));
    m_text += escaped(text) + QLatin1Char('\n');
}

void Writer::entries(const QList<HelpEntry> &list)
{
    for (const HelpEntry &item : list)
        entry(item.names, item.text);
}

void Writer::environmentAndFiles(const QString &seeAlso)
{
    section(ManPageText::tr("ENVIRONMENT"));
    entry(latin1(RedemptionDatabase::PathEnvironmentVariable),
          ManPageText::tr("The redemption value database to use instead of the user's copy. It must be writable for updates."));
    entry(latin1(PeopleStore::PathEnvironmentVariable),
          ManPageText::tr("The people file (vCard) to use instead of a %1 beside the portfolio or the user's own.")
              .arg(latin1(PeopleStore::FileName)));
    entry(latin1(UpdateLocation::FiscalDataRootEnvironmentVariable),
          ManPageText::tr("The root of the Fiscal Data service that updates ask; it overrides the setting %1. Default: %2")
              .arg(latin1(UpdateLocation::FiscalDataRootSettingsKey), latin1(UpdateLocation::DefaultFiscalDataRoot)));
    entry(latin1(UpdateLocation::BaseUrlEnvironmentVariable),
          ManPageText::tr("The update directory read when updates come from a catalogue; it overrides the setting %1. Default: %2")
              .arg(latin1(UpdateLocation::BaseUrlSettingsKey), latin1(UpdateLocation::DefaultBaseUrl)));
    entry(QStringList{QStringLiteral("XDG_DATA_HOME"), QStringLiteral("XDG_CONFIG_HOME"), QStringLiteral("XDG_DATA_DIRS")}.join(QStringLiteral(", ")),
          ManPageText::tr("Where the user's files and settings are kept, and where installed data is looked for."));

    section(ManPageText::tr("FILES"));
    const QString userFolder = QStringLiteral("~/.local/share/%1/%2/").arg(latin1(UserDefaults::Organization), latin1(UserDefaults::Application));
    entry(QStringLiteral("/usr/share/quillmere/") + latin1(RedemptionDatabase::FileName),
          ManPageText::tr("The redemption value database as shipped (under /usr/local when installed from source): a read-only "
                          "seed, copied to the user's folder on first use."));
    entry(userFolder + latin1(RedemptionDatabase::FileName),
          ManPageText::tr("The user's copy of the database, which every portfolio reads and updates write to."));
    entry(userFolder + latin1(PeopleStore::FileName),
          ManPageText::tr("The user's people (vCard), named as owners, co-owners and beneficiaries."));
    entry(QStringLiteral("~/.config/%1/%2.conf").arg(latin1(UserDefaults::Organization), latin1(UserDefaults::Application)),
          ManPageText::tr("Settings: defaults of new bonds, the update source, column layout."));
    entry(QStringLiteral("/usr/share/doc/quillmere/examples/sample.bondportfolio"),
          ManPageText::tr("A sample portfolio, with the people file it names beside it."));

    section(ManPageText::tr("SEE ALSO"));
    m_text += escaped(seeAlso) + QLatin1Char('\n');
}

} // namespace ManPage
