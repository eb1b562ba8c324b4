// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "PreferencesDialog.h"

#include "base/Series.h"
#include "base/UserDefaults.h"
#include "update/AutomaticUpdateCheck.h"
#include "update/UpdateLocation.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

PreferencesDialog &PreferencesDialog::instance()
{
    // Never destroyed before the application: a top-level window the process keeps to its end.
    static PreferencesDialog *dialog = new PreferencesDialog;
    return *dialog;
}

void PreferencesDialog::showPreferences()
{
    PreferencesDialog &dialog = instance();
    dialog.show();
    dialog.raise();
    dialog.activateWindow();
}

PreferencesDialog::PreferencesDialog()
{
    setWindowTitle(tr("Preferences"));
    setObjectName(QStringLiteral("Preferences"));
    m_series = new QComboBox(this);
    for (const Series *series : Series::allSeries())
        m_series->addItem(series->label(), series->code());
    m_paper = new QRadioButton(tr("Paper"), this);
    m_electronic = new QRadioButton(tr("Electronic"), this);
    auto *issue = new QHBoxLayout;
    issue->addWidget(m_paper);
    issue->addWidget(m_electronic);
    issue->addStretch();

    m_source = new QComboBox(this);
    m_source->addItem(tr("The Treasury (Fiscal Data service)"), int(UpdateLocation::Source::FiscalData));
    m_source->addItem(tr("An update directory"), int(UpdateLocation::Source::Catalogue));
    m_directory = new QLineEdit(this);
    m_directory->setPlaceholderText(tr("https://example.org/bonddata/"));
    m_directory->setMinimumWidth(fontMetrics().horizontalAdvance(QString::fromLatin1(UpdateLocation::DefaultBaseUrl)) + 24);
    connect(m_source, &QComboBox::currentIndexChanged, this, [this] {
        m_directory->setEnabled(m_source->currentData().toInt() == int(UpdateLocation::Source::Catalogue));
    });
    m_automatic = new QCheckBox(tr("Check for new redemption values automatically"), this);
    m_automatic->setToolTip(tr("Once a day at most, after the program starts, while some values of the current "
                               "month are missing."));

    auto *form = new QFormLayout;
    form->addRow(tr("Series of new bonds:"), m_series);
    form->addRow(tr("New bonds are bought on:"), issue);
    form->addRow(tr("Redemption values from:"), m_source);
    form->addRow(tr("Update directory:"), m_directory);
    form->addRow(QString(), m_automatic);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    revert();
}

void PreferencesDialog::revert()
{
    const Series *series = Series::defaultSeries();
    m_series->setCurrentIndex(std::max(0, m_series->findData(series ? series->code() : Series::eeBond()->code())));
    const QVariant paper = UserDefaults::value(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey));
    (paper.isValid() && !paper.toBool() ? m_electronic : m_paper)->setChecked(true);
    m_source->setCurrentIndex(m_source->findData(int(UpdateLocation::source())));
    m_directory->setText(UserDefaults::settings().value(QString::fromLatin1(UpdateLocation::BaseUrlSettingsKey)).toString());
    m_directory->setEnabled(UpdateLocation::source() == UpdateLocation::Source::Catalogue);
    m_automatic->setChecked(AutomaticUpdateCheck::isEnabled());
}

void PreferencesDialog::accept()
{
    const QString directory = m_directory->text().trimmed();
    if (!directory.isEmpty() && !UpdateLocation::normalisedBaseUrl(directory).isValid()) {
        QMessageBox::warning(this, tr("Update directory"),
                             tr("\"%1\" is not an absolute web address such as %2.")
                                 .arg(directory, QString::fromLatin1(UpdateLocation::DefaultBaseUrl)));
        m_directory->setFocus();
        return;
    }
    const auto source = UpdateLocation::Source(m_source->currentData().toInt());
    if (source == UpdateLocation::Source::Catalogue && directory.isEmpty()) {
        QMessageBox::warning(this, tr("Update directory"), tr("Give the web address of the update directory."));
        m_directory->setFocus();
        return;
    }
    UpdateLocation::setSource(source);
    if (directory.isEmpty())
        UserDefaults::settings().remove(QString::fromLatin1(UpdateLocation::BaseUrlSettingsKey));
    else
        UserDefaults::settings().setValue(QString::fromLatin1(UpdateLocation::BaseUrlSettingsKey), directory);
    AutomaticUpdateCheck::setEnabled(m_automatic->isChecked());
    Series::setDefaultSeries(Series::seriesForCode(m_series->currentData().toString()));
    UserDefaults::setValue(QString::fromLatin1(UserDefaults::DefaultBuysPaperKey), m_paper->isChecked());
    QDialog::accept();
}

void PreferencesDialog::reject()
{
    revert();
    QDialog::reject();
}

void PreferencesDialog::closeEvent(QCloseEvent *event)
{
    event->accept();
}
