#include "MainWindow.h"

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
{
    setWindowTitle(QStringLiteral("Quillmere"));
    QMenu *fileMenu = menuBar()->addMenu(tr("&File"));
    QAction *quit = fileMenu->addAction(tr("&Quit"), qApp, &QApplication::closeAllWindows);
    quit->setShortcut(QKeySequence::Quit);
    quit->setMenuRole(QAction::QuitRole);
    QMenu *helpMenu = menuBar()->addMenu(tr("&Help"));
    QAction *about = helpMenu->addAction(tr("&About Quillmere"), this, &MainWindow::showAbout);
    about->setMenuRole(QAction::AboutRole);

    auto *placeholder = new QLabel(tr("Quillmere keeps track of your savings bonds."), this);
    placeholder->setAlignment(Qt::AlignCenter);
    setCentralWidget(placeholder);
    resize(720, 480);
}

void MainWindow::showAbout()
{
    QMessageBox::about(this, tr("About Quillmere"),
                       tr("<h3>Quillmere %1</h3><p>Keeps track of a household's United States savings "
                          "bonds, valued from the Treasury's redemption values.</p>")
                           .arg(QApplication::applicationVersion()));
}
