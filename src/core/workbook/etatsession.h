#pragma once

#include <QString>
#include <QStringList>

#include <array>

namespace thermique {

// The state of a working session beside the study: what the file does not hold.
struct EtatSession
{
    // Full path of the study file; empty for a new study.
    QString NomFichierEtude;
    // 1 when the study has unsaved changes.
    int EtudeModifiee = 0;

    // Active sheet of the workbook tabs (0 Administratif .. 7 Consommations), the sheet it
    // replaced and the one before.
    int FeuilleActive = 0;
    int FeuilleMemoire = 0;
    int FeuilleQuittee = 0;
    int SousFeuilleBesoins = 0;
    int SousFeuilleBesoinsPrecedente = 0;
    int FeuilleConsommation = 0;
    int FeuilleConsommationPrecedente = 0;

    // The cell the input box is open on, or was last clicked.
    int LigneCourante = 0;
    int ColonneCourante = 0;
    int LigneDebutBloc = 0;
    int LigneFinBloc = 0;
    // Last input column of the active sheet.
    int DerniereColonneSaisie = 22;

    // Back colour of a locked cell (first value of "Couleur.txt") and of an input cell.
    qint32 CouleurVerrouillee = 0;
    qint32 CouleurSaisie = 16777215;

    bool ModeTransfert = false;
    // When 1, the next click on the locality list is swallowed and the flag cleared.
    int IgnorerCombo = 1;
    QString UniteSurface = QStringLiteral("m²");
    QString UniteVolume = QStringLiteral("m³");
    // First 8 characters of the building type cell of the administrative sheet.
    QString TypeConstructionMemoire;

    // Pick lists of finished walls and bridges: "@"-separated copies ending with the key.
    // Entries count from 1; the count is one more than the number of entries.
    QStringList ListeParois;
    int NombreParois = 1;
    QStringList ListeParoisPrecedente;
    QStringList ListePonts;
    int NombrePonts = 1;
    QStringList ListePontsPrecedente;

    // Towns of the weather folder in use, for the locality list.
    QStringList FichiersMeteo;

    double LatitudeSite = 0;
    QString ImpressionGrille = QStringLiteral("Oui");
    QString ImpressionQualite = QStringLiteral("Bonne");
    // "Oui" when the site or the ventilation changed, so that the heat-loss rows are redone.
    QString ChangementMeteo = QStringLiteral("Non");
    QString ChangementVentilation = QStringLiteral("Non");
    QString BesoinsARecalculer = QStringLiteral("Non");
    bool ConsommationsAJour = false;
    bool SaisieControlee = false;
    int ActionGrille = 0;
    int InsertionTableau = 0;
    int MiseAJourResultats = 0;
    bool SessionOuverte = false;
    // Number of the snapshot session of the study, from "SessionSauvegarde".
    int NumeroSession = 1;
    bool TransfertActif = false;
    bool ContexteParoi = false;

    // Drop-down lists open over a kind of cell, so that a second click closes them.
    std::array<QString, 12> ListesOuvertes = {
        QStringLiteral("Non"), QStringLiteral("Non"), QStringLiteral("Non"), QStringLiteral("Non"),
        QStringLiteral("Non"), QStringLiteral("Non"), QStringLiteral("Non"), QStringLiteral("Non"),
        QStringLiteral("Non"), QStringLiteral("Non"), QStringLiteral("Non"), QStringLiteral("Non"),
    };

    // Set elsewhere in the workbook (0 or -1); the town choice only tests it.
    int DrapeauEtude = 0;
    // The user's logo ("Logo\Logo.jpg") stands in the identity cell (2, 3) of sheet 0.
    bool LogoIdentite = false;

    // Final air renewal flows of the ventilation sheet (m³/h); for dwellings only the first.
    int DebitRenouvellementMaxi = 0;
    int DebitRenouvellementMini = 0;

    // The line the insertion command adds on the heat-loss sheet: a bridge line when true
    // (the check box of its choice form).
    bool LigneInsereePont = false;
};

} // namespace thermique
