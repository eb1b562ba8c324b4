// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExchangePanels.h"

#include "exchange/ExchangeOutcome.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

// The panel is Qt's own (not the desktop's) so that it can carry the option rows under the
// file list, where the user reads them before pressing the panel's button.
QStringList exportRows()
{
    return {QApplication::translate("ExchangePanels", "All bonds"),
            QApplication::translate("ExchangePanels", "Selected bonds only")};
}

class OptionPanel
{
public:
    OptionPanel(QWidget *parent, const QString &title, const QString &prompt)
        : m_dialog(parent, title)
    {
        m_dialog.setOption(QFileDialog::DontUseNativeDialog);
        m_dialog.setLabelText(QFileDialog::Accept, prompt);
        m_dialog.setDirectory(QDir::homePath());
    }

    QFileDialog &dialog() { return m_dialog; }

    void addMessage(const QString &message)
    {
        auto *label = new QLabel(message, &m_dialog);
        label->setWordWrap(true);
        accessoryLayout()->addWidget(label);
    }

    void addRows(const QStringList &titles, int checkedRow)
    {
        for (int row = 0; row < titles.size(); ++row) {
            auto *button = new QRadioButton(titles.at(row), &m_dialog);
            button->setChecked(row == checkedRow || (row == 0 && (checkedRow < 0 || checkedRow >= titles.size())));
            m_rows.addButton(button, row);
            accessoryLayout()->addWidget(button);
        }
    }

    // A check box under the rows; its state is read when the panel closes.
    QCheckBox *addCheckBox(const QString &title, bool checked)
    {
        auto *box = new QCheckBox(title, &m_dialog);
        box->setChecked(checked);
        accessoryLayout()->addWidget(box);
        return box;
    }

    // An export panel's all / selected rows, only when bonds are selected.
    void addExportRows(bool offerSelection, int row)
    {
        if (offerSelection)
            addRows(exportRows(), row);
    }

    // Without the export rows the remembered row stands.
    std::optional<ExchangePanels::Choice> runExport(bool offerSelection, int row)
    {
        auto choice = run();
        if (choice && !offerSelection)
            choice->row = row;
        return choice;
    }

    std::optional<ExchangePanels::Choice> run()
    {
        if (m_dialog.exec() != QDialog::Accepted || m_dialog.selectedFiles().isEmpty())
            return std::nullopt;
        return ExchangePanels::Choice{m_dialog.selectedFiles().constFirst(), std::max(0, m_rows.checkedId())};
    }

private:
    QVBoxLayout *accessoryLayout()
    {
        if (!m_accessory) {
            auto *box = new QWidget(&m_dialog);
            m_accessory = new QVBoxLayout(box);
            m_accessory->setContentsMargins(0, 6, 0, 0);
            auto *grid = qobject_cast<QGridLayout *>(m_dialog.layout());
            if (grid)
                grid->addWidget(box, grid->rowCount(), 0, 1, grid->columnCount());
        }
        return m_accessory;
    }

    QFileDialog m_dialog;
    QVBoxLayout *m_accessory = nullptr;
    QButtonGroup m_rows;
};


} // namespace

std::optional<ExchangePanels::Choice> ExchangePanels::chooseCsvExportFile(QWidget *parent, bool offerSelection, int row,
                                                                          bool forSpreadsheets)
{
    OptionPanel panel(parent, QApplication::translate("ExchangePanels", "Export to CSV file"),
                      QApplication::translate("ExchangePanels", "Export"));
    QFileDialog &dialog = panel.dialog();
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setLabelText(QFileDialog::FileName, QApplication::translate("ExchangePanels", "Export To:"));
    dialog.setNameFilter(QApplication::translate("ExchangePanels", "Comma-separated values (*.csv)"));
    dialog.setDefaultSuffix(QStringLiteral("csv"));
    panel.addExportRows(offerSelection, row);
    QCheckBox *spreadsheet = panel.addCheckBox(
        QApplication::translate("ExchangePanels", "Dates and quoting for spreadsheets (LibreOffice, Excel)"), forSpreadsheets);
    auto choice = panel.runExport(offerSelection, row);
    if (choice)
        choice->forSpreadsheets = spreadsheet->isChecked();
    return choice;
}

std::optional<ExchangePanels::Choice> ExchangePanels::chooseQifExportDirectory(QWidget *parent, bool offerSelection,
                                                                               int row)
{
    OptionPanel panel(parent, QApplication::translate("ExchangePanels", "Choose Export Directory"),
                      QApplication::translate("ExchangePanels", "Choose"));
    QFileDialog &dialog = panel.dialog();
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    panel.addMessage(QApplication::translate("ExchangePanels",
                                             "Choose or create a target directory for your export.\nThe directory "
                                             "will receive two QIF files:\na price list, and a list of your "
                                             "portfolio holdings."));
    panel.addExportRows(offerSelection, row);
    return panel.runExport(offerSelection, row);
}

std::optional<QString> ExchangePanels::chooseFinanceExportDirectory(QWidget *parent)
{
    const QString path = QFileDialog::getExistingDirectory(
        parent, QApplication::translate("ExchangePanels", "Choose a Directory for the GnuCash and KMyMoney Files"));
    return path.isEmpty() ? std::nullopt : std::optional<QString>(path);
}

std::optional<ExchangePanels::Choice> ExchangePanels::chooseCsvImportFile(QWidget *parent, int row)
{
    OptionPanel panel(parent, QApplication::translate("ExchangePanels", "Choose File to Import"),
                      QApplication::translate("ExchangePanels", "Import"));
    QFileDialog &dialog = panel.dialog();
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::ReadOnly); // no new folders from an open panel
    dialog.setNameFilter(QApplication::translate("ExchangePanels", "Comma-separated values (*.csv)"));
    panel.addMessage(QApplication::translate(
        "ExchangePanels", "Choose a CSV file exported by either Quillmere or Savings Bond Wizard(R) 4.10."));
    panel.addRows({QApplication::translate("ExchangePanels", "Quillmere CSV"),
                   QApplication::translate("ExchangePanels", "Savings Bond Wizard CSV")},
                  row);
    return panel.run();
}

std::optional<QString> ExchangePanels::chooseCalculatorPage(QWidget *parent)
{
    const QString path = QFileDialog::getOpenFileName(
        parent, QApplication::translate("ExchangePanels", "Choose the Saved Calculator Page"), QString(),
        QApplication::translate("ExchangePanels", "Web pages (*.html *.htm);;All files (*)"));
    return path.isEmpty() ? std::nullopt : std::optional<QString>(path);
}

void ExchangePanels::alert(QWidget *parent, const ExchangeAlert &alert, bool warning)
{
    QMessageBox box(warning ? QMessageBox::Warning : QMessageBox::Information, QApplication::applicationDisplayName(),
                    alert.title, QMessageBox::NoButton, parent);
    box.setInformativeText(alert.informative.isEmpty() ? alert.message : alert.message + QStringLiteral("\n\n") + alert.informative);
    box.addButton(QApplication::translate("ExchangePanels", "Continue"), QMessageBox::AcceptRole);
    box.exec();
}

void ExchangePanels::beep()
{
    QApplication::beep();
}
