#include "cli.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QStringList arguments = app.arguments();
    arguments.removeFirst();
    QTextStream sortie(stdout);
    QTextStream erreurs(stderr);
    return thermique::ExecuterCli(arguments, QCoreApplication::applicationDirPath(), sortie,
                                  erreurs);
}
