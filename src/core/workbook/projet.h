#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

// The file commands of the workbook: save, open, the old format, the sheet snapshots and
// their recovery. They work on a controller and talk to the user through its interface.
namespace thermique {

class Classeur;
class DossierApplication;
struct EtatSession;

// Connects these commands to the controller's menus, buttons and tab switches.
void InstallerFichierProjet(Classeur &classeur);

void Enregistrer(Classeur &classeur);
void EnregistrerSous(Classeur &classeur);
void OuvrirFichier(Classeur &classeur);
// Opens the study at `chemin` with no dialog (the command line). False when the file could
// not be read to its end (the grids stay as far as they were read).
bool OuvrirFichierChemin(Classeur &classeur, const QString &chemin);
void OuvrirAncienFichier(Classeur &classeur);

// Writes the study and its companion under `chemin`, each through a temporary file that
// replaces the target only when complete. False (and the message) when it failed.
bool EcrireFichiers(Classeur &classeur, const QString &chemin);

// The name of the study in its snapshots: the file name, or the date and
// " - Non enregistré" for a study never saved.
QString NomSauvegarde(const EtatSession &etat, const QDate &aujourdhui);
// Writes the snapshot of sheet 0 to 4 (nothing for the others); never reports anything.
void SauvegardeInter(Classeur &classeur, int feuille,
                     const QDate &aujourdhui = QDate::currentDate());

// Recovery points: the sheet-0 file name of each set in "SauvegardeInter".
QStringList ListeRecuperation(const DossierApplication &dossier);
// Restores the five sheets of the set named by `ligne` (a name of the list).
void Recuperer(Classeur &classeur, const QString &ligne);
// Deletes the five files of each set.
void SupprimerRecuperation(const DossierApplication &dossier, const QStringList &lignes);

} // namespace thermique
