#include "projet.h"

#include "classeur.h"
#include "feuille.h"
#include "fichierprojet.h"
#include "nombres.h"
#include "records.h"
#include "userinterface.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace thermique {

namespace {

const QString filtreEtudes = QStringLiteral("Pertes de chaleur (.dep)|*.dep");
const QString dossierSauvegardes = QStringLiteral("SauvegardeInter");
// A study is a few megabytes; anything far beyond is not one of ours.
constexpr qint64 tailleMaximumEtude = 512LL * 1024 * 1024;

QByteArray lire(const QString &chemin, bool *ok = nullptr)
{
    return LireFichier(chemin, tailleMaximumEtude, ok);
}

QString cheminCompagnon(const QString &chemin)
{
    // The ".dep" name less its last three characters, plus "Pc1".
    return chemin.left(chemin.size() - 3) + QStringLiteral("Pc1");
}

// The steps common to every way of loading a study, once the grids are read.
void apresOuverture(Classeur &c, int modeSurlignage = -1)
{
    Study &e = c.etude();
    EtatSession &s = c.etat();
    c.vue().titre = QStringLiteral(" Thermique : Bilan énergétique. ");
    Grid &active = c.grilleActive();
    active.topRow = active.fixedRows;
    active.row = active.topRow;
    active.leftCol = active.fixedCols;
    active.col = active.leftCol + 1;
    if (modeSurlignage >= 0)
        active.modeAffichage = modeSurlignage;
    c.feuille(4).miseEnForme(c);
    s.TypeConstructionMemoire = e.flexGrid[0].text(12, 13).left(8);
    c.ConstruireListes();
    e.flexGrid[1].setColWidth(1, 3200);
    c.viderCopieTableau();
    c.vue().aideVisible = true;
    c.vue().grillesModifiees = true;
    s.SessionOuverte = false;
}

void avantLecture(Classeur &c)
{
    c.vue().aideVisible = false;
    c.SelectionnerOnglet(1);
    c.etat().FeuilleActive = 0;
    c.etat().ModeTransfert = false;
}

} // namespace

bool EcrireFichiers(Classeur &c, const QString &chemin)
{
    const FichierEtude fichiers = EcrireEtude(c.etude());
    QSaveFile dep(chemin);
    QSaveFile compagnon(cheminCompagnon(chemin));
    const bool ok = dep.open(QIODevice::WriteOnly) && compagnon.open(QIODevice::WriteOnly)
        && dep.write(fichiers.dep) == fichiers.dep.size()
        && compagnon.write(fichiers.compagnon) == fichiers.compagnon.size() && compagnon.commit()
        && dep.commit();
    if (!ok) {
        c.ui().message(QStringLiteral("Une erreur s'est produite lors de l'enregistrement."),
                       MessageExclamationAnnulerReessayerContinuer, QStringLiteral("Erreur."));
        return false;
    }
    c.etat().EtudeModifiee = 0;
    return true;
}

namespace {

void enregistrerSous(Classeur &c, bool toujoursDemander)
{
    EtatSession &s = c.etat();
    c.vue().aide.clear();
    c.vue().aideVisible = false;
    c.feuille(4).miseEnForme(c);
    QString chemin = s.NomFichierEtude;
    if (toujoursDemander || QString(chemin).remove(QLatin1Char(' ')).isEmpty()) {
        const QString dossier = c.dossier().fichier(QStringLiteral("Dossiers"));
        QDir().mkpath(dossier);
        chemin = toujoursDemander
            ? c.ui().fichierEnregistrer(QStringLiteral("Thermique."), QStringLiteral("dep|*.dep"),
                                        dossier, QFileInfo(s.NomFichierEtude).completeBaseName())
            : c.ui().fichierEnregistrer(QString(), filtreEtudes, dossier, QString());
        if (chemin.isEmpty()) {
            c.vue().aideVisible = true;
            return;
        }
        if (!chemin.endsWith(QStringLiteral(".dep"), Qt::CaseInsensitive))
            chemin += QStringLiteral(".dep");
        s.NomFichierEtude = chemin;
    }
    EcrireFichiers(c, chemin);
    c.vue().aideVisible = true;
}

} // namespace

void Enregistrer(Classeur &c)
{
    enregistrerSous(c, false);
}

void EnregistrerSous(Classeur &c)
{
    enregistrerSous(c, true);
}

namespace {

// Before another study replaces this one: the offer to save it.
void proposerEnregistrement(Classeur &c)
{
    EtatSession &s = c.etat();
    if (s.EtudeModifiee) {
        if (c.ui().question(QStringLiteral("Enregistrement du fichier ?"), c.vue().titre))
            EnregistrerSous(c);
        s.EtudeModifiee = 0;
    }
    s.IgnorerCombo = 1;
}

} // namespace

void OuvrirFichier(Classeur &c)
{
    EtatSession &s = c.etat();
    proposerEnregistrement(c);
    const QString chemin = c.ui().fichierOuvrir(QString(), filtreEtudes,
                                                c.dossier().fichier(QStringLiteral("Dossiers")));
    if (chemin.isEmpty())
        return;
    s.NomFichierEtude = chemin;
    avantLecture(c);
    LireEtude(lire(chemin), c.etude());
    apresOuverture(c);
}

