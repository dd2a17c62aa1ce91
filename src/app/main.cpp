#include "workbook/mainwindow.h"

#include "workbook/dossierapplication.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QStringList arguments = app.arguments();
    arguments.removeFirst();
    const auto dossier = thermique::DossierApplication::resoudre(
        arguments, QCoreApplication::applicationDirPath());

    thermique::MainWindow fenetre(dossier);
    fenetre.show();
    return app.exec();
}
