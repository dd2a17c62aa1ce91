// Builds the scrambled weather tree of the data folder from the plain table of the towns.
#include "climate/arbremeteo.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    QTextStream erreurs(stderr);
    if (arguments.size() != 3) {
        erreurs << "usage : thermique_generer_meteo VILLES.tsv DOSSIER_METEO\n";
        return 2;
    }
    QFile table(arguments.at(1));
    if (!table.open(QIODevice::ReadOnly)) {
        erreurs << "Impossible de lire le fichier : " << arguments.at(1) << '\n';
        return 1;
    }
    QString erreur;
    const int n = thermique::GenererArbreMeteo(table.readAll(), arguments.at(2), erreur);
    if (n < 0) {
        erreurs << arguments.at(1) << " : " << erreur << '\n';
        return 1;
    }
    QTextStream(stdout) << n << " fichiers de villes\n";
    return 0;
}
