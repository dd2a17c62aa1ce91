#pragma once

#include "dossierapplication.h"
#include "etatsession.h"
#include "etatvue.h"
#include "study.h"

#include <QMap>
#include <QString>

#include <algorithm>
#include <array>

#include <functional>
#include <memory>

namespace thermique {

class UserInterface;
class Feuille;

// Labels of column 6 of a wall block whose line cannot be removed: the computed rows of the
// block, on the sheet and in the wall library alike.
bool LibelleLigneFixe(const QString &libelle);

// The workbook controller: what a tab click, a key, a click, a commit of the input box, a
// list choice or a menu entry does to the study. It knows no widget: the window turns its
// events into these calls and redraws from the study and vue(). A user session can be
// replayed in a test with a scripted UserInterface.
class Classeur
{
public:
    Classeur(Study &etude, UserInterface &ui, DossierApplication dossier);
    ~Classeur();

    Study &etude() { return m_etude; }
    const Study &etude() const { return m_etude; }
    EtatSession &etat() { return m_etat; }
    const EtatSession &etat() const { return m_etat; }
    EtatVue &vue() { return m_vue; }
    const EtatVue &vue() const { return m_vue; }
    UserInterface &ui() { return m_ui; }
    const DossierApplication &dossier() const { return m_dossier; }

    // The grid of the active sheet (the main grids 0 to 5; the sub-sheets on 6 and 7).
    Grid &grilleActive();
    // Screen size in twips, given by the window (for AjusterFenetre).
    void definirEcran(int largeurTwips, int hauteurTwips);

    // Start of the application: settings, the empty workbook, the study of the command line.
    void ChargementInitial(const QString &cheminEtude = {});
    void PreparationClasseur();
    void AjusterFenetre();

    // Click on the workbook tab `onglet` (1 to 8). The active sheet may stay as it was when a
    // gate refuses the switch.
    void ChangementFeuille(int onglet);

    // Mouse on a cell of the active grid.
    void CliqueCellule(int ligne, int colonne);
    void ClicDroitCellule(int ligne, int colonne);
    void DoubleCliqueCellule(int ligne, int colonne);
    // `yTwips`: the pointer's height in the sheet (scrolled-out rows included), when known.
    void SurvolCellule(int ligne, int colonne, bool majuscule, int yTwips = -1);
    // The pointer height of the last SurvolCellule, -1 when unknown.
    int pointeurY() const { return m_pointeurY; }
    void SurvolBouton(int bouton);
    // The far end of the selection follows the pointer while the button is held; the
    // current cell stays. Returns true when the selection changed.
    bool EtendreSelection(int ligne, int colonne);
    // Command2 of the Coef-U sheet: the building-physics notes.
    void BoutonInformations();
    void DefilementGrille();

    // Keys on the grid: key down with the shift mask, then key press with the character.
    void ToucheEnfoncee(int code, int masque);
    void ToucheCaractere(int code);

    // The input box: its text changes, a key in it, focus lost (commit).
    void SaisieTexteChange(const QString &texte);
    // Returns true when the key was taken (the box must not process it).
    bool SaisieTouche(int code, int masque, bool caretAuDebut, bool caretALaFin);
    void SaisiePerteFocus();
    // Writes the box to its cell and runs the sheet's commit.
    void ValiderSaisie();
    void AnnulerSaisie();

    // A choice in a drop-down list (0 Combo1, 1 Combo3), by item index.
    void ChoixListe(int liste, int index);
    void FermerListes();

    // A toolbar button, a menu entry by its name.
    void Bouton(int bouton);
    void Menu(const QString &nom);

    // Selects a tab from the program (no gate runs, as while a study is loaded).
    void SelectionnerOnglet(int onglet);
    // Recomputes every sheet from its inputs, as if each input were committed again.
    void RecalculerTout();
    // Forgets the copied room table (a new study was opened).
    void viderCopieTableau();

    // Closing: asks to save when the study changed; then writes the settings files.
    // Returns false when the closing must not go on.
    bool Fermeture();

