#include "commandemet.h"

#include "brouillemet.h"

#include "workbook/records.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

namespace thermique {

namespace {

constexpr qint64 tailleMaximale = 16 << 20;

int usage(QTextStream &erreurs)
{
    erreurs << "usage : thermique-cli met unscramble FICHIER\n"
               "        thermique-cli met scramble FICHIER [-o SORTIE]\n";
    erreurs.flush();
    return 2;
}

} // namespace

int ExecuterCommandeMet(const QStringList &arguments, QTextStream &sortie, QTextStream &erreurs)
{
    if (arguments.isEmpty())
        return usage(erreurs);
    const QString commande = arguments.first();
    const bool brouiller = commande == QLatin1String("scramble");
    if (!brouiller && commande != QLatin1String("unscramble"))
        return usage(erreurs);
    QString cible;
    if (brouiller && arguments.size() == 4 && arguments.at(2) == QLatin1String("-o"))
        cible = arguments.at(3);
    else if (arguments.size() != 2)
        return usage(erreurs);
    const QString source = arguments.at(1);

    QFile f(source);
    if (!f.open(QIODevice::ReadOnly)) {
        erreurs << QStringLiteral("Impossible de lire le fichier : ") << source << '\n';
        erreurs.flush();
        return 1;
    }
    const QByteArray resultat = BrouilleMet(f.read(tailleMaximale), QFileInfo(source).fileName());

    if (!brouiller) {
        sortie << DecoderWindows1252(resultat);
        sortie.flush();
        return 0;
    }
    if (!cible.isEmpty()) {
        QSaveFile s(cible);
        if (!s.open(QIODevice::WriteOnly) || s.write(resultat) != resultat.size() || !s.commit()) {
            erreurs << QStringLiteral("Impossible d'écrire le fichier : ") << cible << '\n';
            erreurs.flush();
            return 1;
        }
        return 0;
    }
    sortie.flush();
    if (QIODevice *d = sortie.device()) {
        d->write(resultat);
        return 0;
    }
    // A stream on a string has no bytes: the closest is the text of the bytes.
    sortie << QString::fromLatin1(resultat);
    sortie.flush();
    return 0;
}

} // namespace thermique
