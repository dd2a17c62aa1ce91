// Writes the seed corpus of the fuzz target: a small study, a snapshot, an old file.
#include "workbook/fichierprojet.h"

#include <QDir>
#include <QFile>

using namespace thermique;

static void ecrire(const QString &chemin, const QByteArray &octets)
{
    QFile f(chemin);
    if (f.open(QIODevice::WriteOnly))
        f.write(octets);
}

int main(int argc, char **argv)
{
    const QDir dossier(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("."));
    Study e;
    for (int i = 0; i < Study::NombreFeuilles; ++i)
        e.flexGrid[i] = Grid(3, 3);
    e.flexGrid[4].setText(0, 0, QStringLiteral("TableauLigne1"));
    e.flexGrid[4].setText(1, 0, QStringLiteral("TableauLigneRésultats"));
    e.flexGrid[1].setText(1, 0, QStringLiteral("Coefficients de la fenêtre"));
    e.flexGrid[0].setText(1, 1, QStringLiteral("Toulon\r\n\"83\""));
    e.flexGrid[1].setOperation(2, 2, QStringLiteral("1+2"));
    e.flexGrid[4].setOperation(1, 0, QStringLiteral("2*3"));
    ecrire(dossier.filePath(QStringLiteral("etude.dep")), EcrireEtude(e).dep);
    ecrire(dossier.filePath(QStringLiteral("instantane4.sav")), EcrireInstantane(e, 4));
    ecrire(dossier.filePath(QStringLiteral("instantane1.sav")), EcrireInstantane(e, 1));
    return 0;
}
