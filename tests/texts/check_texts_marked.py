#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fails when a text the windows or the command line show is not marked for translation, or when
translations/quillmere_en.ts no longer lists exactly the marked texts (run `ninja update_translations`).

A literal counts as a shown text when it reads like words: two letters or more and a space, or a
capitalised word. It is marked when the innermost call around it is tr(), translate() or one of
Qt's no-op markers. What is neither (object names, font names, sample data) is listed below."""
import argparse
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET
from pathlib import Path

MARKERS = {"tr", "translate", "QT_TR_NOOP", "QT_TRANSLATE_NOOP", "QT_TR_N_NOOP", "QT_TRANSLATE_N_NOOP"}
# Calls whose text no one reads: the literal names a thing for code, settings or tests.
NOT_SHOWN_CALLS = {"setObjectName", "QFont"}
# Wrappers that make a QString of a literal; the call around them decides.
WRAPPERS = {"QStringLiteral", "QLatin1String", "QLatin1StringView", "fromLatin1", "fromUtf8"}
# Messages for the log, not for the user.
LOGGING = {"qWarning", "qDebug", "qInfo", "qCritical"}
# Texts that are names, not words to translate.
NOT_SHOWN_TEXTS = {
    "Quillmere",        # the program's name
    "quillmere-cli ",   # the command's name before a sub-command
    "quillmere-cli: ",  # the prefix of the command line's complaints
    "Helvetica",        # the printed portfolio's font
    "AddPerson",        # an icon's resource name
    "Value As Of Date Toolbar Item Identifier",  # the month picker's object name, which tests find
    # The people of the sample portfolio.
    "Margaret", "Thomas", "Eleanor", "Samuel", "Rosa", "Whitfield", "Delgado",
}

# Texts that are words but no one's to translate, in the one file that writes them.
NOT_SHOWN_IN_FILE = {
    # The JSON's status values, the same in every language.
    "PortfolioReport.cpp": {"no pricing data", "not yet redeemable"},
    # Words of the formats read and written: column titles, file names, tokens of the Treasury's files.
    "CsvImportFormat.cpp": {"Bond Series", "Quantity", "Issue Date", "Face Value", "Serial Number", "Series", "Issue Price", "Owner", "Co-owner", "Beneficiary",
                            "Denomination"},
    "HoldingCsv.cpp": {"Bond Series,Quantity,Issue Date,Issue Price,Face Value,Interest Earned,Value,",
                       "Serial Number,Owner,Co-owner,Beneficiary\\n"},
    "HoldingQuicken.cpp": {" purchased %02d/%4d"},
    # The Treasury calculator's form field names.
    "CalculatorListImport.cpp": {"SeriesList", "IssueDateList", "DenominationList", "SerialNumList"},
    "PortfolioQuicken.cpp": {"PriceList.qif", "Positions.qif", "PriceList-%1.qif", "Positions-%1.qif"},
    "PortfolioQuicken.h": {"Generated with Quillmere"},
    # The records, file names and security names of the export for GnuCash and KMyMoney.
    "FinanceExport.cpp": {"D%1\\nNXIn\\nPOpening Balance\\nT%2\\nL[%3]\\n^\\n", "Date,Amount,Namespace,Symbol,Currency\\n",
                          "Bonds.qif", "BondPrices.csv", "Bonds-%1.qif", "BondPrices-%1.csv"},
    "FinanceSecurities.cpp": {" electronic"},
    "TreasuryValueFile.cpp": {"January", "February", "March", "April", "May", "June", "July", "August",
                              "September", "October", "November", "December", "NO PAY"},
    "FiscalDataPage.cpp": {"NO PAY"},
    "OfficialSourceInstaller.cpp": {"NO PAY"},
    "UpdateCatalogue.cpp": {"<?xml version=\\\"1.0\\\" encoding=\\\"UTF-8\\\"?>\\n", "<plist version=\\\"1.0\\\">\\n",
                            "<!DOCTYPE plist PUBLIC \\\"-//Apple//DTD PLIST 1.0//EN\\\" "},
    "UpdateLocation.h": {"AvailableBondData.plist"},
    # Names of the portfolio file's classes and of settings and validation keys.
    "PortfolioArchive.cpp": {"Holding", "Person", "Series"},
    "Money.h": {"DollarTransformer"},
    "UserDefaults.h": {"BondTableColumnSettings"},
    "Holding.h": {"HoldingIssueDate"},
    "ValuationMonth.h": {"ValueOfDate"},
    "BondPortfolioRedemptions.cpp": {"Redemption"},  # the validation errors' domain
    "BondPortfolio.h": {"Savings Bond Portfolio"},  # the document type's name
    # Formats of the log's lines.
    "PriceDataInstaller.cpp": {"updatePricingDataWithData >>: %1", "<<updatePricingDataWithData: %1",
                               "updatePricingDataWithData rb: %1", "Error updating data file table: %1",
                               "Could not update summary tables: %1"},
    # The series' labels and the registration's form are data the portfolio file and exports hold.
    "Series.cpp": {"Savings Note", "EE Bond", "E Bond", "I Bond"},
    "Holding.cpp": {"%1 OR %2", "%1 POD %2"},
    # The markup of the printed tax report and of the notice's link around their translated words.
    "TaxYearPrint.cpp": {"<table width=\\\"100%\\\" cellspacing=\\\"0\\\" cellpadding=\\\"3\\\" border=\\\"0.5\\\"><tr>",
                         "<th align=\\\"left\\\" bgcolor=\\\"#e8e8e8\\\" width=\\\"%1%\\\">%2</th>",
                         " style=\\\"font-weight:bold\\\"",
                         "<tr%1><td>%2</td><td>%3</td><td>%4</td><td align=\\\"right\\\" nowrap>%5</td><td>%6</td></tr>",
                         "<table width=\\\"100%\\\" cellspacing=\\\"0\\\" cellpadding=\\\"3\\\"><tr>",
                         "<th align=\\\"left\\\" colspan=\\\"2\\\">%1</th></tr>",
                         "<tr><td width=\\\"50%\\\">%1</td><td>%2</td></tr>"},
    "MaturityNoticeBar.cpp": {" <a href=\\\"tax\\\">%1</a>"},
    # The markup of the printed inventory around its translated words.
    "InventoryPrint.cpp": {"<table width=\\\"100%\\\" cellspacing=\\\"0\\\" cellpadding=\\\"2\\\" border=\\\"0.5\\\"><tr>",
                           " width=\\\"%1%\\\"", "<th align=\\\"%1\\\" bgcolor=\\\"#e8e8e8\\\"%2>%3</th>",
                           "<td style=\\\"white-space:nowrap\\\">%1</td>",
                           "<td align=\\\"right\\\" style=\\\"white-space:nowrap\\\">%1</td>",
                           "<tr><td colspan=\\\"%1\\\" bgcolor=\\\"#f4f4f4\\\"><b>%2</b></td></tr>",
                           "<tr style=\\\"font-weight:bold\\\"><td colspan=\\\"%1\\\">%2</td>",
                           "<td colspan=\\\"%1\\\"></td></tr>"},
}
# Files that hold statements for the database and no words: their literals are all SQL.
NO_TEXTS = {"ValueHistoryPacking.cpp"}
# A literal that is a statement for the database, or an indented line of one; lower case, as the
# program writes them, apart from the transaction commands.
SQL = re.compile(r"(select|order by|insert|update|delete|create|drop|pragma|vacuum|savepoint|release|rollback|BEGIN|SAVEPOINT|"
                 r"RELEASE|ROLLBACK|COMMIT)\b|\s+(on|where|order by|group by|and|from|values|end;|begin)\b|"
                 r".*\b(integer not null|primary key)\b")

