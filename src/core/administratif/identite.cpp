#include "identite.h"

#include "workbook/classeur.h"
#include "workbook/records.h"
#include "workbook/userinterface.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace thermique {

namespace {

constexpr qint64 tailleMaximale = 1 << 20;

QByteArray lire(const QString &chemin)
{
    return LireFichier(chemin, tailleMaximale);
}

bool ecrire(const QString &chemin, const RecordWriter &w)
{
    return EcrireFichier(chemin, w.bytes());
}

// A record string ends at a double quote: the text keeps a single one instead.
QString sansGuillemets(const QString &texte)
{
    return QString(texte).replace(QLatin1Char('"'), QLatin1Char('\''));
}

void ecrireCellules(Grid &g, int debut, int fin, const QString &texte)
{
    for (int c = debut; c <= fin; ++c)
        g.setText(2, c, texte);
}

void colorer(Grid &g, int debut, int fin, qint32 couleur)
{
    for (int c = debut; c <= fin; ++c)
        if (Cell *p = g.cellPtr(2, c))
            p->attributs.couleurFond = couleur;
}

} // namespace

bool Identite::vide() const
{
    for (const QString &c : champs)
        for (QChar ch : c)
            if (ch != QLatin1Char(' '))
                return false;
    return true;
}

QString Identite::texte() const
{
    QStringList lignes;
    for (const QString &c : champs)
        lignes << c;
    return lignes.join(QStringLiteral("\r\n"));
}

Identite LireIdentite(const DossierApplication &dossier)
{
    Identite id;
    RecordReader r(lire(dossier.fichier(QStringLiteral("Identité.txt"))));
    for (QString &c : id.champs)
        c = r.readString().value_or(QString());
    RecordReader pied(lire(dossier.fichier(QStringLiteral("TextePiedDePage.txt"))));
    id.piedDePage = pied.readString().value_or(QString());
    return id;
}

bool ValiderIdentite(Classeur &classeur, const Identite &identite)
{
    if (identite.vide())
        return false;
    const DossierApplication &dossier = classeur.dossier();
    RecordWriter w;
    for (const QString &c : identite.champs)
        w.stringRecord(sansGuillemets(c));
    RecordWriter pied;
    pied.stringRecord(sansGuillemets(identite.piedDePage));
    ecrire(dossier.fichier(QStringLiteral("Identité.txt")), w);
    ecrire(dossier.fichier(QStringLiteral("TextePiedDePage.txt")), pied);

    // The logo goes: the identity takes the whole cell again, locked.
    Grid &g = classeur.etude().flexGrid[0];
    classeur.etat().LogoIdentite = false;
    colorer(g, 1, 11, classeur.etat().CouleurVerrouillee);
    ecrireCellules(g, 1, 11, identite.texte());
    classeur.marquerModifiee();
    classeur.vue().grillesModifiees = true;
    return true;
}

bool ChoisirLogo(Classeur &classeur)
{
    const DossierApplication &dossier = classeur.dossier();
    const QString dossierLogo = dossier.fichier(QStringLiteral("Logo"));
    QDir().mkpath(dossierLogo);
    const QString choisi = classeur.ui().fichierOuvrir(
        QStringLiteral("Logo"), QStringLiteral("Logo (*.jpg)|*.jpg"), dossierLogo);
    if (choisi.isEmpty())
        return false;
    const QString cible = dossier.fichier(QStringLiteral("Logo\\Logo.jpg"));
    if (QFileInfo(choisi).canonicalFilePath() != QFileInfo(cible).canonicalFilePath()) {
        QFile::remove(cible);
        if (!QFile::copy(choisi, cible))
            return false;
    }
    Grid &g = classeur.etude().flexGrid[0];
    classeur.etat().LogoIdentite = true;
    colorer(g, 1, 3, classeur.etat().CouleurSaisie);
    ecrireCellules(g, 1, 3, QString());
    colorer(g, 4, 11, classeur.etat().CouleurVerrouillee);
    ecrireCellules(g, 4, 11, QString());
    classeur.marquerModifiee();
    classeur.vue().grillesModifiees = true;
    return true;
}

QString LireListePieces(const DossierApplication &dossier)
{
    RecordReader r(lire(dossier.fichier(QStringLiteral("ListePièces.txt"))));
    QStringList lignes;
    while (!r.atEnd()) {
        const auto l = r.readString();
        if (!l)
            break;
        lignes << *l;
    }
    return lignes.join(QStringLiteral("\r\n"));
}

bool EcrireListePieces(const DossierApplication &dossier, const QString &texte)
{
    QString t = texte;
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    RecordWriter w;
    for (const QString &ligne : t.split(QLatin1Char('\n')))
        w.stringRecord(sansGuillemets(ligne));
    return ecrire(dossier.fichier(QStringLiteral("ListePièces.txt")), w);
}

} // namespace thermique