    // Line commands and tables, also reached by keys and buttons.
    void InsererLigne();
    void SupprimerLigne();
    void CopierTableau();
    void CollerTableau();
    // Checks that rows [debut, fin] of the Coef-U sheet are empty for a block; grows the
    // grid first. Shows the message and returns false when they are not.
    bool VerifierPlace(int debut, int fin);

    // Movement to the next input cell.
    void CelluleSuivante();
    void CellulePrecedente();
    void CelluleDroite();
    void CelluleGauche();
    void CelluleHaut();

    // Colours: a new locked colour (refused when it is the input colour), the default one.
    void ChangerCouleurVerrouillee(qint32 couleur);
    void CouleurParDefaut();

    // Rebuilds ListeParois and ListePonts from the Coef-U and Coef-Pth sheets.
    void ConstruireListes();

    // The sheet hooks, by sheet number 0 to 7 (later subsystems install theirs).
    void installerFeuille(int numero, std::unique_ptr<Feuille> feuille);
    Feuille &feuille(int numero);

    // Actions that other subsystems provide (project file, snapshots, printing). A menu
    // entry or a button whose action is missing stays disabled.
    struct Extensions
    {
        std::function<void()> enregistrer;
        std::function<void()> enregistrerSous;
        std::function<void()> ouvrirFichier;
        std::function<void()> ouvrirAncienFichier;
        std::function<void(const QString &)> ouvrirFichierChemin;
        std::function<void()> recuperation;
        std::function<void()> imprimer;
        // The snapshot of a sheet, on leaving it.
        std::function<void(int)> sauvegardeInter;
    };
    Extensions extensions;
    // Any other menu entry, by name.
    void definirActionMenu(const QString &nom, std::function<void()> action);
    // The enabled state that the workbook rules give an entry, before knowing whether
    // its action exists.
    bool menuActif(const QString &nom) const;
    void activerMenu(const QString &nom, bool actif);

    // Called when a cell changes under the user's hand.
    void marquerModifiee() { m_etat.EtudeModifiee = 1; }

    // Help texts of the panel.
    static QString aideGenerale();

private:
    void lireReglages();
    void ecrireReglages();
    void majMenus();
    void majBoutons();
    void majMenusFichiersAnciens();
    bool portesAdministratives();
    void propagerVersPertes();
    void ouvrirSaisie(int ligne, int colonne, int touche);
    bool celluleAOperation(int ligne, int colonne) const;
    void validerFeuille0(int ligne, int colonne, const QString &texte);
    void validerFeuille1(int ligne, int colonne, const QString &texte);
    void validerFeuille3(int ligne, int colonne, const QString &texte);
    void validerFeuille4(int ligne, int colonne, const QString &texte);
    void effacerSelection();
    void sautVerrouillee(int ligne, int colonne, const QString &sens);
    bool controleTouche(int code);
    bool controleCaractere(int code);
    void ajouterLigneFin();
    void recalculerResultats();
    void repeindreVerrouillees(qint32 ancienne, qint32 nouvelle);

    std::function<void()> actionMenu(const QString &nom) const;
    void changerFeuille(int feuille);
    bool porteGeographique(const QString &premier);
    void majFeuilleMenus();
    void deplacer(int ligne, int colonne);
    QString codeLigne(int ligne) const;
    bool estBlanc(int ligne, int colonne) const;

    Study &m_etude;
    UserInterface &m_ui;
    DossierApplication m_dossier;
    EtatSession m_etat;
    EtatVue m_vue;
    std::array<std::unique_ptr<Feuille>, 8> m_feuilles;
    // The clipboard of one heat-loss table, with its operations.
    Grid m_copieTableau;
    int m_largeurEcran = 19200;
    int m_hauteurEcran = 14400;
    QString m_sensDeplacement;
    int m_pointeurY = -1;
    QMap<QString, bool> m_menusActifs;
    QMap<QString, std::function<void()>> m_actionsMenu;
};

} // namespace thermique
