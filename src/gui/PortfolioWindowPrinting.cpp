// Printing the holdings the bond table shows, in its order: on a printer, in a preview, or to a
// PDF file.
#include "HoldingsFilterModel.h"
#include "HoldingsTableModel.h"
#include "PortfolioPrintLayout.h"
#include "PortfolioWindow.h"
#include "document/BondPortfolio.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace {

// An inch at the sides and a little more above and below, which fits fifteen bands on Letter.
const QMarginsF PrintMargins(72, 90, 72, 90);

void preparePage(QPrinter &printer)
{
    printer.setPageMargins(PrintMargins, QPageLayout::Point);
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
    if (dialog.exec() == QDialog::Accepted)
        printOn(printer);
}

void PortfolioWindow::printPreview()
{
    QPrinter printer;
    preparePage(printer);
    printer.setDocName(m_portfolio->displayName());
    QPrintPreviewDialog preview(&printer, this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this, [this](QPrinter *shown) { printOn(*shown); });
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
