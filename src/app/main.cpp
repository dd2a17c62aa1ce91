#include "workbook/classeur.h"
#include "workbook/dossierapplication.h"
#include "workbook/fenetreprincipale.h"
#include "workbook/feuilles.h"
#include "workbook/installationformulaires.h"
#include "workbook/interfaceqt.h"
#include "workbook/projet.h"
#include "workbook/study.h"

#include <QApplication>
#include <QFont>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Thermique"));
    // A compact face with the metrics of the sheets' old default one, so that texts fit
    // the column widths the studies carry; DejaVu where it is missing.
    QFont police;
    police.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("Arial"),
                        QStringLiteral("DejaVu Sans")});
    police.setPointSize(9);
    QApplication::setFont(police);

    QStringList arguments = app.arguments();
    arguments.removeFirst();
    const auto dossier = thermique::DossierApplication::resoudre(
        arguments, QCoreApplication::applicationDirPath());

    thermique::Study etude;
    thermique::gui::InterfaceQt interface;
    thermique::Classeur classeur(etude, interface, dossier);
    thermique::InstallerFeuilles(classeur);
    thermique::InstallerFichierProjet(classeur);
    thermique::gui::FenetrePrincipale fenetre(classeur);
    interface.definirFenetre(&fenetre);
    interface.definirClasseur(&classeur);
    thermique::gui::InstallerFormulaires(interface.formulaires());

    // A study given on the command line (a double click on a ".dep") opens at start.
    fenetre.demarrer(arguments.isEmpty() ? QString() : arguments.first());
    fenetre.show();
    return app.exec();
}
