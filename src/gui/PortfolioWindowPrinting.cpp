// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
// Printing the holdings the bond table shows, in its order: on a printer, in a preview, or to a
// PDF file; and the inventory of all held bonds, on a printer or to a PDF file.
#include "HoldingsFilterModel.h"
#include "HoldingsTableModel.h"
#include "InventoryPrint.h"
#include "PortfolioPrintLayout.h"
#include "PortfolioWindow.h"
#include "base/UserDefaults.h"
#include "document/BondPortfolio.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScreen>

namespace {

// An inch at the sides and a little more above and below, which fits fifteen bands on Letter.
const QMarginsF PrintMargins(72, 90, 72, 90);

// The paper the user last chose in the print dialog; Letter, the household's paper, until then.
constexpr const char *PaperKey = "printPaperSize";

QPageSize chosenPaper()
{
    const QVariant chosen = UserDefaults::value(QString::fromLatin1(PaperKey));
    const QPageSize paper(chosen.isValid() ? QPageSize::PageSizeId(chosen.toInt()) : QPageSize::Letter);
    return paper.isValid() ? paper : QPageSize(QPageSize::Letter);
}

void preparePage(QPrinter &printer)
{
    printer.setPageSize(chosenPaper());
    printer.setPageMargins(PrintMargins, QPageLayout::Point);
}

void rememberPaper(const QPrinter &printer)
{
    UserDefaults::setValue(QString::fromLatin1(PaperKey), int(printer.pageLayout().pageSize().id()));
}

} // namespace

QList<HoldingRef> PortfolioWindow::arrangedHoldings() const
{
    QList<HoldingRef> holdings;
    for (int row = 0; row < m_filterModel->rowCount(); ++row)
        holdings << m_filterModel->index(row, 0).data(HoldingsTableModel::HoldingRole).value<HoldingRef>();
    return holdings;
}

bool PortfolioWindow::printOn(QPrinter &printer)
{
    const PortfolioPrintLayout layout(arrangedHoldings(), m_portfolio->valuationContext(), printer.pageLayout());
    if (layout.print(printer, printer.fromPage(), printer.toPage()))
        return true;
    QApplication::beep();
    return false;
}

void PortfolioWindow::print()
{
    QPrinter printer;
    preparePage(printer);
    printer.setDocName(m_portfolio->displayName());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) {
        rememberPaper(printer);
        printOn(printer);
    }
}

void PortfolioWindow::printPreview()
{
    QPrinter printer;
    preparePage(printer);
    printer.setDocName(m_portfolio->displayName());
    QPrintPreviewDialog preview(&printer, this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this, [this](QPrinter *shown) { printOn(*shown); });
    // Large enough to read a page, within the screen.
    const QSize available = screen() ? screen()->availableSize() : QSize(1024, 700);
    preview.resize(std::min(900, available.width()), std::min(1000, available.height()) * 9 / 10);
    preview.exec();
}

void PortfolioWindow::exportPdf()
{
    QString path = QFileDialog::getSaveFileName(this, tr("Export as PDF"), m_portfolio->displayName() + QStringLiteral(".pdf"),
                                                tr("PDF documents (*.pdf)"));
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".pdf");
    QPrinter printer(QPrinter::HighResolution);
    preparePage(printer);
    printer.setDocName(m_portfolio->displayName());
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    printOn(printer);
}

// The whole household, whatever the table shows: an inventory that leaves bonds out misleads.
void PortfolioWindow::printInventory()
{
    const InventoryReport report = InventoryReport::of(m_portfolio->holdings(), m_portfolio->valuationContext());
    const InventoryPrint inventory(report, m_portfolio->displayName(), QDate::currentDate());
    QPrinter printer;
    printer.setPageLayout(InventoryPrint::pageLayout(chosenPaper()));
    printer.setDocName(inventory.title());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    rememberPaper(printer);
    if (!inventory.print(printer))
        QApplication::beep();
}

bool PortfolioWindow::exportInventoryPdf(QString path)
{
    if (path.isEmpty()) {
        path = QFileDialog::getSaveFileName(this, tr("Export Inventory as PDF"),
                                            tr("%1 inventory.pdf").arg(m_portfolio->displayName()), tr("PDF documents (*.pdf)"));
        if (path.isEmpty())
            return false;
        if (QFileInfo(path).suffix().isEmpty())
            path += QStringLiteral(".pdf");
    }
    const InventoryReport report = InventoryReport::of(m_portfolio->holdings(), m_portfolio->valuationContext());
    QString error;
    if (InventoryPrint(report, m_portfolio->displayName(), QDate::currentDate()).writePdf(path, chosenPaper(), &error))
        return true;
    QApplication::beep();
    QMessageBox::warning(this, tr("Export Inventory as PDF"), tr("The inventory could not be written to %1: %2").arg(path, error));
    return false;
}
