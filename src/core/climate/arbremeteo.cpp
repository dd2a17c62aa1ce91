#include "arbremeteo.h"

#include "brouillemet.h"
#include "fichiersclimat.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

namespace thermique {

namespace {
constexpr int nombreColonnes = 10;
} // namespace

int GenererArbreMeteo(const QByteArray &tableUtf8, const QString &dossier, QString &erreur)
{
    QString texte = QString::fromUtf8(tableUtf8);
    texte.remove(QLatin1Char('\r'));
    const QStringList lignes = texte.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (lignes.size() < 2) {
        erreur = QStringLiteral("table des villes vide");
        return -1;
    }
    // A name becomes a path: nothing that would leave its folder.
    static const QRegularExpression interdit(QStringLiteral("[/\\\\:*?\"<>|]|^\\.|^$"));
    QSet<QString> chemins;
    struct Fichier
    {
        QString chemin;
        QByteArray octets;
    };
    QVector<Fichier> fichiers;
    for (qsizetype i = 1; i < lignes.size(); ++i) {
        const QStringList c = lignes.at(i).split(QLatin1Char('\t'));
        const QString ou = QStringLiteral("ligne %1 : ").arg(i + 1);
        if (c.size() != nombreColonnes) {
            erreur = ou
                + QStringLiteral("%1 colonnes au lieu de %2").arg(c.size()).arg(nombreColonnes);
            return -1;
        }
        const QString &region = c[0], &departement = c[1], &nom = c[3];
        for (const QString &partie : {region, departement, nom}) {
            if (partie.contains(interdit)) {
                erreur = ou + QStringLiteral("nom impossible : « %1 »").arg(partie);
                return -1;
            }
        }
        bool ok = false;
        for (int k : {6, 7, 8}) {
            c[k].toDouble(&ok);
            if (!ok) {
                erreur = ou + QStringLiteral("nombre attendu : « %1 »").arg(c[k]);
                return -1;
            }
        }
        if (c[5].size() != 5 || !c[5].at(0).isDigit() || !c[5].at(1).isDigit()) {
            erreur = ou + QStringLiteral("code postal impossible : « %1 »").arg(c[5]);
            return -1;
        }
        const QString chemin = region + QLatin1Char('/') + departement + QLatin1Char('/') + nom
            + QStringLiteral(".met");
        if (chemins.contains(chemin)) {
            erreur = ou + QStringLiteral("ville en double : %1").arg(chemin);
            return -1;
        }
        chemins.insert(chemin);
        // Town, INSEE code, postal code, department, latitude, longitude, altitude,
        // department number, region, gas level.
        const QByteArray clair = EcrireFicheVille(
            {nom, c[4], c[5], departement, c[6], c[7], c[8], c[2], region, c[9]});
        fichiers.append({chemin, BrouilleMet(clair, nom + QStringLiteral(".met"))});
    }

    QDir racine(dossier);
    if (racine.exists() && !racine.removeRecursively()) {
        erreur = QStringLiteral("impossible de vider ") + dossier;
        return -1;
    }
    for (const Fichier &f : fichiers) {
        const QString chemin = racine.filePath(f.chemin);
        QDir().mkpath(QFileInfo(chemin).absolutePath());
        QFile sortie(chemin);
        if (!sortie.open(QIODevice::WriteOnly) || sortie.write(f.octets) != f.octets.size()) {
            erreur = QStringLiteral("impossible d'écrire ") + chemin;
            return -1;
        }
    }
    return int(fichiers.size());
}

} // namespace thermique