TOKEN = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:[^"\\\n]|\\.)*"|\'(?:[^\'\\\n]|\\.)*\'|[A-Za-z_]\w*|[()]|\n|.',
                   re.S)
WORDS = re.compile(r"[A-Za-z]{2,}")


def looks_shown(text):
    return bool(WORDS.search(text)) and (re.search(r"\s", text) or re.match(r"[A-Z][a-z]", text))


def unmarked_texts(path):
    """(line, text) of every literal that reads like words and is not marked."""
    found = []
    if path.name in NO_TEXTS:
        return found
    calls = []  # innermost last: the name before each open parenthesis, or "" for a bare one
    previous = ""
    line = 1
    in_include = False
    logging = False  # within a statement that writes to the log
    for token in TOKEN.findall(path.read_text(encoding="utf-8")):
        if token == "\n":
            line += 1
            in_include = False
            continue
        if token.startswith("//") or token.startswith("/*"):
            line += token.count("\n")
            continue
        if token in LOGGING:
            logging = True
        elif token in (";", "{", "}"):
            logging = False
        if token == "#":
            in_include = True  # the preprocessor's own strings (#include "x.h") are no texts
        if token == "(":
            calls.append(previous if re.match(r"[A-Za-z_]", previous) else "")
        elif token == ")" and calls:
            calls.pop()
        elif token.startswith('"') and not in_include:
            text = token[1:-1]
            enclosing = [call for call in calls if call not in WRAPPERS]
            innermost = enclosing[-1] if enclosing else ""
            if (looks_shown(text) and not SQL.match(text) and not logging and innermost not in MARKERS and innermost not in NOT_SHOWN_CALLS
                    and text not in NOT_SHOWN_TEXTS and text not in NOT_SHOWN_IN_FILE.get(path.name, ())):
                found.append((line, text))
        if not token.isspace():
            previous = token
    return found


def messages(ts_path):
    root = ET.parse(ts_path).getroot()
    result = set()
    for context in root.iter("context"):
        name = context.findtext("name")
        for message in context.iter("message"):
            translation = message.find("translation")
            if translation is not None and translation.get("type") in ("obsolete", "vanished"):
                continue
            result.add((name, message.findtext("source"), message.get("numerus") == "yes"))
    return result


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--lupdate", required=True)
    parser.add_argument("--ts", required=True, type=Path)
    parser.add_argument("sources", nargs="+", type=Path)
    args = parser.parse_args()

    failures = []
    for source in args.sources:
        for line, text in unmarked_texts(source):
            failures.append(f'{source}:{line}: "{text}" is shown but not marked for translation')

    committed = messages(args.ts)
    with tempfile.TemporaryDirectory() as folder:
        fresh_ts = Path(folder) / args.ts.name
        subprocess.run([args.lupdate, "-silent", "-locations", "none", "-no-obsolete",
                        *map(str, args.sources), "-ts", str(fresh_ts)], check=True)
        fresh = messages(fresh_ts)
    if not fresh:
        failures.append("lupdate found no texts at all")
    for context, text, _ in sorted(fresh - committed):
        failures.append(f'{args.ts}: lacks {context} "{text}" (run ninja update_translations)')
    for context, text, _ in sorted(committed - fresh):
        failures.append(f'{args.ts}: still lists {context} "{text}" (run ninja update_translations)')

    for failure in failures:
        print(failure)
    print(f"{len(fresh)} marked texts in {len(args.sources)} files; {len(failures)} problems")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
