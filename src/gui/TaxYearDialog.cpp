// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TaxYearDialog.h"

#include "Alerts.h"
#include "TaxYearPrint.h"
#include "TaxYearTableModel.h"
#include "document/BondPortfolio.h"
#include "document/DocumentFileWriter.h"
#include "document/TaxYearText.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <cstring>

namespace {
constexpr int PersonIdRole = Qt::UserRole + 1;
}

TaxYearDialog::TaxYearDialog(BondPortfolio &portfolio, QWidget *parent)
    : QDialog(parent)
    , m_portfolio(portfolio)
{
    setWindowTitle(tr("Tax Year Report — %1").arg(portfolio.displayName()));
    m_year = new QSpinBox(this);
    m_year->setRange(1941, 9999);
    m_year->setValue(portfolio.valueOfMonth().isNull() ? QDate::currentDate().year() : portfolio.valueOfMonth().year());
    auto *yearRow = new QHBoxLayout;
    yearRow->addWidget(new QLabel(tr("Tax year:"), this));
    yearRow->addWidget(m_year);
    yearRow->addStretch();

    m_model = new TaxYearTableModel(this);
    m_table = new QTableView(this);
    m_table->setModel(m_model);
    m_table->verticalHeader()->hide();
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    // Long descriptions wrap onto more lines rather than being cut off in a narrow window.
    m_table->setWordWrap(true);
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->verticalHeader()->setMinimumSectionSize(m_table->fontMetrics().height() + 8);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(TaxYearTableModel::Bonds, QHeaderView::Stretch);
    m_table->horizontalHeader()->setMinimumSectionSize(60);

    auto *note = new QLabel(TaxYearText::stateTaxNote(), this);
    note->setWordWrap(true);
    m_nextYearHeading = new QLabel(this);
    m_nextYearHeading->setWordWrap(true);
    m_nextYear = new QListWidget(this);
    m_nextYear->setMaximumHeight(m_nextYear->fontMetrics().height() * 5 + 8);
    m_nextYear->setSelectionMode(QAbstractItemView::NoSelection);
    auto *reportersTitle = new QLabel(tr("Owners who report interest every year, instead of when their bonds are cashed or "
                                         "reach final maturity:"),
                                      this);
    reportersTitle->setWordWrap(true);
    m_reporters = new QListWidget(this);
    m_reporters->setFlow(QListView::LeftToRight);
    m_reporters->setWrapping(true);
    m_reporters->setResizeMode(QListView::Adjust);
    m_reporters->setSpacing(2);
    m_reporters->setSelectionMode(QAbstractItemView::NoSelection);
    m_reporters->setMaximumHeight(m_reporters->fontMetrics().height() * 3 + 16);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton *csv = buttons->addButton(tr("Export CSV…"), QDialogButtonBox::ActionRole);
    QPushButton *pdf = buttons->addButton(tr("Export PDF…"), QDialogButtonBox::ActionRole);
    for (QPushButton *button : {csv, pdf})
        button->setAutoDefault(false);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    connect(csv, &QPushButton::clicked, this, &TaxYearDialog::chooseCsvFile);
    connect(pdf, &QPushButton::clicked, this, &TaxYearDialog::choosePdfFile);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(yearRow);
    layout->addWidget(m_table, 1);
    layout->addWidget(note);
    layout->addWidget(m_nextYearHeading);
    layout->addWidget(m_nextYear);
    layout->addWidget(reportersTitle);
    layout->addWidget(m_reporters);
    layout->addWidget(buttons);

    connect(m_year, &QSpinBox::valueChanged, this, &TaxYearDialog::refresh);
    connect(m_reporters, &QListWidget::itemChanged, this, &TaxYearDialog::reporterToggled);
    // Whatever can move a figure of the report reads it again, once per turn of the event loop.
    for (auto signal : {&BondPortfolio::holdingsReset, &BondPortfolio::redeemedReset, &BondPortfolio::figuresChanged,
                        &BondPortfolio::yearlyInterestReportersChanged, &BondPortfolio::titleHoldersChanged})
        connect(&portfolio, signal, this, &TaxYearDialog::scheduleRefresh);
    for (auto signal : {&BondPortfolio::holdingInserted, &BondPortfolio::holdingRemoved, &BondPortfolio::redeemedInserted,
                        &BondPortfolio::redeemedRemoved})
        connect(&portfolio, signal, this, &TaxYearDialog::scheduleRefresh);
    connect(&portfolio, &BondPortfolio::holdingChanged, this, &TaxYearDialog::scheduleRefresh);
    refresh();
    const QSize available = screen() ? screen()->availableSize() : QSize(1024, 700);
    resize(std::min(1100, available.width() - 40), std::min(720, available.height() - 40));
}