bool OuvrirFichierChemin(Classeur &c, const QString &chemin)
{
    c.ui().messageAttente(QStringLiteral("Chargement du fichier, veuillez patienter."));
    c.etat().NomFichierEtude = chemin;
    c.etat().IgnorerCombo = 1;
    avantLecture(c);
    bool lisible = false;
    const QByteArray octets = lire(chemin, &lisible);
    const bool ok = lisible && LireEtude(octets, c.etude());
    apresOuverture(c);
    c.ui().fermerMessageAttente();
    return ok;
}

void OuvrirAncienFichier(Classeur &c)
{
    EtatSession &s = c.etat();
    proposerEnregistrement(c);
    const QString chemin = c.ui().fichierOuvrir(QString(), filtreEtudes, QString());
    if (chemin.isEmpty())
        return;
    c.ui().messageAttente(QStringLiteral("Chargement du fichier, veuillez patienter."));
    s.NomFichierEtude = chemin;
    avantLecture(c);
    LireAncienneEtude(lire(chemin), c.etude());
    apresOuverture(c, 8);
    c.ui().fermerMessageAttente();
}

// ---- Snapshots ----------------------------------------------------------------------------

QString NomSauvegarde(const EtatSession &etat, const QDate &aujourdhui)
{
    if (etat.NomFichierEtude.isEmpty())
        return FormatDate(aujourdhui, QStringLiteral("yyyy mmm d")) + QStringLiteral(" - ")
            + QStringLiteral("Non enregistré");
    return QFileInfo(etat.NomFichierEtude).fileName();
}

void SauvegardeInter(Classeur &c, int feuille, const QDate &aujourdhui)
{
    if (feuille < 0 || feuille > 4)
        return;
    EtatSession &s = c.etat();
    const QString nom = NomSauvegarde(s, aujourdhui);
    const QString dossier = c.dossier().fichier(dossierSauvegardes);
    QDir().mkpath(dossier);
    const QString session = QDir(dossier).filePath(QStringLiteral("SessionSauvegarde"));
    if (!s.SessionOuverte) {
        RecordReader r(lire(session));
        const qint64 numero = r.readInteger(-32768, 32767).value_or(0);
        const QString nomPrecedent = r.string();
        s.NumeroSession = (r.ok() && nomPrecedent == nom) ? int(numero) + 1 : 1;
        RecordWriter w;
        w.integerRecord(s.NumeroSession);
        w.stringRecord(nom);
        EcrireFichier(session, w.bytes());
        s.SessionOuverte = true;
    }
    EcrireFichier(QDir(dossier).filePath(nom + QLatin1Char('-') + QString::number(s.NumeroSession)
                                         + QLatin1Char('.') + QString::number(feuille)
                                         + QStringLiteral(".sav")),
                  EcrireInstantane(c.etude(), feuille));
}

QStringList ListeRecuperation(const DossierApplication &dossier)
{
    QStringList liste;
    const QDir d(dossier.fichier(dossierSauvegardes));
    for (const QString &f : d.entryList(QDir::Files, QDir::Name))
        if (f.size() >= 5 && f.at(f.size() - 5) == QLatin1Char('0'))
            liste << f;
    return liste;
}

void Recuperer(Classeur &c, const QString &ligne)
{
    c.SelectionnerOnglet(1);
    c.etat().FeuilleActive = 0;
    c.etat().ModeTransfert = false;
    const QDir d(c.dossier().fichier(dossierSauvegardes));
    const QString base = ligne.left(ligne.size() - 5);
    // A missing file of the set leaves its sheet as it was.
    for (int s = 0; s <= 4; ++s)
        LireInstantane(lire(d.filePath(base + QString::number(s) + QStringLiteral(".sav"))),
                       c.etude(), s, s == 4);
    apresOuverture(c, 8);
}

void SupprimerRecuperation(const DossierApplication &dossier, const QStringList &lignes)
{
    const QDir d(dossier.fichier(dossierSauvegardes));
    for (const QString &ligne : lignes) {
        const QString base = ligne.left(ligne.size() - 5);
        for (int s = 0; s <= 4; ++s)
            QFile::remove(d.filePath(base + QString::number(s) + QStringLiteral(".sav")));
    }
}

void InstallerFichierProjet(Classeur &c)
{
    Classeur::Extensions &x = c.extensions;
    x.enregistrer = [&c] {
        Enregistrer(c);
    };
    x.enregistrerSous = [&c] {
        EnregistrerSous(c);
    };
    x.ouvrirFichier = [&c] {
        OuvrirFichier(c);
    };
    x.ouvrirAncienFichier = [&c] {
        OuvrirAncienFichier(c);
    };
    x.ouvrirFichierChemin = [&c](const QString &chemin) {
        OuvrirFichierChemin(c, chemin);
    };
    x.sauvegardeInter = [&c](int feuille) {
        SauvegardeInter(c, feuille);
    };
    x.recuperation = [&c] {
        c.ui().ouvrirFormulaire(QStringLiteral("Frm_Récupération"));
    };
    c.activerMenu(QStringLiteral("MnuOuvrir"), true);
}

} // namespace thermique
