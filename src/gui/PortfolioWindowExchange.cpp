// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// The window's export and import commands: the panels ask, the core writes and reads, the
// alerts report what the core's outcome says.
#include "ExchangePanels.h"
#include "PortfolioWindow.h"
#include "document/BondPortfolio.h"
#include "exchange/CalculatorListImport.h"
#include "exchange/CsvImportFormat.h"
#include "exchange/ExchangeAlerts.h"
#include "exchange/ExportChoice.h"
#include "exchange/FinanceExport.h"
#include "exchange/HoldingCsv.h"
#include "exchange/PortfolioCsvImport.h"
#include "exchange/PortfolioQuicken.h"
#include "base/UserDefaults.h"
#include "model/PeopleStore.h"

#include <QDebug>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>

namespace {
// Whether the last CSV export was written for spreadsheets; the next one starts that way.
constexpr const char *CsvForSpreadsheetsKey = "csvExportForSpreadsheets";
}

void PortfolioWindow::setExchangePanels(std::unique_ptr<ExchangePanels> panels)
{
    m_panels = std::move(panels);
}

void PortfolioWindow::exportCsv()
{
    const QString spreadsheetKey = QString::fromLatin1(CsvForSpreadsheetsKey);
    const QList<HoldingRef> selected = selectedHoldings();
    const auto choice = m_panels->chooseCsvExportFile(this, !selected.isEmpty(), m_exportRow,
                                                      UserDefaults::value(spreadsheetKey).toBool());
    if (!choice)
        return;
    if (!selected.isEmpty())
        m_exportRow = choice->row;
    UserDefaults::setValue(spreadsheetKey, choice->forSpreadsheets);
    const QList<HoldingRef> holdings = ExportChoice::holdingsToExport(m_portfolio->holdings(), selected, choice->row);
    const ExchangeOutcome outcome = PortfolioCsv::exportToCommaSeparatedValues(
        choice->path, m_portfolio->valuationContext(), holdings, choice->forSpreadsheets ? CsvForm::Spreadsheet : CsvForm::Plain);
    if (!outcome.succeeded) {
        qWarning().noquote() << "CSV export failed:" << outcome.detail;
        m_panels->beep();
    }
}

void PortfolioWindow::exportQif()
{
    const QList<HoldingRef> selected = selectedHoldings();
    const auto choice = m_panels->chooseQifExportDirectory(this, !selected.isEmpty(), m_exportRow);
    if (!choice)
        return;
    if (!selected.isEmpty())
        m_exportRow = choice->row;
    const QList<HoldingRef> chosen = ExportChoice::holdingsToExport(m_portfolio->holdings(), selected, choice->row);
    const auto outcome = QuickenFileSet::exportToQuickenFileSet(m_portfolio->displayName(), m_portfolio->holdings(), chosen,
                                                                m_portfolio->valuationContext(), choice->path);
    if (!outcome.succeeded) {
        qWarning().noquote() << "QIF export failed:" << outcome.detail;
        m_panels->beep();
    }
    const ExchangeAlert alert = ExchangeAlerts::of(outcome);
    m_panels->alert(this, alert, !outcome.succeeded);
}

void PortfolioWindow::exportForFinancePrograms()
{
    const std::optional<QString> directory = m_panels->chooseFinanceExportDirectory(this);
    if (!directory)
        return;
    const FinanceExport::Outcome outcome = FinanceExport::exportToDirectory(
        m_portfolio->displayName(), m_portfolio->holdings(), m_portfolio->valuationContext(), *directory);
    if (!outcome.succeeded) {
        qWarning().noquote() << "Export for GnuCash and KMyMoney failed:" << outcome.detail;
        m_panels->beep();
    }
    m_panels->alert(this, ExchangeAlerts::of(outcome), !outcome.succeeded);
}

void PortfolioWindow::importCsv()
{
    const auto choice = m_panels->chooseCsvImportFile(this, m_importRow);
    if (!choice)
        return;
    m_importRow = choice->row;
    const CsvImportOutcome outcome =
        PortfolioCsvImport::importCSVFileAtPath(*m_portfolio, choice->path, CsvImportFormats::fromRow(choice->row));
    if (!outcome.detail.isEmpty())
        qWarning().noquote() << "CSV import:" << outcome.detail;
    const ExchangeAlert alert = ExchangeAlerts::of(outcome);
    m_panels->alert(this, alert, !outcome.succeeded);
}

void PortfolioWindow::importCalculatorList()
{
    const std::optional<QString> path = m_panels->chooseCalculatorPage(this);
    if (!path)
        return;
    QFile file(*path);
    CalculatorListImport::Outcome outcome;
    if (!file.open(QIODevice::ReadOnly))
        outcome.error = file.errorString();
    else
        outcome = CalculatorListImport::importInto(*m_portfolio, file.read(16 * 1024 * 1024));
    ExchangeAlert alert;
    if (!outcome.ok()) {
        alert = {tr("Import Failed"), outcome.error, {}};
    } else {
        alert.title = tr("Import Complete");
        alert.message = tr("Imported %1 of %2 bonds from the calculator's list, as paper bonds.")
                            .arg(outcome.imported)
                            .arg(outcome.imported + outcome.skipped.size());
        QStringList notes;
        for (const QString &skipped : outcome.skipped)
            notes << tr("Skipped %1.").arg(skipped);
        for (const QString &note : outcome.withoutValues)
            notes << tr("Note: %1.").arg(note);
        alert.informative = notes.join(QLatin1Char('\n'));
    }
    m_panels->alert(this, alert, !outcome.ok() || !outcome.skipped.isEmpty());
}

bool PortfolioWindow::confirmSaveWithoutMissingPeople()
{
    // Saving keeps only the people the store knows; never drop the others unasked.
    const int missing = m_portfolio->missingPeopleCount();
    if (missing == 0)
        return true;
    QMessageBox box(QMessageBox::Warning, tr("People missing from the address book"),
                    tr("%n person(s) named in this portfolio cannot be found in %1.", nullptr, missing)
                        .arg(m_portfolio->peopleStore().path()),
                    QMessageBox::Save | QMessageBox::Cancel, this);
    box.setInformativeText(tr("Saving now leaves them out, with every role that names them. Open the portfolio "
                              "with the address book that holds them to keep them."));
    box.button(QMessageBox::Save)->setText(tr("Save Without Them"));
    box.setDefaultButton(QMessageBox::Cancel);
    box.setWindowModality(Qt::WindowModal);
    return box.exec() == QMessageBox::Save;
}
