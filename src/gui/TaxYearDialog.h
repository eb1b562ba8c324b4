// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reports ▸ Tax Year…: what each owner reports for the chosen year, with their totals and the
// household's, the state tax note, next year's plan, who reports interest every year, and the
// exports. Follows the portfolio as it changes; never modal.
#include <QDialog>

class BondPortfolio;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QSpinBox;
class QTableView;
class TaxYearTableModel;

class TaxYearDialog : public QDialog
{
    Q_OBJECT
public:
    // The year starts at the portfolio's valuation month's.
    TaxYearDialog(BondPortfolio &portfolio, QWidget *parent = nullptr);

    int year() const;
    void setYear(int year);
    TaxYearTableModel *model() const { return m_model; }
    QTableView *table() const { return m_table; }
    // One checkable line per title holder: whether they report interest every year.
    QListWidget *yearlyReporters() const { return m_reporters; }
    QListWidget *nextYearList() const { return m_nextYear; }
    QLabel *nextYearHeading() const { return m_nextYearHeading; }

    // Reads the report again from the portfolio as it is now.
    void refresh();
    // Write the shown report; false, after saying why, when the file could not be written.
    bool exportCsv(const QString &path);
    bool exportPdf(const QString &path);

private:
    void scheduleRefresh();
    void fillReporters();
    void reporterToggled(QListWidgetItem *item);
    void chooseCsvFile();
    void choosePdfFile();
    QString suggestedName(const QString &extension) const;

    BondPortfolio &m_portfolio;
    QSpinBox *m_year = nullptr;
    TaxYearTableModel *m_model = nullptr;
    QTableView *m_table = nullptr;
    QLabel *m_nextYearHeading = nullptr;
    QListWidget *m_nextYear = nullptr;
    QListWidget *m_reporters = nullptr;
    bool m_refreshPending = false;
    bool m_filling = false;
};