int TaxYearDialog::year() const
{
    return m_year->value();
}

void TaxYearDialog::setYear(int year)
{
    m_year->setValue(year);
}

void TaxYearDialog::scheduleRefresh()
{
    if (m_refreshPending)
        return;
    m_refreshPending = true;
    QTimer::singleShot(0, this, &TaxYearDialog::refresh);
}

void TaxYearDialog::refresh()
{
    m_refreshPending = false;
    m_model->setReport(TaxYearReport::of(m_portfolio.data(), m_portfolio.assessor(), year()));
    const TaxYearReport &report = m_model->report();
    m_nextYearHeading->setText(report.nextYear.isEmpty()
                                   ? tr("Plan for next year: no held bond reaches final maturity in %1").arg(report.year + 1)
                                   : TaxYearText::nextYearHeading(report));
    m_nextYear->clear();
    for (const NextYearMaturity &maturity : report.nextYear)
        m_nextYear->addItem(tr("%1: %2").arg(TaxYearText::bondText(*maturity.holding), TaxYearTable::nextYearText(maturity)));
    m_nextYear->setVisible(!report.nextYear.isEmpty());
    fillReporters();
}

void TaxYearDialog::fillReporters()
{
    m_filling = true;
    m_reporters->clear();
    for (const PersonRef &person : m_portfolio.titleHolders()) {
        auto *item = new QListWidgetItem(person->name(), m_reporters);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(m_portfolio.reportsInterestYearly(person.get()) ? Qt::Checked : Qt::Unchecked);
        item->setData(PersonIdRole, person->uniqueId());
    }
    m_filling = false;
}

void TaxYearDialog::reporterToggled(QListWidgetItem *item)
{
    if (m_filling)
        return;
    const QString id = item->data(PersonIdRole).toString();
    for (const PersonRef &person : m_portfolio.titleHolders()) {
        if (person->uniqueId() == id)
            m_portfolio.setReportsInterestYearly(person, item->checkState() == Qt::Checked);
    }
}

QString TaxYearDialog::suggestedName(const QString &extension) const
{
    return tr("%1 tax year %2").arg(m_portfolio.displayName()).arg(year()) + QLatin1Char('.') + extension;
}

bool TaxYearDialog::exportCsv(const QString &path)
{
    refresh();
    const FileWriteResult written = DocumentFileWriter::replaceFile(path, TaxYearTable::csvOf(m_model->report()));
    if (written.ok())
        return true;
    Alerts::warn(this, tr("The report could not be exported"),
                 tr("Could not write %1: %2").arg(QDir::toNativeSeparators(path), QString::fromLocal8Bit(strerror(written.systemError))));
    return false;
}

bool TaxYearDialog::exportPdf(const QString &path)
{
    refresh();
    if (TaxYearPrint::writePdf(path, m_model->report(), m_portfolio.displayName(), QDate::currentDate()))
        return true;
    Alerts::warn(this, tr("The report could not be exported"), tr("Could not write %1.").arg(QDir::toNativeSeparators(path)));
    return false;
}

void TaxYearDialog::chooseCsvFile()
{
    QString path = QFileDialog::getSaveFileName(this, tr("Export Tax Year Report"), suggestedName(QStringLiteral("csv")),
                                                tr("Comma-separated values (*.csv)"));
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".csv");
    exportCsv(path);
}

void TaxYearDialog::choosePdfFile()
{
    QString path = QFileDialog::getSaveFileName(this, tr("Export Tax Year Report"), suggestedName(QStringLiteral("pdf")),
                                                tr("PDF documents (*.pdf)"));
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".pdf");
    exportPdf(path);
}
