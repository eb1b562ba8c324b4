#include "Alerts.h"

#include <QMessageBox>

namespace {
void show(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &message)
{
    auto *box = new QMessageBox(icon, title, message, QMessageBox::Ok, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    if (parent)
        box->setWindowModality(Qt::WindowModal);
    box->open();
}
}

namespace Alerts {

void warn(QWidget *parent, const QString &title, const QString &message)
{
    show(parent, QMessageBox::Warning, title, message);
}

void inform(QWidget *parent, const QString &title, const QString &message)
{
    show(parent, QMessageBox::Information, title, message);
}

} // namespace Alerts
