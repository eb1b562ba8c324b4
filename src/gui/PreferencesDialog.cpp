#include "PreferencesDialog.h"

#include "model/Series.h"
#include "model/UserDefaults.h"

#include <QCloseEvent>
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

    auto *form = new QFormLayout;
    form->addRow(tr("Series of new bonds:"), m_series);
    form->addRow(tr("New bonds are bought on:"), issue);
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
}

void PreferencesDialog::accept()
{
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
