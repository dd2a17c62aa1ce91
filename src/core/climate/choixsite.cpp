#include "choixsite.h"

#include "basehiver.h"
#include "brouillemet.h"

#include "workbook/classeur.h"
#include "workbook/nombres.h"
#include "workbook/records.h"
#include "workbook/userinterface.h"

#include <QSaveFile>

#include <cmath>

namespace thermique {

namespace {

const QString fichierDepartements
    = QStringLiteral("Base de données - Coordonnées des départements.txt");

void remplir(Grid &g, int ligne, int debut, int fin, const QString &texte)
{
    for (int c = debut; c <= fin; ++c)
        g.setText(ligne, c, texte);
}

bool niveauGazConnu(const QString &niveau)
{
    static const QStringList niveaux = {"GN0", "GN1", "GN2", "GN3", "GN4", "GN5", "GN6"};
    return niveaux.contains(niveau.trimmed());
}

void ecrireVille(const DossierApplication &dossier, const QString &ville)
{
    RecordWriter w;
    w.stringRecord(ville + QStringLiteral("£"));
    EcrireFichier(dossier.fichier(QStringLiteral("Fichier Ville.txt")), w.bytes());
}

} // namespace

QString NoticeDJU()
{
    return QStringLiteral("les DJU seront déterminés lors du calcul des besoins d'énergie");
}

QVector<RegionGeographique> RegionsMeteo(const Classeur &classeur)
{
    return LireGeographie(LireFichierDonnees(
        classeur.dossier().fichier(QStringLiteral("Fichiers Géographique.txt"))));
}

bool ChoisirDepartementMeteo(Classeur &classeur, const QString &region, const QString &departement)
{
    return EcrireChoixMeteo(classeur.dossier(), region + QLatin1Char('\\') + departement);
}

void ApresChoixRegion(Classeur &classeur)
{
    classeur.etat().FichiersMeteo
        = ListerVilles(classeur.dossier(), LireChoixMeteo(classeur.dossier()));
    Grid &g = classeur.etude().flexGrid[0];
    for (int ligne : {9, 10})
        remplir(g, ligne, 10, 22, QStringLiteral(" "));
    for (int ligne : {13, 14, 16})
        remplir(g, ligne, 13, 22, QStringLiteral(" "));
    classeur.marquerModifiee();
    classeur.vue().grillesModifiees = true;
}

void ChoixVille(Classeur &classeur, const QString &ville)
{
    const DossierApplication &dossier = classeur.dossier();
    Study &etude = classeur.etude();
    EtatSession &etat = classeur.etat();
    Grid &g = etude.flexGrid[0];

    const QString choix = LireChoixMeteo(dossier);
    const FicheVille fiche = LireFicheVille(LireFichierMet(dossier.fichier(
        QStringLiteral("Météo\\") + choix + QLatin1Char('\\') + ville + QStringLiteral(".met"))));
    const int departement = fiche.departement();
    const double altitude = ValNombre(fiche.altitude);
    const QString lettre = LettreReferenceThermique(departement, altitude, fiche.nom);
    const auto climat = ChercherDepartement(
        LireFichierDonnees(dossier.fichier(fichierDepartements)), departement);
    const ClimatDepartement valeurs = climat.value_or(ClimatDepartement());

    QString baseHiver = valeurs.temperatureHiver;
    double t0 = ValNombre(baseHiver);
    if (EstDepartementCotier(departement)) {
        classeur.ui().ouvrirFormulaire(QStringLiteral("Frm_DistanceMer"));
        double distance = ValNombre(g.text(9, 0));
        if (distance < 0) {
            distance = 0;
            g.setText(9, 0, QStringLiteral("0"));
        }
        const double corrigee = TemperatureBaseDistanceMer(departement, distance, t0);
        if (corrigee != t0) {
            t0 = corrigee;
            baseHiver = TexteNombre(t0);
        }
    }
    QString baseCorrigee;
    if (!baseHiver.trimmed().isEmpty()) {
        const double t = TempératureBaseAltitude(altitude, t0);
        baseCorrigee = TexteNombre(t);
        etude.temperatureBaseCorrigee = int(std::lround(std::clamp(t, -1000.0, 1000.0)));
    }
    etude.temperatureBaseEte = valeurs.temperatureEte;
    etat.LatitudeSite = ValNombre(fiche.latitude);
    etat.ChangementMeteo = QStringLiteral("Oui");

    const QString zones = valeurs.zoneHiver.isEmpty() && valeurs.zoneEte.isEmpty()
        ? QString()
        : valeurs.zoneHiver + QStringLiteral(" - ") + valeurs.zoneEte;
    const QStringList lignes = {fiche.latitude,   fiche.longitude,
                                fiche.altitude,   zones,
                                lettre,           baseHiver,
                                baseCorrigee,     valeurs.temperatureEte,
                                valeurs.humidite, valeurs.dureeChauffage,
                                NoticeDJU()};
    remplir(g, 9, 10, 22,
            fiche.nom + QStringLiteral(" - ") + fiche.codePostal + QStringLiteral(" - ")
                + DepartementDuChoix(choix));
    remplir(g, 10, 10, 22, lignes.join(QStringLiteral("\r\n")));

    if (!niveauGazConnu(fiche.niveauGaz) && etat.DrapeauEtude == 0)
        classeur.ui().ouvrirFormulaire(QStringLiteral("Frm_RéférenceGazNaturel"));
    for (int ligne : {13, 14})
        remplir(g, ligne, 13, 22, QStringLiteral(" "));
    ecrireVille(dossier, fiche.nom);
    classeur.marquerModifiee();
    classeur.vue().grillesModifiees = true;
}

std::optional<QString> RefusDistanceMer(const QString &saisie)
{
    if (saisie.trimmed().isEmpty())
        return QStringLiteral("La distance doit être précisée !");
    return std::nullopt;
}

void DefinirDistanceMer(Classeur &classeur, const QString &saisie)
{
    classeur.etude().flexGrid[0].setText(9, 0, saisie.trimmed());
}

} // namespace thermique
